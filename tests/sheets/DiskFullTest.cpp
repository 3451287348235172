// A program folder on a small disk of its own that fills up in the middle of a command: the
// command is undone without needing room of its own, and the message says so truly.
#include <gtest/gtest.h>
#include <sys/mount.h>

#include "MainScreen.h"
#include "SmallDisk.h"

namespace {

class DiskFullTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!MountSmallDisk(disk.Path(), "size=256k")) GTEST_SKIP() << kNoSmallDisk;
    mounted = true;
  }
  void TearDown() override {
    screen.reset();
    if (mounted) ::umount(disk.Path().c_str());
  }
  TempFolder disk;
  bool mounted = false;
  std::unique_ptr<MainScreen> screen;
};

TEST_F(DiskFullTest, ASheetAddedOnAFullDiskIsUndoneInTheFilesOwnRoom) {
  screen = std::make_unique<MainScreen>(disk.Path());
  MainScreen& s = *screen;
  s.WriteSectionFamily();
  s.Load();
  s.TypeHeader();
  s.Radiator(1, "1", "900");
  s.Key(KeyCode::F10);
  s.Key(KeyCode::PageDown);
  s.Radiator(1, "1", "700");
  s.Key(KeyCode::F10);
  const std::string sheets = ReadAllBytes(disk / "SHEETS.TMP");
  const std::string loops = ReadAllBytes(disk / "LOOPS.TMP");
  FillDisk(disk.Path());
  s.prompter.Clear();
  EXPECT_FALSE(s.Run([&] { s.form->SaveTemporarData(); }));
  ASSERT_FALSE(s.prompter.History().empty());
  EXPECT_EQ(s.LastBox().Title, "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ...");
  EXPECT_EQ(s.LastBox().Lines.back(),
            "... Η εντολή διακόπηκε. Τα αρχεία εργασίας έμειναν όπως ήταν ...");
  for (const auto& [name, before] : {std::pair{"SHEETS.TMP", &sheets}, {"LOOPS.TMP", &loops}}) {
    const std::string after = ReadAllBytes(disk / name);
    EXPECT_TRUE(after == *before) << name << ": " << after.size() << " bytes, " << before->size()
                                  << " before";
  }
}

}  // namespace
