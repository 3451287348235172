// The program folder: where it is, what it holds when opened, and the shipped files it receives.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "RuntimeFault.h"
#include "Workspace.h"
#include "WorkspaceTestSupport.h"

namespace fs = std::filesystem;

namespace {

TEST(WorkspaceFolder, CreatesTheFolderWithItsSubfolders) {
  TempFolder temp;
  const Workspace ws(temp.Path() / "deep" / "home");
  EXPECT_TRUE(fs::is_directory(temp.Path() / "deep" / "home"));
  EXPECT_TRUE(fs::is_directory(temp.Path() / "deep" / "home" / "RVLFiles"));
  EXPECT_TRUE(fs::is_directory(temp.Path() / "deep" / "home" / "GMI"));
  EXPECT_EQ(ws.Folder(), temp.Path() / "deep" / "home");
  EXPECT_EQ(ws.PathOf("RVLFiles/x.sht"), temp.Path() / "deep" / "home" / "RVLFiles" / "x.sht");
}

TEST(WorkspaceFolder, KeepsWhatAnExistingFolderHolds) {
  TempFolder temp;
  WriteAllBytes(temp / "SHEETS.TMP", "abc");
  const Workspace ws(temp.Path());
  EXPECT_EQ(Get(ws, "SHEETS.TMP"), "abc");
}

TEST(WorkspaceFolder, AFolderThatCannotBeMadeThrows) {
  TempFolder temp;
  WriteAllBytes(temp / "plain", "x");
  for (const fs::path& folder : {temp.Path() / "plain", temp.Path() / "plain" / "home"}) {
    try {
      Workspace ws(folder);
      ADD_FAILURE() << "no fault for " << folder;
    } catch (const RuntimeFault& fault) {
      EXPECT_NE(fault.Detail().find("plain"), std::string::npos) << fault.Detail();
    }
  }
}

TEST(WorkspaceFolder, AReadOnlyFolderThrows) {
  if (geteuid() == 0) GTEST_SKIP() << "the superuser writes into read-only folders";
  TempFolder temp;
  const fs::path folder = temp.Path() / "ro";
  fs::create_directory(folder);
  chmod(folder.c_str(), 0555);
  EXPECT_THROW(Workspace ws(folder), RuntimeFault);
  chmod(folder.c_str(), 0755);
}

struct PauseCase {
  std::optional<std::string> Env;
  int Milliseconds;
};

class WorkspacePause : public ::testing::TestWithParam<PauseCase> {};

TEST_P(WorkspacePause, ComesFromTheEnvironment) {
  TempFolder temp;
  const ScopedEnv env("RAVOLINETTE_PAUSE_MS", GetParam().Env);
  const Workspace ws(temp.Path());
  EXPECT_EQ(ws.PauseMilliseconds(), GetParam().Milliseconds);
}

INSTANTIATE_TEST_SUITE_P(Cases, WorkspacePause,
                         ::testing::Values(PauseCase{std::nullopt, 100}, PauseCase{"0", 0},
                                           PauseCase{"25", 25}, PauseCase{"abc", 100},
                                           PauseCase{"-5", 100}, PauseCase{"12x", 100},
                                           PauseCase{"", 100}));

struct ResolveCase {
  const char* Name;
  std::optional<std::string> Home;  // --home
  std::optional<std::string> RavoHome;
  std::optional<std::string> XdgDataHome;
  std::string Expected;
};

class ResolveProgramFolder : public ::testing::TestWithParam<ResolveCase> {};

TEST_P(ResolveProgramFolder, FollowsTheOrderOfPlaces) {
  const ResolveCase& c = GetParam();
  const ScopedEnv user("HOME", "/home/eng");
  const ScopedEnv ravo("RAVOLINETTE_HOME", c.RavoHome);
  const ScopedEnv xdg("XDG_DATA_HOME", c.XdgDataHome);
  EXPECT_EQ(Workspace::ResolveProgramFolder(c.Home), fs::path(c.Expected));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ResolveProgramFolder,
    ::testing::Values(
        ResolveCase{"HomeOption", "/w/opt", "/w/env", "/w/xdg", "/w/opt"},
        ResolveCase{"EmptyHomeOption", "", "/w/env", "/w/xdg", "/w/env"},
        ResolveCase{"Environment", std::nullopt, "/w/env", "/w/xdg", "/w/env"},
        ResolveCase{"EmptyEnvironment", std::nullopt, "", "/w/xdg", "/w/xdg/ravolinette"},
        ResolveCase{"Xdg", std::nullopt, std::nullopt, "/w/xdg", "/w/xdg/ravolinette"},
        ResolveCase{"RelativeXdgIgnored", std::nullopt, std::nullopt, "rel/xdg",
                    "/home/eng/.local/share/ravolinette"},
        ResolveCase{"UserHome", std::nullopt, std::nullopt, std::nullopt,
                    "/home/eng/.local/share/ravolinette"},
        ResolveCase{"GreekHome", "/w/Μελέτες", std::nullopt, std::nullopt, "/w/Μελέτες"}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(InstalledDataFolder, BesideTheProgramOrFromTheEnvironment) {
  {
    const ScopedEnv data("RAVOLINETTE_DATA", std::nullopt);
    EXPECT_EQ(Workspace::InstalledDataFolder("/opt/ravo/bin/ravolinette"),
              fs::path("/opt/ravo/share/ravolinette"));
  }
  const ScopedEnv data("RAVOLINETTE_DATA", "/srv/data");
  EXPECT_EQ(Workspace::InstalledDataFolder("/opt/ravo/bin/ravolinette"), fs::path("/srv/data"));
}

// A data folder of shipped files beside a program folder.
class Seeding : public ::testing::Test {
 protected:
  Seeding() {
    fs::create_directory(data_);
    Ship("RavoPipes.txt", "pipes");
    Ship("0001.ztb", "library");
  }
  void Ship(const std::string& name, const std::string& bytes) {
    WriteAllBytes(data_ / fs::u8path(name), bytes);
  }
  std::vector<std::string> Seed() { return Workspace(home_).SeedFrom(data_); }
  std::vector<std::string> SeededList() {
    std::vector<std::string> names;
    std::string text = ReadAllBytes(home_ / ".seeded");
    for (std::size_t start = 0, end; (end = text.find('\n', start)) != std::string::npos;
         start = end + 1) {
      names.push_back(text.substr(start, end - start));
    }
    return names;
  }
  bool Has(const std::string& name) { return fs::exists(home_ / fs::u8path(name)); }

  TempFolder temp_;
  fs::path data_ = temp_.Path() / "share";
  fs::path home_ = temp_.Path() / "home";
};

using Names = std::vector<std::string>;

TEST_F(Seeding, TheFirstStartCopiesEveryShippedFile) {
  EXPECT_EQ(Seed(), (Names{"0001.ztb", "RavoPipes.txt"}));
  EXPECT_EQ(ReadAllBytes(home_ / "RavoPipes.txt"), "pipes");
  EXPECT_EQ(ReadAllBytes(home_ / "0001.ztb"), "library");
  EXPECT_EQ(SeededList(), (Names{"0001.ztb", "RavoPipes.txt"}));
  EXPECT_FALSE(Has(".seeded.@@@"));
}

TEST_F(Seeding, AFileTheEngineerDeletedDoesNotComeBack) {
  Seed();
  fs::remove(home_ / "RavoPipes.txt");
  EXPECT_EQ(Seed(), Names{});
  EXPECT_FALSE(Has("RavoPipes.txt"));
}

TEST_F(Seeding, AFileAlreadyThereIsNeverOverwritten) {
  fs::create_directory(home_);
  WriteAllBytes(home_ / "RavoPipes.txt", "mine");
  EXPECT_EQ(Seed(), Names{"0001.ztb"});
  EXPECT_EQ(ReadAllBytes(home_ / "RavoPipes.txt"), "mine");
  EXPECT_EQ(SeededList(), (Names{"0001.ztb", "RavoPipes.txt"}));
  fs::remove(home_ / "RavoPipes.txt");
  EXPECT_EQ(Seed(), Names{});
  EXPECT_FALSE(Has("RavoPipes.txt"));
}

TEST_F(Seeding, ANewShippedFileArrivesInAnOldFolder) {
  Seed();
  Ship("Material.mtr", "materials");
  WriteAllBytes(home_ / "0001.ztb", "changed by the engineer");
  EXPECT_EQ(Seed(), Names{"Material.mtr"});
  EXPECT_EQ(ReadAllBytes(home_ / "Material.mtr"), "materials");
  EXPECT_EQ(ReadAllBytes(home_ / "0001.ztb"), "changed by the engineer");
  EXPECT_EQ(SeededList(), (Names{"0001.ztb", "RavoPipes.txt", "Material.mtr"}));
}

TEST_F(Seeding, GreekNames) {
  Ship("Θερμαντικά Σώματα.ths", "family");
  EXPECT_EQ(Seed(), (Names{"0001.ztb", "RavoPipes.txt", "Θερμαντικά Σώματα.ths"}));
  EXPECT_EQ(ReadAllBytes(home_ / fs::u8path("Θερμαντικά Σώματα.ths")), "family");
  EXPECT_EQ(SeededList().back(), "Θερμαντικά Σώματα.ths");
  fs::remove(home_ / fs::u8path("Θερμαντικά Σώματα.ths"));
  EXPECT_EQ(Seed(), Names{});
  EXPECT_FALSE(Has("Θερμαντικά Σώματα.ths"));
}

TEST_F(Seeding, OnlyTheFilesOfTheDataFolderItself) {
  fs::create_directory(data_ / "XLFiles");
  WriteAllBytes(data_ / "XLFiles" / "inner.xls", "x");
  EXPECT_EQ(Seed(), (Names{"0001.ztb", "RavoPipes.txt"}));
  EXPECT_FALSE(Has("XLFiles/inner.xls"));
  EXPECT_FALSE(Has("inner.xls"));
}

TEST_F(Seeding, AMissingDataFolderSeedsNothing) {
  fs::remove_all(data_);
  EXPECT_EQ(Seed(), Names{});
  EXPECT_FALSE(Has(".seeded"));
}

TEST_F(Seeding, AListThatCannotBeWrittenThrows) {
  fs::create_directories(home_ / ".seeded.@@@");
  EXPECT_THROW(Seed(), RuntimeFault);
}

TEST_F(Seeding, AReadOnlyFolderThrows) {
  if (geteuid() == 0) GTEST_SKIP() << "the superuser writes into read-only folders";
  Workspace ws(home_);
  chmod(home_.c_str(), 0555);
  try {
    ws.SeedFrom(data_);
    ADD_FAILURE() << "no fault";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.Code(), FaultCode::PermissionDenied);
  }
  chmod(home_.c_str(), 0755);
}

}  // namespace
