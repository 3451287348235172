// The file operations of the program folder, the working files and the pictures' extensions.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
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
  WorkspaceFiles() { ws_.SetPauseMilliseconds(0); }
  ~WorkspaceFiles() override { Workspace::SetEventPump({}); }

  bool Has(const std::string& name) const { return fs::exists(ws_.PathOf(name)); }

  TempFolder temp_;
  Workspace ws_{temp_.Path()};
};

// Runs `op` and gives the fault it threw (FaultCode::Internal with "none" when it threw none).
template <class Op>
RuntimeFault FaultOf(Op op) {
  try {
    op();
  } catch (const RuntimeFault& fault) {
    return fault;
  }
  return RuntimeFault(FaultCode::Internal, "none");
}

TEST_F(WorkspaceFiles, FileExistsAndSize) {
  Put(ws_, "FIVE.TMP", "12345");
  Put(ws_, "EMPTY.TMP", "");
  EXPECT_EQ(ws_.FileExists("FIVE.TMP"), -1);
  EXPECT_EQ(ws_.FileExists("NONE.TMP"), 0);
  EXPECT_EQ(ws_.FileExists("RVLFiles"), 0);
  EXPECT_EQ(ws_.FileExistsAndSize("FIVE.TMP"), (std::pair<int16_t, uint64_t>{-1, 5}));
  EXPECT_EQ(ws_.FileExistsAndSize("EMPTY.TMP"), (std::pair<int16_t, uint64_t>{-1, 0}));
  EXPECT_EQ(ws_.FileExistsAndSize("NONE.TMP"), (std::pair<int16_t, uint64_t>{0, 0}));
  EXPECT_EQ(ws_.FileExistsAndSize("NoFolder/NONE.TMP"), (std::pair<int16_t, uint64_t>{0, 0}));
}

TEST_F(WorkspaceFiles, DeleteRemovesAFileAndIgnoresAnAbsentOne) {
  Put(ws_, "DUMMY.TMP", "x");
  ws_.Delete("DUMMY.TMP", false);
  EXPECT_FALSE(Has("DUMMY.TMP"));
  EXPECT_NO_THROW(ws_.Delete("DUMMY.TMP", false));
  EXPECT_NO_THROW(ws_.Delete("DUMMY.TMP"));
}

TEST_F(WorkspaceFiles, DeleteOfAFolderFailsUnlessErrorsAreIgnored) {
  EXPECT_EQ(FaultOf([&] { ws_.Delete("RVLFiles", false); }).Code(), FaultCode::PathFileAccess);
  EXPECT_NO_THROW(ws_.Delete("RVLFiles", true));
  EXPECT_TRUE(fs::is_directory(ws_.PathOf("RVLFiles")));
}

TEST_F(WorkspaceFiles, CopyOverwritesTheTarget) {
  Put(ws_, "SHEETS.TMP", "sheets");
  Put(ws_, "RVLFiles/Μελέτη 1.sht", "older and longer");
  ws_.Copy("SHEETS.TMP", "RVLFiles/Μελέτη 1.sht");
  EXPECT_EQ(Get(ws_, "RVLFiles/Μελέτη 1.sht"), "sheets");
  EXPECT_EQ(Get(ws_, "SHEETS.TMP"), "sheets");
}

TEST_F(WorkspaceFiles, CopyFailures) {
  const RuntimeFault missing = FaultOf([&] { ws_.Copy("NONE.TMP", "DUMMY.TMP"); });
  EXPECT_EQ(missing.Code(), FaultCode::FileNotFound);
  EXPECT_NE(missing.Detail().find("NONE.TMP"), std::string::npos);
  EXPECT_FALSE(Has("DUMMY.TMP"));

  Put(ws_, "SHEETS.TMP", "sheets");
  const RuntimeFault noFolder = FaultOf([&] { ws_.Copy("SHEETS.TMP", "NoFolder/x.sht"); });
  EXPECT_EQ(noFolder.Code(), FaultCode::PathNotFound);
  EXPECT_NE(noFolder.Detail().find("NoFolder/x.sht"), std::string::npos);

  EXPECT_NO_THROW(ws_.Copy("NONE.TMP", "DUMMY.TMP", true));
  EXPECT_NO_THROW(ws_.Copy("SHEETS.TMP", "NoFolder/x.sht", true));
  EXPECT_FALSE(Has("DUMMY.TMP"));
}

TEST_F(WorkspaceFiles, RenameMovesAFile) {
  Put(ws_, "TMP.@@@", "new");
  ws_.Rename("TMP.@@@", "Σώματα.ths");
  EXPECT_FALSE(Has("TMP.@@@"));
  EXPECT_EQ(Get(ws_, "Σώματα.ths"), "new");
}

TEST_F(WorkspaceFiles, RenameNeverReplacesAFile) {
  Put(ws_, "a.ths", "a");
  Put(ws_, "a.th_", "old");
  const RuntimeFault taken = FaultOf([&] { ws_.Rename("a.ths", "a.th_"); });
  EXPECT_EQ(taken.Code(), FaultCode::PathFileAccess);
  EXPECT_NE(taken.Detail().find("a.th_"), std::string::npos);
  EXPECT_EQ(Get(ws_, "a.ths"), "a");
  EXPECT_EQ(Get(ws_, "a.th_"), "old");
  EXPECT_NO_THROW(ws_.Rename("a.ths", "a.th_", true));
  EXPECT_EQ(Get(ws_, "a.th_"), "old");
}

TEST_F(WorkspaceFiles, RenameOfAMissingFile) {
  const RuntimeFault missing = FaultOf([&] { ws_.Rename("NONE.TMP", "X.TMP"); });
  EXPECT_EQ(missing.Code(), FaultCode::FileNotFound);
  EXPECT_NE(missing.Detail().find("NONE.TMP"), std::string::npos);
  EXPECT_NO_THROW(ws_.Rename("NONE.TMP", "X.TMP", true));
  EXPECT_FALSE(Has("X.TMP"));
}

TEST_F(WorkspaceFiles, RewriteReplacesTheFileThroughASecondOne) {
  Put(ws_, "SHEETS.TMP", "old content");
  fs::path seen;
  ws_.Rewrite("SHEETS.TMP", [&](const fs::path& second) {
    seen = second;
    EXPECT_EQ(second.parent_path(), ws_.Folder());
    EXPECT_NE(second, ws_.PathOf("SHEETS.TMP"));
    WriteAllBytes(second, "new");
  });
  EXPECT_EQ(Get(ws_, "SHEETS.TMP"), "new");
  EXPECT_FALSE(fs::exists(seen));
}

TEST_F(WorkspaceFiles, RewriteMakesAMissingFileAndAnEmptyOne) {
  ws_.Rewrite("RVLFiles/new.lps", [](const fs::path& second) { WriteAllBytes(second, "lps"); });
  EXPECT_EQ(Get(ws_, "RVLFiles/new.lps"), "lps");
  Put(ws_, "LOOPS.TMP", "loops");
  ws_.Rewrite("LOOPS.TMP", [](const fs::path&) {});
  EXPECT_EQ(ws_.FileExistsAndSize("LOOPS.TMP"), (std::pair<int16_t, uint64_t>{-1, 0}));
}

TEST_F(WorkspaceFiles, AWriterThatFailsLeavesTheFileAsItWas) {
  Put(ws_, "SHEETS.TMP", "old content");
  fs::path seen;
  EXPECT_THROW(ws_.Rewrite("SHEETS.TMP",
                           [&](const fs::path& second) {
                             seen = second;
                             WriteAllBytes(second, "half");
                             throw RuntimeFault(FaultCode::DiskFull, "SHEETS.TMP");
                           }),
               RuntimeFault);
  EXPECT_EQ(Get(ws_, "SHEETS.TMP"), "old content");
  EXPECT_FALSE(fs::exists(seen));
  EXPECT_THROW(ws_.Rewrite("SHEETS.TMP", [](const fs::path&) { throw std::logic_error("x"); }),
               std::logic_error);
  EXPECT_EQ(Get(ws_, "SHEETS.TMP"), "old content");
}

TEST_F(WorkspaceFiles, ListFilesWithoutRegardToCaseInFileListOrder) {
  for (const char* name :
       {"b.ths", "A.THS", "a.ths", "c.Ths", "d.txt", "Σώμα.ths", "άλφα.THS", "x.thsx", "ths"}) {
    Put(ws_, name, "");
  }
  fs::create_directory(ws_.PathOf("folder.ths"));
  EXPECT_EQ(ws_.ListFiles("", "*.ths"),
            (Names{"A.THS", "a.ths", "b.ths", "c.Ths", "άλφα.THS", "Σώμα.ths"}));
  EXPECT_EQ(ws_.ListFiles("", "*.TXT"), Names{"d.txt"});
  EXPECT_EQ(ws_.ListFiles("", "ΆΛΦΑ.*"), Names{"άλφα.THS"});
  EXPECT_EQ(ws_.ListFiles("", "σώμα.ths"), Names{"Σώμα.ths"});
  EXPECT_EQ(ws_.ListFiles("NoFolder", "*"), Names{});
}

struct GlobCase {
  const char* Name;
  const char* Pattern;
  bool Matches;
};

class ListFilesPattern : public ::testing::TestWithParam<GlobCase> {};

TEST_P(ListFilesPattern, MatchesOrNot) {
  TempFolder temp;
  Workspace ws(temp.Path());
  Put(ws, "GMI/" + std::string(GetParam().Name), "");
  EXPECT_EQ(ws.ListFiles("GMI", GetParam().Pattern).size(), GetParam().Matches ? 1u : 0u)
      << GetParam().Name << " ~ " << GetParam().Pattern;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ListFilesPattern,
    ::testing::Values(GlobCase{"0001.ztb", "*.ztb", true}, GlobCase{"0001.ZTB", "*.ztb", true},
                      GlobCase{"0001.ztb", "????.ztb", true},
                      GlobCase{"00001.ztb", "????.ztb", false}, GlobCase{"0001.ztb", "*.zt", false},
                      GlobCase{"0001.ztb", "*", true}, GlobCase{"a.b.c", "*.c", true},
                      GlobCase{"a.b.c", "*.b", false},
                      GlobCase{"Ravos_010i.xls", "ravos_*i.XLS", true},
                      GlobCase{"ς.rvo", "Σ.RVO", true}, GlobCase{"ΐ.rvo", "?.rvo", true},
                      GlobCase{"ό.rvo", "Ο.rvo", false}, GlobCase{"ό.rvo", "Ό.rvo", true},
                      GlobCase{"abc", "a*b*c", true}, GlobCase{"abc", "a*c*b", false}));

TEST(WorkingFiles, TheTableInItsOrder) {
  const Names expected = {"SHEETS.TMP",
                          "LOOPS.TMP",
                          "RAVOFLOORS.TMP",
                          "ThisSomataFile.tmp",
                          "Studies.std",
                          "DUMMY.TMP",
                          "EDGE_DOUBLEFLOORS.TMP",
                          "INTER_DOUBLEFLOORS.TMP",
                          "EDGE_FINALFLOORS.TMP",
                          "INTER_FINALFLOORS.TMP",
                          "EDGE_SHEETSNODES.TMP",
                          "INTER_SHEETSNODES.TMP",
                          "RECNOFFF.TXT",
                          "LEVEL_SHEETS.TXT",
                          "LEVELSHEETS_TECH.TXT",
                          "TMP.TMP",
                          "DATARES.TMP",
                          "SOMATA.@@@",
                          "SOMATA.TMP",
                          "STATIST.TMP",
                          "SectionsFlows.txt",
                          "LIQUID.TMP",
                          "EDGE.TMP"};
  EXPECT_EQ(WorkingFileNames(), expected);
}

TEST_F(WorkspaceFiles, KillRavoTemporariesDeletesExactlyTheWorkingFiles) {
  for (const std::string& name : WorkingFileNames()) Put(ws_, name, "w");
  const Names others = {"RavoPipes.txt",       "Σώματα.ths",   "a.th_",
                        "RESTBRA.TMP",         "ERRORS.TMP",   "SHEETS.TMP.bak",
                        "RVLFiles/SHEETS.TMP", "GMI/EDGE.TMP", "0001.ztb"};
  for (const std::string& name : others) Put(ws_, name, "keep");
  KillRavoTemporaries(ws_);
  for (const std::string& name : WorkingFileNames()) EXPECT_FALSE(Has(name)) << name;
  for (const std::string& name : others) EXPECT_EQ(Get(ws_, name), "keep") << name;
}

TEST_F(WorkspaceFiles, KillRavoTemporariesWithOnlySomeFiles) {
  Put(ws_, "LOOPS.TMP", "w");
  Put(ws_, "EDGE.TMP", "w");
  KillRavoTemporaries(ws_);
  EXPECT_FALSE(Has("LOOPS.TMP"));
  EXPECT_FALSE(Has("EDGE.TMP"));
}

struct PatternCase {
  const char* Extension;
  const char* Pattern;
};

class ExtensionPatterns : public ::testing::TestWithParam<PatternCase> {};

TEST_P(ExtensionPatterns, Normalise) {
  EXPECT_EQ(ExtensionPattern(GetParam().Extension), GetParam().Pattern);
}

// A bare extension loses its first letter: the old routine replaced the first two characters.
INSTANTIATE_TEST_SUITE_P(Cases, ExtensionPatterns,
                         ::testing::Values(PatternCase{".rvo", "*.rvo"},
                                           PatternCase{"*.rvo", "*.rvo"},
                                           PatternCase{"rvo", "*.vo"}, PatternCase{"*rvo", "*.vo"},
                                           PatternCase{".JPG", "*.JPG"}, PatternCase{"", "*."},
                                           PatternCase{"*", "*."}));

TEST_F(WorkspaceFiles, RenameFilesToJpgAndBack) {
  for (const char* name : {"GMI/Λεβητοστάσιο.rvo", "GMI/b.RVO", "GMI/c.txt", "x.rvo"}) {
    Put(ws_, name, name);
  }
  RenameFiles(ws_, ".rvo", ".jpg");
  EXPECT_EQ(ws_.ListFiles("GMI", "*"), (Names{"b.jpg", "c.txt", "Λεβητοστάσιο.jpg"}));
  EXPECT_EQ(Get(ws_, "GMI/Λεβητοστάσιο.jpg"), "GMI/Λεβητοστάσιο.rvo");
  EXPECT_TRUE(Has("x.rvo"));
  RenameFiles(ws_, "*.jpg", "*.rvo");
  EXPECT_EQ(ws_.ListFiles("GMI", "*"), (Names{"b.rvo", "c.txt", "Λεβητοστάσιο.rvo"}));
  EXPECT_EQ(Get(ws_, "GMI/b.rvo"), "GMI/b.RVO");
}

TEST_F(WorkspaceFiles, RenameFilesWithABareExtensionMissesThePictures) {
  Put(ws_, "GMI/a.rvo", "");
  RenameFiles(ws_, "rvo", ".jpg");
  EXPECT_EQ(ws_.ListFiles("GMI", "*"), Names{"a.rvo"});
}

TEST_F(WorkspaceFiles, RenameFilesStopsSilentlyAtAClash) {
  for (const char* name : {"GMI/a.rvo", "GMI/b.rvo", "GMI/c.rvo"}) Put(ws_, name, name);
  Put(ws_, "GMI/b.jpg", "already");
  EXPECT_NO_THROW(RenameFiles(ws_, ".rvo", ".jpg"));
  EXPECT_EQ(ws_.ListFiles("GMI", "*"), (Names{"a.jpg", "b.jpg", "b.rvo", "c.rvo"}));
  EXPECT_EQ(Get(ws_, "GMI/b.jpg"), "already");
}

struct BackslashCase {
  const char* Path;
  const char* Expected;
};

class WithBackslashCases : public ::testing::TestWithParam<BackslashCase> {};

TEST_P(WithBackslashCases, OneTrailingSeparator) {
  EXPECT_EQ(WithBackslash(GetParam().Path), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, WithBackslashCases,
                         ::testing::Values(BackslashCase{"", "/"}, BackslashCase{"a", "a/"},
                                           BackslashCase{"a/", "a/"},
                                           BackslashCase{"/x/Μελέτες", "/x/Μελέτες/"}));

TEST_F(WorkspaceFiles, APauseOfZeroNeitherWaitsNorPumps) {
  int pumped = 0;
  Workspace::SetEventPump([&] { ++pumped; });
  ws_.Pause();
  ws_.WaitSeconds(0.5);
  Put(ws_, "DUMMY.TMP", "x");
  ws_.Delete("DUMMY.TMP");
  EXPECT_EQ(pumped, 0);
  EXPECT_FALSE(Workspace::InPause());
}

TEST_F(WorkspaceFiles, APausePumpsEventsWhileItLasts) {
  int pumped = 0;
  bool inPause = true;
  Workspace::SetEventPump([&] {
    ++pumped;
    inPause = inPause && Workspace::InPause();
  });
  ws_.SetPauseMilliseconds(30);
  const auto start = std::chrono::steady_clock::now();
  ws_.Pause();
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
  EXPECT_GE(pumped, 1);
  EXPECT_TRUE(inPause);
  EXPECT_FALSE(Workspace::InPause());

  pumped = 0;
  Put(ws_, "DUMMY.TMP", "x");
  ws_.Delete("DUMMY.TMP");
  EXPECT_GE(pumped, 1);
}

TEST_F(WorkspaceFiles, WaitSecondsIsScaledLikeThePause) {
  int pumped = 0;
  Workspace::SetEventPump([&] { ++pumped; });
  ws_.SetPauseMilliseconds(100);
  const auto start = std::chrono::steady_clock::now();
  ws_.WaitSeconds(0.02);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(20));
  EXPECT_GE(pumped, 1);
}

TEST_F(WorkspaceFiles, APauseInsideAPauseKeepsTheFlag) {
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

}  // namespace
