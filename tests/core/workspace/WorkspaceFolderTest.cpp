// The program folder: where it is, what it holds when opened, and the shipped files it receives.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <tuple>
#include <vector>

#include "Faults.h"
#include "Workspace.h"
#include "WorkspaceTestSupport.h"

namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

// A folder that cannot be made, or a read-only one (as the file system would refuse it even to
// the superuser), throws.
TEST(WorkspaceFolder, CreatesTheFolderWithItsSubfoldersKeepsWhatItHoldsOrThrows) {
  TempFolder temp;
  const fs::path home = temp.Path() / "deep" / "home";
  fs::create_directories(home);
  WriteAllBytes(home / "SHEETS.TMP", "abc");
  const Workspace ws(home);
  EXPECT_TRUE(fs::is_directory(home / "RVLFiles"));
  EXPECT_TRUE(fs::is_directory(home / "GMI"));
  EXPECT_EQ(ws.PathOf("RVLFiles/x.sht"), home / "RVLFiles" / "x.sht");
  EXPECT_EQ(Get(ws, "SHEETS.TMP"), "abc");
  WriteAllBytes(temp / "plain", "x");
  for (const fs::path& folder : {temp.Path() / "plain", temp.Path() / "plain" / "home"})
    EXPECT_TRUE(FaultOf([&] { Workspace ws(folder); }, "plain")) << folder;
  Workspace::FailNextChange(std::make_error_code(std::errc::permission_denied));
  EXPECT_EQ(FaultOf([&] { Workspace ws(home); }, "Φάκελος " + home.string()),
            FaultCode::PermissionDenied);
  EXPECT_NO_THROW(Workspace{home}) << "the failure is used once";
}

TEST(WorkspaceFolder, ThePauseComesFromTheEnvironment) {
  const std::pair<std::optional<std::string>, int> cases[] = {
      {std::nullopt, 100}, {"0", 0},     {"25", 25}, {"abc", 100},
      {"-5", 100},         {"12x", 100}, {"", 100}};
  TempFolder temp;
  for (const auto& [env, ms] : cases) {
    const ScopedEnv pause("RAVOLINETTE_PAUSE_MS", env);
    EXPECT_EQ(Workspace(temp.Path()).PauseMilliseconds(), ms) << env.value_or("(unset)");
  }
}

TEST(WorkspaceFolder, ResolvedInTheOrderOfPlaces) {
  // The folder asked for, RAVOLINETTE_HOME, XDG_DATA_HOME and the folder they make.
  const std::optional<std::string> none;
  using Env = std::optional<std::string>;
  const std::tuple<Env, Env, Env, std::string> cases[] = {
      {"/w/opt", "/w/env", "/w/xdg", "/w/opt"},
      {"", "/w/env", "/w/xdg", "/w/env"},
      {none, "", "/w/xdg", "/w/xdg/ravolinette"},
      {none, none, "rel/xdg", "/home/eng/.local/share/ravolinette"},
      {none, none, none, "/home/eng/.local/share/ravolinette"},
      {"/w/Μελέτες", none, none, "/w/Μελέτες"},
  };
  const ScopedEnv user("HOME", "/home/eng");
  for (const auto& [home, ravoHome, xdgDataHome, expected] : cases) {
    const ScopedEnv ravo("RAVOLINETTE_HOME", ravoHome);
    const ScopedEnv xdg("XDG_DATA_HOME", xdgDataHome);
    EXPECT_EQ(Workspace::ResolveProgramFolder(home), fs::path(expected));
  }
  const ScopedEnv data("RAVOLINETTE_DATA", std::nullopt);
  EXPECT_EQ(Workspace::InstalledDataFolder("/opt/ravo/bin/ravolinette"),
            fs::path("/opt/ravo/share/ravolinette"));
  const ScopedEnv data2("RAVOLINETTE_DATA", "/srv/data");
  EXPECT_EQ(Workspace::InstalledDataFolder("/opt/ravo/bin/ravolinette"), fs::path("/srv/data"));
}

// A data folder of shipped files beside a program folder.
class Seeding : public ::testing::Test {
 protected:
  Seeding() {
    fs::create_directories(data_ / "XLFiles");
    WriteAllBytes(data_ / "XLFiles" / "inner.xls", "x");
    Ship("RavoPipes.txt", "pipes");
    Ship("0001.ztb", "library");
  }
  void Ship(const std::string& name, const std::string& bytes) {
    WriteAllBytes(data_ / fs::u8path(name), bytes);
  }
  Names Seed() { return Workspace(home_).SeedFrom(data_); }
  std::string Home(const std::string& name) { return ReadAllBytes(home_ / fs::u8path(name)); }
  bool Has(const std::string& name) { return fs::exists(home_ / fs::u8path(name)); }

  TempFolder temp_;
  fs::path data_ = temp_.Path() / "share";
  fs::path home_ = temp_.Path() / "home";
};

TEST_F(Seeding, CopiesEachShippedFileOnceNeverOverwritesAndBringsNewOnes) {
  fs::create_directory(home_);
  WriteAllBytes(home_ / "RavoPipes.txt", "mine");
  EXPECT_EQ(Seed(), Names{"0001.ztb"});
  EXPECT_EQ(Home("RavoPipes.txt"), "mine");
  EXPECT_EQ(Home("0001.ztb"), "library");
  EXPECT_EQ(Home(".seeded"), "0001.ztb\nRavoPipes.txt\n");
  EXPECT_FALSE(Has("inner.xls"));
  EXPECT_FALSE(Has(".seeded.@@@"));
  // What the engineer deleted stays deleted; what he changed stays his.
  fs::remove(home_ / "RavoPipes.txt");
  WriteAllBytes(home_ / "0001.ztb", "changed");
  EXPECT_EQ(Seed(), Names{});
  EXPECT_FALSE(Has("RavoPipes.txt"));
  EXPECT_EQ(Home("0001.ztb"), "changed");
  // A new shipped file arrives in an old folder, once.
  Ship("Θερμαντικά Σώματα.ths", "family");
  EXPECT_EQ(Seed(), Names{"Θερμαντικά Σώματα.ths"});
  EXPECT_EQ(Home("Θερμαντικά Σώματα.ths"), "family");
  EXPECT_EQ(Home(".seeded"), "0001.ztb\nRavoPipes.txt\nΘερμαντικά Σώματα.ths\n");
  fs::remove(home_ / fs::u8path("Θερμαντικά Σώματα.ths"));
  EXPECT_EQ(Seed(), Names{});
}

// A missing data folder seeds nothing; a list that cannot be written or a read-only folder throws.
TEST_F(Seeding, AMissingDataFolderSeedsNothingAndFailuresThrow) {
  Workspace ws(home_);
  Workspace::FailNextChange(std::make_error_code(std::errc::read_only_file_system));
  EXPECT_EQ(FaultOf([&] { ws.SeedFrom(data_); }, "0001.ztb"), FaultCode::PermissionDenied);
  EXPECT_FALSE(Has("0001.ztb"));
  fs::create_directories(home_ / ".seeded.@@@");
  EXPECT_THROW(Seed(), RuntimeFault);
  fs::remove_all(data_);
  EXPECT_EQ(Seed(), Names{});
  EXPECT_FALSE(Has(".seeded"));
}

}  // namespace
