#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "TextGrid.h"

namespace {

// A 5 x 4 grid whose cell (r, c) reads "rc".
TextGrid Numbered() {
  TextGrid g(5, 4);
  for (int r = 1; r <= 5; ++r)
    for (int c = 1; c <= 4; ++c) g.SetText(r, c, std::to_string(10 * r + c));
  return g;
}

// A 5 x 4 grid as text: rows parted by " / ", a blank cell as "-", a locked one marked "*", a
// cell's list in brackets.
std::string Shown(const TextGrid& g) {
  std::string out;
  for (int r = 1; r <= 5; ++r)
    for (int c = 1; c <= 4; ++c) {
      out += (c > 1 ? " " : r > 1 ? " / " : "") + (g.Text(r, c).empty() ? "-" : g.Text(r, c));
      if (g.Locked(r, c)) out += "*";
      for (std::size_t i = 0; i < g.List(r, c).size(); ++i)
        out += (i ? "," : "[") + g.List(r, c)[i] + (i + 1 == g.List(r, c).size() ? "]" : "");
    }
  return out;
}

const std::string kNumbered = "11 12 13 14 / 21 22 23 24 / 31 32 33 34 / 41 42 43 44 / 51 52 53 54";

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
  g.SetHead(0, "x");
  g.SetHead(5, "x");
  EXPECT_EQ(g.Head(0), "");
  EXPECT_EQ(g.Head(5), "");
  for (int i : {0, -1, 6, 100}) g.DeleteRow(i);
  for (int i : {0, -1, 5, 100}) g.DeleteColumn(i);
  EXPECT_EQ(Shown(g), kNumbered);
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
  EXPECT_EQ(Shown(g), "11* 12 13 14 / 31 32 33 34 / 41 42 43 44 / 51 52* 53[Α,Β] 54 / - - - -");
  EXPECT_EQ(g.DataRowCount(), 4);
  g.DeleteRow(4);  // the last row of text only blanks
  EXPECT_EQ(Shown(g), "11* 12 13 14 / 31 32 33 34 / 41 42 43 44 / - - - - / - - - -");
}

TEST(TextGrid, DeleteColumnMovesColumnsLeftAndBlanksTheLastColumn) {
  TextGrid g = Numbered();
  g.SetLocked(3, 4, true);
  g.SetList(2, 4, {"x"});
  g.SetHead(1, "Α");
  g.DeleteColumn(1);
  EXPECT_EQ(Shown(g), "12 13 14 - / 22 23 24[x] - / 32 33 34* - / 42 43 44 - / 52 53 54 -");
  EXPECT_EQ(g.Head(1), "Α");  // the captions are the screen's, not the data's
}

TEST(TextGrid, ClearsKeepLocksAndLists) {
  TextGrid g = Numbered();
  g.SetLocked(2, 2, true);
  g.SetList(2, 3, {"x"});
  g.ClearRow(2);
  EXPECT_EQ(Shown(g), "11 12 13 14 / - -* -[x] - / 31 32 33 34 / 41 42 43 44 / 51 52 53 54");
  g.ClearAll();
  EXPECT_EQ(Shown(g), "- - - - / - -* -[x] - / - - - - / - - - - / - - - -");
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
