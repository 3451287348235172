#include "CommandBoundary.h"

#include <exception>

#include "ScriptDriver.h"
#include "Workspace.h"

Message FaultMessage(const RuntimeFault& fault) {
  Message m;
  m.Title = "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ...";
  m.Lines.push_back("... " + std::string(FaultText(fault.Code())) + " ...");
  if (!fault.Detail().empty()) m.Lines.push_back("... " + fault.Detail() + " ...");
  m.Lines.push_back("... Η εντολή διακόπηκε. Τα αρχεία εργασίας έμειναν όπως ήταν ...");
  m.Buttons = MessageButtons::Ok;
  m.Icon = MessageIcon::Critical;
  m.Default = Answer::Ok;
  m.Beeps = 2;
  return m;
}

CommandBoundary::CommandBoundary(Workspace& workspace, Prompter& prompter)
    : workspace_(workspace), prompter_(prompter) {}

bool CommandBoundary::Run(const std::function<void()>& command) {
  if (Workspace::InPause()) return false;
  workspace_.BeginCommand();
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
    Fail(fault);
  } catch (const std::exception& e) {
    Fail(RuntimeFault(FaultCode::Internal, e.what()));
  } catch (...) {
    Fail(RuntimeFault(FaultCode::Internal));
  }
  return false;
}

void CommandBoundary::Report(const RuntimeFault& fault) {
  prompter_.Show(FaultMessage(fault));
}

void CommandBoundary::Fail(const RuntimeFault& fault) {
  try {
    workspace_.RollbackCommand();
  } catch (...) {
    // Kept on purpose: a file that cannot be put back must not take the program down with it;
    // the message below still tells the engineer that the command failed.
  }
  Report(fault);
}
