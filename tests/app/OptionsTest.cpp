#include <gtest/gtest.h>

#include <optional>

#include "Options.h"

namespace {

TEST(Options, ReadsEveryOptionAndDefaultsToTheDesktop) {
  const struct {
    std::vector<std::string> Args;
    std::optional<std::string> Home, Script;
    int Width, Height;
  } cases[] = {
      {{"--home", "/tmp/ravo home", "--script", "a.rvs", "--screen", "800x600"},
       "/tmp/ravo home",
       "a.rvs",
       800,
       600},
      {{}, std::nullopt, std::nullopt, 1024, 768},
  };
  for (const auto& c : cases) {
    const Options o = ParseOptions(c.Args);
    EXPECT_TRUE(o.Error.empty());
    EXPECT_EQ(o.Home, c.Home);
    EXPECT_EQ(o.Script, c.Script);
    EXPECT_EQ(std::pair(o.ScreenWidth, o.ScreenHeight), std::pair(c.Width, c.Height));
    EXPECT_FALSE(o.Help);
  }
}

TEST(Options, BadCommandLinesAreRefusedWithAReason) {
  const std::vector<std::vector<std::string>> bad = {
      {"--home"}, {"--script"}, {"--screen", "big"}, {"--frobnicate"}};
  for (const auto& args : bad) {
    const Options o = ParseOptions(args);
    EXPECT_FALSE(o.Error.empty()) << args.front();
  }
  EXPECT_TRUE(ParseOptions({"--help"}).Help);
}

}  // namespace
