// The batch run on a bad day: a temporary folder with no room, a program folder that cannot be
// written. It ends with status 2 and a Greek message, or does its work, and never aborts.
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/mount.h>

#include <cstdlib>
#include <sstream>

#include "BoundByPermissions.h"
#include "Program.h"
#include "Recalculate.h"
#include "SmallDisk.h"
#include "StudyMaker.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::string> NamesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  return names;
}

TEST(BatchFaultsTest, AFullTemporaryFolderEndsWithAMessageAndLeavesNothingThere) {
  TempFolder home, temporary;
  WriteStartFiles(home.Path());
  Workspace ws(home.Path());
  ws.SetPauseMilliseconds(0);
  const auto study = MakeStudyOfCopies(ws, "Μ", 1, {"1000"}, "II/905");
  if (!MountSmallDisk(temporary.Path(), "size=16k")) GTEST_SKIP() << kNoSmallDisk;
  FillDisk(temporary.Path());
  const char* old = std::getenv("TMPDIR");
  const std::string kept = old ? old : "";
  ::setenv("TMPDIR", temporary.Path().c_str(), 1);
  Options options;
  options.Recalculate = study.string();
  std::ostringstream out, err;
  const int status = Recalculate(options, ws, out, err);
  old ? ::setenv("TMPDIR", kept.c_str(), 1) : ::unsetenv("TMPDIR");
  const std::vector<std::string> left = NamesIn(temporary.Path());
  ::umount(temporary.Path().c_str());
  EXPECT_EQ(status, 2);
  EXPECT_NE(err.str().find("ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ"), std::string::npos) << err.str();
  EXPECT_EQ(left, std::vector<std::string>{"filler"});
}

TEST(BatchFaultsTest, ARecalculationThatWritesNothingWorksInAReadOnlyProgramFolder) {
  TempFolder home;
  if (!MountSmallDisk(home.Path(), "size=1m")) GTEST_SKIP() << kNoSmallDisk;
  fs::path study;
  {
    WriteStartFiles(home.Path());
    Workspace ws(home.Path());
    ws.SetPauseMilliseconds(0);
    study = MakeStudyOfCopies(ws, "Μ", 2, {"1000", "800"}, "II/905");
  }
  ASSERT_EQ(::mount("tmpfs", home.Path().c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, "size=1m"), 0);
  Options options;
  options.Home = home.Path().string();
  options.Recalculate = study.string();
  ScriptedPrompter prompter;
  const auto ws = OpenProgramFolder(options, "ravolinette", prompter);
  std::ostringstream out, err;
  const int status = ws ? Recalculate(options, *ws, out, err) : -1;
  ::umount(home.Path().c_str());
  EXPECT_TRUE(prompter.History().empty());
  EXPECT_EQ(status, 0) << err.str();
  EXPECT_NE(out.str().find("ΦΥΛΛΟ\t2"), std::string::npos);
}

// What the engineer may not read is reported as such, by name, never as "not found"; the
// temporary folder goes with the run.
TEST(BatchFaultsTest, WhatCannotBeReadIsNamedAndNotCalledMissing) {
  const struct {
    std::string locked;  // from the program folder; empty for the folder itself
    fs::perms perms;
    std::string named;
  } cases[] = {
      {"~Basic.dl", fs::perms::none, "~Basic.dl"},
      {kSectionFamilyFile, fs::perms::none, kSectionFamilyFile},
      {"RavoPipes.txt", fs::perms::none, "RavoPipes.txt"},
      {"RVLFiles", fs::perms::none, "Μ.sht"},
      {"", fs::perms::owner_write | fs::perms::owner_exec | fs::perms::group_write |
               fs::perms::group_exec | fs::perms::others_write | fs::perms::others_exec,
       "Φάκελος"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.locked);
    TempFolder home, temporary;
    WriteStartFiles(home.Path());
    fs::path study;
    {
      Workspace ws(home.Path());
      ws.SetPauseMilliseconds(0);
      study = MakeStudyOfCopies(ws, "Μ", 1, {"1000"}, "II/905");
    }
    for (const fs::path& folder : {home.Path(), temporary.Path()})
      for (const auto& entry : fs::recursive_directory_iterator(folder))
        fs::permissions(entry.path(), fs::perms::all);
    fs::permissions(home.Path(), fs::perms::all);
    fs::permissions(temporary.Path(), fs::perms::all);
    fs::permissions(home / c.locked, c.perms);
    const ChildRun run = RunBoundByPermissions([&](std::ostream& report) {
      ::setenv("TMPDIR", temporary.Path().c_str(), 1);
      Workspace ws(home.Path());
      ws.SetPauseMilliseconds(0);
      Options options;
      options.Recalculate = study.string();
      std::ostringstream out;
      const int status = Recalculate(options, ws, out, report);
      return status;
    });
    fs::permissions(home.Path(), fs::perms::all);
    fs::permissions(home / c.locked, fs::perms::all);
    EXPECT_EQ(run.status, 2) << run.output;
    EXPECT_NE(run.output.find("Δεν επιτρέπεται η πρόσβαση"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find(c.named), std::string::npos) << run.output;
    EXPECT_EQ(run.output.find("δεν βρέθηκε"), std::string::npos) << run.output;
    EXPECT_EQ(NamesIn(temporary.Path()), std::vector<std::string>{});
  }
}

}  // namespace
