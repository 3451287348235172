// The file operations of the program folder, the journal that undoes a failed command, the
// working files, the pictures' extensions and the pause.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "Faults.h"
#include "ProgramFolder.h"
#include "WorkingFiles.h"
#include "Workspace.h"
#include "WorkspaceTestSupport.h"

namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

class WorkspaceFiles : public ::testing::Test, public ProgramFolder {
 protected:
  WorkspaceFiles() {
    // Bytes a text reader would stumble on: zeros, a lone CR, cp1253 high bytes.
    Put(ws, "SHEETS.TMP", std::string("s\0h\re\xE5\xF4s", 8));
    Put(ws, "LOOPS.TMP", std::string(298, '\x20'));
    Put(ws, "RVLFiles/Μελέτη.sht", "study");
  }
  ~WorkspaceFiles() override { Workspace::SetEventPump({}); }

  bool Has(const std::string& name) const { return fs::exists(ws.PathOf(name)); }
  // Every file of the folder, with its bytes.
  std::map<std::string, std::string> Snapshot() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(ws.Folder()))
      if (entry.is_regular_file())
        files[fs::relative(entry.path(), ws.Folder()).string()] = ReadAllBytes(entry.path());
    return files;
  }
};

TEST_F(WorkspaceFiles, ExistsSizeDeleteCopyAndRenameWithTheirFailures) {
  using Found = std::pair<int16_t, uint64_t>;
  Put(ws, "EMPTY.TMP", "");
  EXPECT_EQ(ws.FileExists("SHEETS.TMP"), -1);
  EXPECT_EQ(ws.FileExists("RVLFiles"), 0);
  EXPECT_EQ(ws.FileExistsAndSize("SHEETS.TMP"), (Found{-1, 8}));
  EXPECT_EQ(ws.FileExistsAndSize("EMPTY.TMP"), (Found{-1, 0}));
  EXPECT_EQ(ws.FileExistsAndSize("NoFolder/NONE.TMP"), (Found{0, 0}));
  ws.Delete("SHEETS.TMP", false);
  EXPECT_FALSE(Has("SHEETS.TMP"));
  EXPECT_NO_THROW(ws.Delete("SHEETS.TMP", false));
  EXPECT_EQ(FaultOf([&] { ws.Delete("RVLFiles", false); }, "RVLFiles"), FaultCode::PathFileAccess);
  EXPECT_NO_THROW(ws.Delete("RVLFiles", true));
  EXPECT_TRUE(fs::is_directory(ws.PathOf("RVLFiles")));

  Put(ws, "RVLFiles/Μελέτη 1.sht", "older and longer");
  ws.Copy("RVLFiles/Μελέτη.sht", "RVLFiles/Μελέτη 1.sht");
  EXPECT_EQ(Get(ws, "RVLFiles/Μελέτη 1.sht"), "study");
  EXPECT_EQ(FaultOf([&] { ws.Copy("NONE.TMP", "DUMMY.TMP"); }, "NONE.TMP"),
            FaultCode::FileNotFound);
  EXPECT_EQ(FaultOf([&] { ws.Copy("LOOPS.TMP", "NoFolder/x.sht"); }, "NoFolder/x.sht"),
            FaultCode::PathNotFound);
  EXPECT_NO_THROW(ws.Copy("NONE.TMP", "DUMMY.TMP", true));
  EXPECT_FALSE(Has("DUMMY.TMP"));

  ws.Rename("LOOPS.TMP", "Σώματα.ths");
  EXPECT_FALSE(Has("LOOPS.TMP"));
  EXPECT_EQ(Get(ws, "Σώματα.ths"), std::string(298, ' '));
  // The old run-time's rename never replaced a file.
  Put(ws, "a.th_", "old");
  EXPECT_EQ(FaultOf([&] { ws.Rename("Σώματα.ths", "a.th_"); }, "a.th_"), FaultCode::PathFileAccess);
  EXPECT_NO_THROW(ws.Rename("Σώματα.ths", "a.th_", true));
  EXPECT_EQ(Get(ws, "a.th_"), "old");
  EXPECT_EQ(FaultOf([&] { ws.Rename("NONE.TMP", "X.TMP"); }, "NONE.TMP"), FaultCode::FileNotFound);
}

TEST_F(WorkspaceFiles, ARewriteGoesThroughASecondFileAndAFailureLeavesTheOld) {
  fs::path seen;
  ws.Rewrite("SHEETS.TMP", [&](const fs::path& second) {
    seen = second;
    EXPECT_EQ(second.parent_path(), ws.Folder());
    WriteAllBytes(second, "new");
  });
  EXPECT_EQ(Get(ws, "SHEETS.TMP"), "new");
  EXPECT_FALSE(fs::exists(seen));
  ws.Rewrite("RVLFiles/new.lps", [](const fs::path& second) { WriteAllBytes(second, "lps"); });
  EXPECT_EQ(Get(ws, "RVLFiles/new.lps"), "lps");
  EXPECT_THROW(ws.Rewrite("SHEETS.TMP",
                          [&](const fs::path& second) {
                            WriteAllBytes(second, "half");
                            throw RuntimeFault(FaultCode::DiskFull, "SHEETS.TMP");
                          }),
               RuntimeFault);
  EXPECT_THROW(ws.Rewrite("SHEETS.TMP", [](const fs::path&) { throw std::logic_error("x"); }),
               std::logic_error);
  EXPECT_EQ(Get(ws, "SHEETS.TMP"), "new");
  EXPECT_FALSE(fs::exists(seen));
}

TEST_F(WorkspaceFiles, ListFilesWithoutRegardToCaseInFileListOrder) {
  for (const char* name : {"b.ths", "A.THS", "a.ths", "c.Ths", "d.txt", "Σώμα.ths", "άλφα.THS",
                           "x.thsx", "ths", "GMI/0001.ZTB", "GMI/ς.rvo", "GMI/ό.rvo"})
    Put(ws, name, "");
  fs::create_directory(ws.PathOf("folder.ths"));
  EXPECT_EQ(ws.ListFiles("", "*.ths"),
            (Names{"A.THS", "a.ths", "b.ths", "c.Ths", "άλφα.THS", "Σώμα.ths"}));
  EXPECT_EQ(ws.ListFiles("", "ΆΛΦΑ.*"), Names{"άλφα.THS"});
  EXPECT_EQ(ws.ListFiles("NoFolder", "*"), Names{});
  const std::pair<const char*, Names> patterns[] = {
      {"????.ztb", {"0001.ZTB"}}, {"???.ztb", {}}, {"*.zt", {}},
      {"Σ.RVO", {"ς.rvo"}},       {"Ο.rvo", {}},   {"Ό.rvo", {"ό.rvo"}},
      {"0*0*B", {"0001.ZTB"}},    {"0*B*0", {}},   {"?.rvo", {"ό.rvo", "ς.rvo"}}};
  for (const auto& [pattern, names] : patterns) EXPECT_EQ(ws.ListFiles("GMI", pattern), names);
}

TEST_F(WorkspaceFiles, KillRavoTemporariesDeletesExactlyTheWorkingFiles) {
  for (const std::string& name : WorkingFileNames()) Put(ws, name, "w");
  const Names others = {"RavoPipes.txt",       "a.th_",       "RESTBRA.TMP", "SHEETS.TMP.bak",
                        "RVLFiles/SHEETS.TMP", "GMI/EDGE.TMP"};
  for (const std::string& name : others) Put(ws, name, "keep");
  KillRavoTemporaries(ws);
  for (const std::string& name : WorkingFileNames()) EXPECT_FALSE(Has(name)) << name;
  for (const std::string& name : others) EXPECT_EQ(Get(ws, name), "keep") << name;
}

// A bare extension loses its first letter: the old routine replaced the first two characters.
TEST_F(WorkspaceFiles, RenameFilesToJpgAndBackStoppingSilentlyAtAClash) {
  const std::pair<const char*, const char*> patterns[] = {
      {".rvo", "*.rvo"}, {"*.rvo", "*.rvo"}, {"rvo", "*.vo"}, {"*rvo", "*.vo"}, {"", "*."}};
  for (const auto& [extension, pattern] : patterns) EXPECT_EQ(ExtensionPattern(extension), pattern);
  for (const char* name : {"GMI/Λεβητοστάσιο.rvo", "GMI/b.RVO", "GMI/c.txt", "x.rvo"})
    Put(ws, name, name);
  RenameFiles(ws, "rvo", ".jpg");
  EXPECT_EQ(ws.ListFiles("GMI", "*.jpg"), Names{});
  RenameFiles(ws, ".rvo", ".jpg");
  EXPECT_EQ(ws.ListFiles("GMI", "*"), (Names{"b.jpg", "c.txt", "Λεβητοστάσιο.jpg"}));
  EXPECT_EQ(Get(ws, "GMI/Λεβητοστάσιο.jpg"), "GMI/Λεβητοστάσιο.rvo");
  EXPECT_TRUE(Has("x.rvo"));
  Put(ws, "GMI/a.jpg", "");
  Put(ws, "GMI/a.rvo", "already");
  RenameFiles(ws, "*.jpg", "*.rvo");
  EXPECT_EQ(ws.ListFiles("GMI", "*"),
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
  ws.Pause();
  ws.WaitSeconds(0.5);
  ws.Delete("SHEETS.TMP");
  EXPECT_EQ(pumped, 0);
  ws.SetPauseMilliseconds(30);
  auto start = std::chrono::steady_clock::now();
  ws.Delete("LOOPS.TMP");
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
  EXPECT_GE(pumped, 1);
  EXPECT_TRUE(inPause);
  EXPECT_FALSE(Workspace::InPause());
  // The system's waits scale like the pause: at 100 ms a second is a second.
  ws.SetPauseMilliseconds(100);
  start = std::chrono::steady_clock::now();
  ws.WaitSeconds(0.02);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(20));
  // A pause inside a pause keeps the flag.
  ws.SetPauseMilliseconds(20);
  int depth = 0;
  bool stillInPause = false;
  Workspace::SetEventPump([&] {
    if (depth++ > 0) return;
    ws.Pause();
    stillInPause = Workspace::InPause();
  });
  ws.Pause();
  EXPECT_TRUE(stillInPause);
  EXPECT_FALSE(Workspace::InPause());
}

// ---- The journal of a command -------------------------------------------------------------

TEST_F(WorkspaceFiles, ARollbackPutsEveryFileBackAsItFirstWasACommitKeeps) {
  const auto before = Snapshot();
  ws.BeginCommand();
  for (const char* text : {"one", "two"})
    ws.Rewrite("SHEETS.TMP", [&](const fs::path& second) { WriteAllBytes(second, text); });
  ws.Copy("SHEETS.TMP", "LOOPS.TMP");
  ws.Copy("RVLFiles/Μελέτη.sht", "DUMMY.TMP");
  ws.Rename("RVLFiles/Μελέτη.sht", "TMP.@@@");
  ws.Rename("TMP.@@@", "RVLFiles/Μελέτη.sht.old");
  ws.Delete("SHEETS.TMP");
  // A record file reports before it writes.
  ws.BeforeModify(ws.PathOf("NEWFILE"));
  WriteAllBytes(ws.PathOf("NEWFILE"), "made");
  ASSERT_NE(Snapshot(), before);
  ws.RollbackCommand();
  EXPECT_EQ(Snapshot(), before);
  // A commit keeps, and outside a command nothing is kept.
  ws.BeginCommand();
  ws.Copy("RVLFiles/Μελέτη.sht", "SHEETS.TMP");
  ws.CommitCommand();
  ws.RollbackCommand();  // nothing open: nothing to undo
  ws.Copy("RVLFiles/Μελέτη.sht", "LOOPS.TMP");
  ws.RollbackCommand();
  EXPECT_EQ(Get(ws, "SHEETS.TMP"), "study");
  EXPECT_EQ(Get(ws, "LOOPS.TMP"), "study");
}

TEST_F(WorkspaceFiles, NestedCommandsUndoTheirOwnAndHandTheRestOutward) {
  const auto before = Snapshot();
  ws.BeginCommand();
  ws.Copy("RVLFiles/Μελέτη.sht", "SHEETS.TMP");
  const auto afterOuter = Snapshot();
  ws.BeginCommand();
  ws.Copy("LOOPS.TMP", "SHEETS.TMP");
  ws.RollbackCommand();
  EXPECT_EQ(Snapshot(), afterOuter);
  // An inner commit hands its files to the outer frame, which keeps its own first state.
  ws.BeginCommand();
  ws.Rewrite("SHEETS.TMP", [](const fs::path& second) { WriteAllBytes(second, "inner"); });
  ws.Copy("SHEETS.TMP", "DUMMY.TMP");
  ws.Delete("LOOPS.TMP");
  ws.CommitCommand();
  EXPECT_EQ(Get(ws, "DUMMY.TMP"), "inner");
  ws.RollbackCommand();
  EXPECT_EQ(Snapshot(), before);
}

}  // namespace
