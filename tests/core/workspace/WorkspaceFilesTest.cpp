// The file operations of the program folder, the journal that undoes a failed command, the
// working files, the pictures' extensions and the pause.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "RuntimeFault.h"
#include "WorkingFiles.h"
#include "Workspace.h"
#include "WorkspaceTestSupport.h"

namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

class WorkspaceFiles : public ::testing::Test {
 protected:
  WorkspaceFiles() {
    ws_.SetPauseMilliseconds(0);
    // Bytes a text reader would stumble on: zeros, a lone CR, cp1253 high bytes.
    Put(ws_, "SHEETS.TMP", std::string("s\0h\re\xE5\xF4s", 8));
    Put(ws_, "LOOPS.TMP", std::string(298, '\x20'));
    Put(ws_, "RVLFiles/Μελέτη.sht", "study");
  }
  ~WorkspaceFiles() override { Workspace::SetEventPump({}); }

  bool Has(const std::string& name) const { return fs::exists(ws_.PathOf(name)); }
  // Every file of the folder, with its bytes.
  std::map<std::string, std::string> Snapshot() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(ws_.Folder()))
      if (entry.is_regular_file())
        files[fs::relative(entry.path(), ws_.Folder()).string()] = ReadAllBytes(entry.path());
    return files;
  }
  // The fault `op` threw: its code and whether its detail names `name`.
  template <class Op>
  void ExpectFault(Op op, FaultCode code, const std::string& name) {
    try {
      op();
      ADD_FAILURE() << "no fault for " << name;
    } catch (const RuntimeFault& fault) {
      EXPECT_EQ(fault.Code(), code) << name;
      EXPECT_NE(fault.Detail().find(name), std::string::npos) << fault.Detail();
    }
  }

  TempFolder temp_;
  Workspace ws_{temp_.Path()};
};

TEST_F(WorkspaceFiles, ExistsAndSize) {
  Put(ws_, "EMPTY.TMP", "");
  EXPECT_EQ(ws_.FileExists("SHEETS.TMP"), -1);
  EXPECT_EQ(ws_.FileExists("RVLFiles"), 0);
  EXPECT_EQ(ws_.FileExistsAndSize("SHEETS.TMP"), (std::pair<int16_t, uint64_t>{-1, 8}));
  EXPECT_EQ(ws_.FileExistsAndSize("EMPTY.TMP"), (std::pair<int16_t, uint64_t>{-1, 0}));
  EXPECT_EQ(ws_.FileExistsAndSize("NoFolder/NONE.TMP"), (std::pair<int16_t, uint64_t>{0, 0}));
}

TEST_F(WorkspaceFiles, DeleteCopyAndRenameWithTheirFailures) {
  ws_.Delete("SHEETS.TMP", false);
  EXPECT_FALSE(Has("SHEETS.TMP"));
  EXPECT_NO_THROW(ws_.Delete("SHEETS.TMP", false));
  ExpectFault([&] { ws_.Delete("RVLFiles", false); }, FaultCode::PathFileAccess, "RVLFiles");
  EXPECT_NO_THROW(ws_.Delete("RVLFiles", true));
  EXPECT_TRUE(fs::is_directory(ws_.PathOf("RVLFiles")));

  Put(ws_, "RVLFiles/Μελέτη 1.sht", "older and longer");
  ws_.Copy("RVLFiles/Μελέτη.sht", "RVLFiles/Μελέτη 1.sht");
  EXPECT_EQ(Get(ws_, "RVLFiles/Μελέτη 1.sht"), "study");
  ExpectFault([&] { ws_.Copy("NONE.TMP", "DUMMY.TMP"); }, FaultCode::FileNotFound, "NONE.TMP");
  ExpectFault([&] { ws_.Copy("LOOPS.TMP", "NoFolder/x.sht"); }, FaultCode::PathNotFound,
              "NoFolder/x.sht");
  EXPECT_NO_THROW(ws_.Copy("NONE.TMP", "DUMMY.TMP", true));
  EXPECT_FALSE(Has("DUMMY.TMP"));

  ws_.Rename("LOOPS.TMP", "Σώματα.ths");
  EXPECT_FALSE(Has("LOOPS.TMP"));
  EXPECT_EQ(Get(ws_, "Σώματα.ths"), std::string(298, ' '));
  // The old run-time's rename never replaced a file.
  Put(ws_, "a.th_", "old");
  ExpectFault([&] { ws_.Rename("Σώματα.ths", "a.th_"); }, FaultCode::PathFileAccess, "a.th_");
  EXPECT_NO_THROW(ws_.Rename("Σώματα.ths", "a.th_", true));
  EXPECT_EQ(Get(ws_, "a.th_"), "old");
  ExpectFault([&] { ws_.Rename("NONE.TMP", "X.TMP"); }, FaultCode::FileNotFound, "NONE.TMP");
}

TEST_F(WorkspaceFiles, ARewriteGoesThroughASecondFileAndAFailureLeavesTheOld) {
  fs::path seen;
  ws_.Rewrite("SHEETS.TMP", [&](const fs::path& second) {
    seen = second;
    EXPECT_EQ(second.parent_path(), ws_.Folder());
    WriteAllBytes(second, "new");
  });
  EXPECT_EQ(Get(ws_, "SHEETS.TMP"), "new");
  EXPECT_FALSE(fs::exists(seen));
  ws_.Rewrite("RVLFiles/new.lps", [](const fs::path& second) { WriteAllBytes(second, "lps"); });
  EXPECT_EQ(Get(ws_, "RVLFiles/new.lps"), "lps");
  EXPECT_THROW(ws_.Rewrite("SHEETS.TMP",
                           [&](const fs::path& second) {
                             WriteAllBytes(second, "half");
                             throw RuntimeFault(FaultCode::DiskFull, "SHEETS.TMP");
                           }),
               RuntimeFault);
  EXPECT_THROW(ws_.Rewrite("SHEETS.TMP", [](const fs::path&) { throw std::logic_error("x"); }),
               std::logic_error);
  EXPECT_EQ(Get(ws_, "SHEETS.TMP"), "new");
  EXPECT_FALSE(fs::exists(seen));
}

TEST_F(WorkspaceFiles, ListFilesWithoutRegardToCaseInFileListOrder) {
  for (const char* name : {"b.ths", "A.THS", "a.ths", "c.Ths", "d.txt", "Σώμα.ths", "άλφα.THS",
                           "x.thsx", "ths", "GMI/0001.ZTB", "GMI/ς.rvo", "GMI/ό.rvo"})
    Put(ws_, name, "");
  fs::create_directory(ws_.PathOf("folder.ths"));
  EXPECT_EQ(ws_.ListFiles("", "*.ths"),
            (Names{"A.THS", "a.ths", "b.ths", "c.Ths", "άλφα.THS", "Σώμα.ths"}));
  EXPECT_EQ(ws_.ListFiles("", "ΆΛΦΑ.*"), Names{"άλφα.THS"});
  EXPECT_EQ(ws_.ListFiles("NoFolder", "*"), Names{});
  const std::pair<const char*, Names> patterns[] = {
      {"????.ztb", {"0001.ZTB"}}, {"???.ztb", {}}, {"*.zt", {}},
      {"Σ.RVO", {"ς.rvo"}},       {"Ο.rvo", {}},   {"Ό.rvo", {"ό.rvo"}},
      {"0*0*B", {"0001.ZTB"}},    {"0*B*0", {}},   {"?.rvo", {"ό.rvo", "ς.rvo"}}};
  for (const auto& [pattern, names] : patterns) EXPECT_EQ(ws_.ListFiles("GMI", pattern), names);
}

TEST_F(WorkspaceFiles, KillRavoTemporariesDeletesExactlyTheWorkingFiles) {
  for (const std::string& name : WorkingFileNames()) Put(ws_, name, "w");
  const Names others = {"RavoPipes.txt",       "a.th_",       "RESTBRA.TMP", "SHEETS.TMP.bak",
                        "RVLFiles/SHEETS.TMP", "GMI/EDGE.TMP"};
  for (const std::string& name : others) Put(ws_, name, "keep");
  KillRavoTemporaries(ws_);
  for (const std::string& name : WorkingFileNames()) EXPECT_FALSE(Has(name)) << name;
  for (const std::string& name : others) EXPECT_EQ(Get(ws_, name), "keep") << name;
}

// A bare extension loses its first letter: the old routine replaced the first two characters.
TEST_F(WorkspaceFiles, RenameFilesToJpgAndBackStoppingSilentlyAtAClash) {
  const std::pair<const char*, const char*> patterns[] = {
      {".rvo", "*.rvo"}, {"*.rvo", "*.rvo"}, {"rvo", "*.vo"}, {"*rvo", "*.vo"}, {"", "*."}};
  for (const auto& [extension, pattern] : patterns) EXPECT_EQ(ExtensionPattern(extension), pattern);
  for (const char* name : {"GMI/Λεβητοστάσιο.rvo", "GMI/b.RVO", "GMI/c.txt", "x.rvo"})
    Put(ws_, name, name);
  RenameFiles(ws_, "rvo", ".jpg");
  EXPECT_EQ(ws_.ListFiles("GMI", "*.jpg"), Names{});
  RenameFiles(ws_, ".rvo", ".jpg");
  EXPECT_EQ(ws_.ListFiles("GMI", "*"), (Names{"b.jpg", "c.txt", "Λεβητοστάσιο.jpg"}));
  EXPECT_EQ(Get(ws_, "GMI/Λεβητοστάσιο.jpg"), "GMI/Λεβητοστάσιο.rvo");
  EXPECT_TRUE(Has("x.rvo"));
  Put(ws_, "GMI/a.jpg", "");
  Put(ws_, "GMI/a.rvo", "already");
  RenameFiles(ws_, "*.jpg", "*.rvo");
  EXPECT_EQ(ws_.ListFiles("GMI", "*"),
            (Names{"a.jpg", "a.rvo", "b.jpg", "c.txt", "Λεβητοστάσιο.jpg"}));
  EXPECT_EQ(WithBackslash(""), "/");
  EXPECT_EQ(WithBackslash("/x/Μελέτες/"), "/x/Μελέτες/");
  EXPECT_EQ(WithBackslash("/x/Μελέτες"), "/x/Μελέτες/");
}

TEST_F(WorkspaceFiles, APausePumpsEventsWhileItLastsAndNoneAtZero) {
  int pumped = 0;
  bool inPause = true;
  Workspace::SetEventPump([&] {
    ++pumped;
    inPause = inPause && Workspace::InPause();
  });
  ws_.Pause();
  ws_.WaitSeconds(0.5);
  ws_.Delete("SHEETS.TMP");
  EXPECT_EQ(pumped, 0);
  ws_.SetPauseMilliseconds(30);
  auto start = std::chrono::steady_clock::now();
  ws_.Delete("LOOPS.TMP");
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
  EXPECT_GE(pumped, 1);
  EXPECT_TRUE(inPause);
  EXPECT_FALSE(Workspace::InPause());
  // The system's waits scale like the pause: at 100 ms a second is a second.
  ws_.SetPauseMilliseconds(100);
  start = std::chrono::steady_clock::now();
  ws_.WaitSeconds(0.02);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(20));
  // A pause inside a pause keeps the flag.
  ws_.SetPauseMilliseconds(20);
  int depth = 0;
  bool stillInPause = false;
  Workspace::SetEventPump([&] {
    if (depth++ > 0) return;
    ws_.Pause();
    stillInPause = Workspace::InPause();
  });
  ws_.Pause();
  EXPECT_TRUE(stillInPause);
  EXPECT_FALSE(Workspace::InPause());
}

// ---- The journal of a command -------------------------------------------------------------

TEST_F(WorkspaceFiles, ARollbackPutsEveryFileBackAsItFirstWas) {
  const auto before = Snapshot();
  ws_.BeginCommand();
  for (const char* text : {"one", "two"})
    ws_.Rewrite("SHEETS.TMP", [&](const fs::path& second) { WriteAllBytes(second, text); });
  ws_.Copy("SHEETS.TMP", "LOOPS.TMP");
  ws_.Copy("RVLFiles/Μελέτη.sht", "DUMMY.TMP");
  ws_.Rename("RVLFiles/Μελέτη.sht", "TMP.@@@");
  ws_.Rename("TMP.@@@", "RVLFiles/Μελέτη.sht.old");
  ws_.Delete("SHEETS.TMP");
  // A record file reports before it writes.
  ws_.BeforeModify(ws_.PathOf("NEWFILE"));
  WriteAllBytes(ws_.PathOf("NEWFILE"), "made");
  ASSERT_NE(Snapshot(), before);
  ws_.RollbackCommand();
  EXPECT_EQ(Snapshot(), before);
}

TEST_F(WorkspaceFiles, ACommitKeepsAndOutsideACommandNothingIsKept) {
  ws_.BeginCommand();
  ws_.Copy("RVLFiles/Μελέτη.sht", "SHEETS.TMP");
  ws_.CommitCommand();
  ws_.RollbackCommand();  // nothing open: nothing to undo
  ws_.Copy("RVLFiles/Μελέτη.sht", "LOOPS.TMP");
  ws_.RollbackCommand();
  EXPECT_EQ(Get(ws_, "SHEETS.TMP"), "study");
  EXPECT_EQ(Get(ws_, "LOOPS.TMP"), "study");
}

TEST_F(WorkspaceFiles, NestedCommandsUndoTheirOwnAndHandTheRestOutward) {
  const auto before = Snapshot();
  ws_.BeginCommand();
  ws_.Copy("RVLFiles/Μελέτη.sht", "SHEETS.TMP");
  const auto afterOuter = Snapshot();
  ws_.BeginCommand();
  ws_.Copy("LOOPS.TMP", "SHEETS.TMP");
  ws_.RollbackCommand();
  EXPECT_EQ(Snapshot(), afterOuter);
  // An inner commit hands its files to the outer frame, which keeps its own first state.
  ws_.BeginCommand();
  ws_.Rewrite("SHEETS.TMP", [](const fs::path& second) { WriteAllBytes(second, "inner"); });
  ws_.Copy("SHEETS.TMP", "DUMMY.TMP");
  ws_.Delete("LOOPS.TMP");
  ws_.CommitCommand();
  EXPECT_EQ(Get(ws_, "DUMMY.TMP"), "inner");
  ws_.RollbackCommand();
  EXPECT_EQ(Snapshot(), before);
}

TEST_F(WorkspaceFiles, ARollbackGoesOnPastAFileThatResists) {
  const auto before = Snapshot();
  ws_.BeginCommand();
  ws_.Copy("SHEETS.TMP", "DUMMY.TMP");
  ws_.Rewrite("LOOPS.TMP", [](const fs::path& second) { WriteAllBytes(second, "x"); });
  // DUMMY.TMP was absent and is now a folder that a file delete cannot take away.
  fs::remove(ws_.PathOf("DUMMY.TMP"));
  fs::create_directories(ws_.PathOf("DUMMY.TMP/inner"));
  EXPECT_NO_THROW(ws_.RollbackCommand());
  EXPECT_EQ(Get(ws_, "LOOPS.TMP"), before.at("LOOPS.TMP"));
}

}  // namespace
