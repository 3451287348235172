#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "TextGrid.h"

namespace {

std::string Name(int r, int c) {
  return "r" + std::to_string(r) + "c" + std::to_string(c);
}

// A 5 x 4 grid whose cell (r, c) reads "rRcC".
TextGrid Numbered() {
  TextGrid g(5, 4);
  for (int r = 1; r <= 5; ++r)
    for (int c = 1; c <= 4; ++c) g.SetText(r, c, Name(r, c));
  return g;
}

TEST(TextGrid, ReadsOutsideGiveEmptyAndWritesOutsideAreIgnored) {
  TextGrid g = Numbered();
  const std::vector<std::pair<int, int>> outside = {{0, 1},   {6, 1}, {1, 0},    {1, 5},
                                                    {-1, -1}, {0, 0}, {1000, 2}, {2, -7}};
  for (const auto& [r, c] : outside) {
    SCOPED_TRACE(std::to_string(r) + "," + std::to_string(c));
    g.SetText(r, c, "x");
    g.SetLocked(r, c, true);
    g.SetList(r, c, {"a"});
    EXPECT_EQ(g.Text(r, c), "");
    EXPECT_FALSE(g.Locked(r, c));
    EXPECT_TRUE(g.List(r, c).empty());
  }
  for (int r = 1; r <= 5; ++r)
    for (int c = 1; c <= 4; ++c) {
      EXPECT_EQ(g.Text(r, c), Name(r, c));
      EXPECT_FALSE(g.Locked(r, c));
    }
  g.SetHead(0, "x");
  g.SetHead(5, "x");
  EXPECT_EQ(g.Head(0), "");
  EXPECT_EQ(g.Head(5), "");
  for (int i : {0, -1, 6, 100}) g.DeleteRow(i);
  for (int i : {0, -1, 5, 100}) g.DeleteColumn(i);
  for (int r = 1; r <= 5; ++r)
    for (int c = 1; c <= 4; ++c) EXPECT_EQ(g.Text(r, c), Name(r, c));
}

// Rows above the last row with text count although empty.
TEST(TextGrid, DataRowCountIsTheLastRowWithText) {
  using Filled = std::vector<std::pair<int, int>>;
  for (const auto& [filled, count] : {std::pair{Filled{}, 0},
                                      {Filled{{1, 1}}, 1},
                                      {Filled{{3, 4}}, 3},
                                      {Filled{{2, 1}, {5, 3}}, 5},
                                      {Filled{{8, 14}}, 8}}) {
    TextGrid g(8, 14);
    for (const auto& [r, c] : filled) g.SetText(r, c, "1");
    EXPECT_EQ(g.DataRowCount(), count);
  }
  TextGrid g(8, 14);
  g.SetText(4, 2, "x");
  g.SetText(4, 2, "");
  EXPECT_EQ(g.DataRowCount(), 0);
  EXPECT_TRUE(g.RowIsEmpty(4));
  EXPECT_TRUE(g.RowIsEmpty(99));
}

TEST(TextGrid, DeleteRowMovesRowsUpAndBlanksTheBottomRow) {
  TextGrid g = Numbered();
  g.SetLocked(5, 2, true);
  g.SetList(5, 3, {"Α", "Β"});
  g.SetLocked(1, 1, true);
  g.DeleteRow(2);
  const std::vector<int> from = {1, 3, 4, 5};
  for (int r = 1; r <= 4; ++r)
    for (int c = 1; c <= 4; ++c) EXPECT_EQ(g.Text(r, c), Name(from[r - 1], c));
  for (int c = 1; c <= 4; ++c) {
    EXPECT_EQ(g.Text(5, c), "");
    EXPECT_FALSE(g.Locked(5, c));
    EXPECT_TRUE(g.List(5, c).empty());
  }
  EXPECT_TRUE(g.Locked(1, 1));
  EXPECT_TRUE(g.Locked(4, 2));
  EXPECT_EQ(g.List(4, 3), (std::vector<std::string>{"Α", "Β"}));
  EXPECT_EQ(g.DataRowCount(), 4);
  g.DeleteRow(4);  // the last row of text only blanks
  EXPECT_EQ(g.Text(3, 4), Name(4, 4));
  EXPECT_TRUE(g.RowIsEmpty(4));
}

TEST(TextGrid, DeleteColumnMovesColumnsLeftAndBlanksTheLastColumn) {
  TextGrid g = Numbered();
  g.SetLocked(3, 4, true);
  g.SetList(2, 4, {"x"});
  g.SetHead(1, "Α");
  g.DeleteColumn(1);
  for (int r = 1; r <= 5; ++r) {
    for (int c = 1; c <= 3; ++c) EXPECT_EQ(g.Text(r, c), Name(r, c + 1));
    EXPECT_EQ(g.Text(r, 4), "");
    EXPECT_FALSE(g.Locked(r, 4));
    EXPECT_TRUE(g.List(r, 4).empty());
  }
  EXPECT_TRUE(g.Locked(3, 3));
  EXPECT_EQ(g.List(2, 3), std::vector<std::string>{"x"});
  EXPECT_EQ(g.Head(1), "Α");  // the captions are the screen's, not the data's
}

TEST(TextGrid, ClearsKeepLocksAndLists) {
  TextGrid g = Numbered();
  g.SetLocked(2, 2, true);
  g.SetList(2, 3, {"x"});
  g.ClearRow(2);
  EXPECT_TRUE(g.RowIsEmpty(2));
  EXPECT_EQ(g.Text(3, 1), Name(3, 1));
  EXPECT_TRUE(g.Locked(2, 2));
  g.ClearAll();
  EXPECT_EQ(g.DataRowCount(), 0);
  EXPECT_TRUE(g.Locked(2, 2));
  EXPECT_EQ(g.List(2, 3), std::vector<std::string>{"x"});
}

TEST(TextGrid, SetActiveCellClampsToTheGridAndTheBlockIsKept) {
  TextGrid g(5, 4);
  const std::pair<std::pair<int, int>, std::pair<int, int>> cases[] = {
      {{3, 2}, {3, 2}}, {{0, 0}, {1, 1}},   {{-4, 9}, {1, 4}},
      {{6, 4}, {5, 4}}, {{99, -1}, {5, 1}}, {{5, 4}, {5, 4}}};
  for (const auto& [asked, active] : cases) {
    g.SetActiveCell(asked.first, asked.second);
    EXPECT_EQ(std::pair(g.ActiveRow(), g.ActiveCol()), active)
        << asked.first << "," << asked.second;
  }
  EXPECT_TRUE(g.Block().Empty());
  g.SetBlock({.Col1 = 1, .Row1 = 2, .Col2 = 3, .Row2 = 4});
  EXPECT_FALSE(g.Block().Empty());
  EXPECT_EQ(g.Block().Row2, 4);
  g.ClearBlock();
  EXPECT_TRUE(g.Block().Empty());
}

}  // namespace
