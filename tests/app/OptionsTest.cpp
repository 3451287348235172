#include <gtest/gtest.h>

#include "Options.h"

namespace {

TEST(Options, ReadsEveryOption) {
  const Options o =
      ParseOptions({"--home", "/tmp/ravo home", "--script", "a.rvs", "--screen", "800x600"});
  EXPECT_TRUE(o.Error.empty());
  EXPECT_EQ(o.Home, "/tmp/ravo home");
  EXPECT_EQ(o.Script, "a.rvs");
  EXPECT_EQ(o.ScreenWidth, 800);
  EXPECT_EQ(o.ScreenHeight, 600);
  EXPECT_FALSE(o.Help);
}

TEST(Options, NoOptionsMeansTheDesktopWithTheDefaults) {
  const Options o = ParseOptions({});
  EXPECT_TRUE(o.Error.empty());
  EXPECT_FALSE(o.Home);
  EXPECT_FALSE(o.Script);
  EXPECT_EQ(o.ScreenWidth, 1024);
  EXPECT_EQ(o.ScreenHeight, 768);
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
