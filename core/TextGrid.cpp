#include "TextGrid.h"

#include <algorithm>
#include <utility>

namespace {

// What a read outside the grid gives: the grid of the old platform answered such reads with
// an empty cell instead of failing.
const std::string& EmptyText() {
  static const std::string empty;
  return empty;
}

const std::vector<std::string>& EmptyList() {
  static const std::vector<std::string> empty;
  return empty;
}

}  // namespace

TextGrid::TextGrid(int rows, int cols)
    : rows_(std::max(rows, 0)),
      cols_(std::max(cols, 0)),
      cells_(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(cols_)),
      heads_(static_cast<std::size_t>(cols_)) {}

bool TextGrid::InRange(int row, int col) const {
  return row >= 1 && row <= rows_ && col >= 1 && col <= cols_;
}

TextGrid::Cell& TextGrid::At(int row, int col) {
  return cells_[static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(cols_) +
                static_cast<std::size_t>(col - 1)];
}

const TextGrid::Cell& TextGrid::At(int row, int col) const {
  return cells_[static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(cols_) +
                static_cast<std::size_t>(col - 1)];
}

const std::string& TextGrid::Text(int row, int col) const {
  return InRange(row, col) ? At(row, col).Text : EmptyText();
}

void TextGrid::SetText(int row, int col, std::string text) {
  if (InRange(row, col)) At(row, col).Text = std::move(text);
}

int TextGrid::DataRowCount() const {
  for (int row = rows_; row >= 1; --row)
    if (!RowIsEmpty(row)) return row;
  return 0;
}

bool TextGrid::RowIsEmpty(int row) const {
  for (int col = 1; col <= cols_; ++col)
    if (!Text(row, col).empty()) return false;
  return true;
}

void TextGrid::DeleteRow(int row) {
  if (row < 1 || row > rows_) return;
  for (int r = row; r < rows_; ++r)
    for (int col = 1; col <= cols_; ++col) At(r, col) = std::move(At(r + 1, col));
  for (int col = 1; col <= cols_; ++col) At(rows_, col) = Cell{};
}

void TextGrid::DeleteColumn(int col) {
  if (col < 1 || col > cols_) return;
  for (int row = 1; row <= rows_; ++row) {
    for (int c = col; c < cols_; ++c) At(row, c) = std::move(At(row, c + 1));
    At(row, cols_) = Cell{};
  }
}

void TextGrid::ClearRow(int row) {
  if (row < 1 || row > rows_) return;
  for (int col = 1; col <= cols_; ++col) At(row, col).Text.clear();
}

void TextGrid::ClearAll() {
  for (auto& cell : cells_) cell.Text.clear();
}

void TextGrid::SetActiveCell(int row, int col) {
  activeRow_ = std::clamp(row, 1, std::max(rows_, 1));
  activeCol_ = std::clamp(col, 1, std::max(cols_, 1));
}

bool TextGrid::Locked(int row, int col) const {
  return InRange(row, col) && At(row, col).Locked;
}

void TextGrid::SetLocked(int row, int col, bool locked) {
  if (InRange(row, col)) At(row, col).Locked = locked;
}

const std::vector<std::string>& TextGrid::List(int row, int col) const {
  return InRange(row, col) ? At(row, col).List : EmptyList();
}

void TextGrid::SetList(int row, int col, std::vector<std::string> items) {
  if (InRange(row, col)) At(row, col).List = std::move(items);
}

const std::string& TextGrid::Head(int col) const {
  return col >= 1 && col <= cols_ ? heads_[static_cast<std::size_t>(col - 1)] : EmptyText();
}

void TextGrid::SetHead(int col, std::string text) {
  if (col >= 1 && col <= cols_) heads_[static_cast<std::size_t>(col - 1)] = std::move(text);
}
