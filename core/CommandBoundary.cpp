#include "CommandBoundary.h"

#include <exception>

#include "ScriptDriver.h"
#include "Workspace.h"

Message FaultMessage(const RuntimeFault& fault, const std::vector<std::string>& unrestored) {
  std::vector<std::string> lines = {"... " + std::string(FaultText(fault.Code())) + " ..."};
  if (!fault.Detail().empty()) lines.push_back("... " + fault.Detail() + " ...");
  if (unrestored.empty()) {
    lines.push_back("... Η εντολή διακόπηκε. Τα αρχεία εργασίας έμειναν όπως ήταν ...");
  } else {
    std::string names;
    for (const std::string& name : unrestored) names += (names.empty() ? "" : ", ") + name;
    lines.push_back("... Η εντολή διακόπηκε. ΔΕΝ επανήλθαν τα αρχεία εργασίας : " + names + " ...");
  }
  return NoticeBox("... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ...", std::move(lines), MessageIcon::Critical,
                   kSystemBeeps);
}

CommandBoundary::CommandBoundary(Workspace& workspace, Prompter& prompter, StudyState& state)
    : workspace_(workspace), prompter_(prompter), state_(state) {}

bool CommandBoundary::Run(ScriptScreen& screen, const std::function<void()>& command) {
  return Execute(&screen, command);
}

bool CommandBoundary::Run(const std::function<void()>& command) {
  return Execute(nullptr, command);
}

bool CommandBoundary::Execute(ScriptScreen* screen, const std::function<void()>& command) {
  if (Workspace::InPause()) return false;
  const StudyState state = state_;
  const std::function<void()> restoreScreen = screen ? screen->Keep() : [] {};
  workspace_.BeginCommand();
  RuntimeFault failure(FaultCode::Internal);
  try {
    command();
    workspace_.CommitCommand();
    return true;
  } catch (const ScriptError&) {
    // A script that stops is not a failure of the command: the files stay as the command left
    // them for inspection, and the stop travels on to the driver.
    workspace_.CommitCommand();
    throw;
  } catch (const RuntimeFault& fault) {
    failure = fault;
  } catch (const std::exception& e) {
    failure = RuntimeFault(FaultCode::Internal, e.what());
  } catch (...) {
  }
  const std::vector<std::string> unrestored = workspace_.RollbackCommand();
  restoreScreen();
  state_ = state;
  prompter_.Show(FaultMessage(failure, unrestored));
  return false;
}

void CommandBoundary::Report(const RuntimeFault& fault) {
  prompter_.Show(FaultMessage(fault));
}
