// The journal of a command: what a failed command changed is put back byte for byte.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "Workspace.h"
#include "WorkspaceTestSupport.h"

namespace fs = std::filesystem;

namespace {

class Journal : public ::testing::Test {
 protected:
  Journal() {
    ws_.SetPauseMilliseconds(0);
    // Bytes a text reader would stumble on: zeros, a lone CR, cp1253 high bytes.
    Put(ws_, "SHEETS.TMP", std::string("s\0h\re\xE5\xF4s", 8));
    Put(ws_, "LOOPS.TMP", std::string(298, '\x20'));
    Put(ws_, "RVLFiles/Μελέτη.sht", "study");
  }

  // Every file of the folder, with its bytes.
  std::map<std::string, std::string> Snapshot() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(ws_.Folder())) {
      if (entry.is_regular_file()) {
        const std::u8string name = fs::relative(entry.path(), ws_.Folder()).u8string();
        files[std::string(name.begin(), name.end())] = ReadAllBytes(entry.path());
      }
    }
    return files;
  }

  std::optional<std::string> Bytes(const std::string& name) const {
    if (!fs::exists(ws_.PathOf(name))) return std::nullopt;
    return Get(ws_, name);
  }

  // A command's changes: two files rewritten in different ways, one made.
  void ChangeThreeFiles() {
    ws_.Rewrite("SHEETS.TMP", [](const fs::path& second) { WriteAllBytes(second, "new"); });
    ws_.Copy("SHEETS.TMP", "LOOPS.TMP");
    Put(ws_, "ignored", "");  // written behind the journal's back: not the journal's to undo
    fs::remove(ws_.PathOf("ignored"));
    ws_.Copy("RVLFiles/Μελέτη.sht", "DUMMY.TMP");
  }

  TempFolder temp_;
  Workspace ws_{temp_.Path()};
};

TEST_F(Journal, ARollbackPutsEveryFileBack) {
  const auto before = Snapshot();
  ws_.BeginCommand();
  ChangeThreeFiles();
  ASSERT_NE(Snapshot(), before);
  ws_.RollbackCommand();
  EXPECT_EQ(Snapshot(), before);
}

TEST_F(Journal, ACommitKeepsTheChanges) {
  ws_.BeginCommand();
  ChangeThreeFiles();
  const auto after = Snapshot();
  ws_.CommitCommand();
  EXPECT_EQ(Snapshot(), after);
  ws_.RollbackCommand();  // nothing open: nothing to undo
  EXPECT_EQ(Snapshot(), after);
}

TEST_F(Journal, DeletesAndRenamesComeBack) {
  const auto before = Snapshot();
  ws_.BeginCommand();
  ws_.Delete("SHEETS.TMP");
  ws_.Rename("LOOPS.TMP", "RVLFiles/x.lps");
  ws_.Rename("RVLFiles/Μελέτη.sht", "TMP.@@@");
  ws_.Rename("TMP.@@@", "RVLFiles/Μελέτη.sht.old");
  ws_.RollbackCommand();
  EXPECT_EQ(Snapshot(), before);
}

TEST_F(Journal, TheFirstStateOfAFileIsTheOneKept) {
  const auto before = Snapshot();
  ws_.BeginCommand();
  for (const char* text : {"one", "two", "three"}) {
    ws_.Rewrite("SHEETS.TMP", [&](const fs::path& second) { WriteAllBytes(second, text); });
  }
  ws_.Delete("SHEETS.TMP");
  ws_.RollbackCommand();
  EXPECT_EQ(Snapshot(), before);
}

TEST_F(Journal, RecordFilesReportBeforeTheyWrite) {
  const auto before = Snapshot();
  ws_.BeginCommand();
  ws_.BeforeModify(ws_.PathOf("LOOPS.TMP"));
  WriteAllBytes(ws_.PathOf("LOOPS.TMP"), "overwritten");
  ws_.BeforeModify(ws_.PathOf("NEWFILE"));
  WriteAllBytes(ws_.PathOf("NEWFILE"), "made");
  ws_.RollbackCommand();
  EXPECT_EQ(Snapshot(), before);
}

TEST_F(Journal, OutsideACommandNothingIsKept) {
  ws_.Rewrite("SHEETS.TMP", [](const fs::path& second) { WriteAllBytes(second, "new"); });
  ws_.RollbackCommand();
  EXPECT_EQ(Bytes("SHEETS.TMP"), "new");
}

TEST_F(Journal, AnInnerRollbackKeepsTheOuterChanges) {
  ws_.BeginCommand();
  ws_.Copy("RVLFiles/Μελέτη.sht", "SHEETS.TMP");
  const auto afterOuter = Snapshot();
  ws_.BeginCommand();
  ws_.Rewrite("SHEETS.TMP", [](const fs::path& second) { WriteAllBytes(second, "inner"); });
  ws_.Copy("SHEETS.TMP", "DUMMY.TMP");
  ws_.RollbackCommand();
  EXPECT_EQ(Snapshot(), afterOuter);
  ws_.CommitCommand();
  EXPECT_EQ(Bytes("SHEETS.TMP"), "study");
}

TEST_F(Journal, AnInnerCommitThenAnOuterRollbackRestoresAll) {
  const auto before = Snapshot();
  ws_.BeginCommand();
  ws_.Copy("RVLFiles/Μελέτη.sht", "SHEETS.TMP");
  ws_.BeginCommand();
  ws_.Rewrite("SHEETS.TMP", [](const fs::path& second) { WriteAllBytes(second, "inner"); });
  ws_.Copy("SHEETS.TMP", "DUMMY.TMP");
  ws_.Delete("LOOPS.TMP");
  ws_.CommitCommand();
  EXPECT_EQ(Bytes("DUMMY.TMP"), "inner");
  ws_.RollbackCommand();
  EXPECT_EQ(Snapshot(), before);
}

TEST_F(Journal, ARollbackGoesOnPastAFileThatResists) {
  const auto before = Snapshot();
  ws_.BeginCommand();
  ws_.Copy("SHEETS.TMP", "DUMMY.TMP");
  ws_.Rewrite("LOOPS.TMP", [](const fs::path& second) { WriteAllBytes(second, "x"); });
  // DUMMY.TMP was absent and is now a folder that a file delete cannot take away.
  fs::remove(ws_.PathOf("DUMMY.TMP"));
  fs::create_directories(ws_.PathOf("DUMMY.TMP/inner"));
  EXPECT_NO_THROW(ws_.RollbackCommand());
  EXPECT_EQ(Bytes("LOOPS.TMP"), before.at("LOOPS.TMP"));
}

}  // namespace
