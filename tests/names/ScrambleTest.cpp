// The old run-time's generator and the scrambling of the engineer names, against the check
// values of the run-time and round trips of our own.
#include <gtest/gtest.h>

#include <cmath>

#include "Scramble.h"
#include "VbRandom.h"

namespace {

TEST(VbRandomTest, RestartWithMinusOneAndRandomizeGiveTheRunTimesValues) {
  VbRandom rnd;
  EXPECT_EQ(rnd.State(), 0x50000u);
  const float first = rnd.Restart(-1.0f);
  EXPECT_EQ(rnd.State(), 0x395886u);
  EXPECT_DOUBLE_EQ(static_cast<double>(first), 0.2240070104598999);
  rnd.Randomize(1);
  EXPECT_NEAR(rnd.Next(), 0.3335753, 5e-8);
  EXPECT_NEAR(rnd.Next(), 0.06816387, 5e-9);
  EXPECT_NEAR(rnd.Next(), 0.5938293, 5e-8);
}

TEST(VbRandomTest, TheKeyOfTheNamesSeedsTheSequenceAsTheOldProgramDid) {
  EXPECT_EQ(KeySeed("37184602"), 224659868);
  VbRandom rnd;
  rnd.Restart(-1.0f);
  rnd.Randomize(224659868);
  EXPECT_EQ(rnd.State(), 0x89B986u);
  const int draws[] = {220, 81, 91, 236, 90, 30, 87, 13};
  for (int expected : draws) EXPECT_EQ(static_cast<int>(std::floor(rnd.Next() * 256.0f)), expected);
}

TEST(ScrambleTest, EachByteIsShiftedByTheDrawOfItsPlace) {
  // Zero bytes come out as the draws themselves; every field starts the sequence anew.
  const std::string zeros(8, '\0');
  const std::string expected = {'\xDC', '\x51', '\x5B', '\xEC', '\x5A', '\x1E', '\x57', '\x0D'};
  EXPECT_EQ(ScrambleText(zeros), expected);
  EXPECT_EQ(ScrambleText(zeros), expected);
  EXPECT_EQ(ScrambleText("A"), std::string(1, static_cast<char>((0x41 + 220) & 255)));
}

}  // namespace
