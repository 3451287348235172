#pragma once
// The calculation grid as the screens' logic sees it: cells of text by row and column (both
// from 1), the active cell, a marked block, per-cell locks and drop-down lists. It is the
// platform grid's model; the Qt view renders it through a table model. Reads outside the grid
// give an empty cell and writes outside it are ignored, as the platform grid did.
#include <string>
#include <vector>

struct CellBlock {
  int Col1 = 0, Row1 = 0, Col2 = 0, Row2 = 0;  // 0: no block
  bool Empty() const { return Row1 == 0; }
};

class TextGrid {
 public:
  TextGrid(int rows, int cols);

  int MaxRows() const { return rows_; }
  int MaxCols() const { return cols_; }

  const std::string& Text(int row, int col) const;
  // Writing a cell never fires a change handler: only the user's edits do, through the screen.
  void SetText(int row, int col, std::string text);

  // The number of the last row that holds any text (the platform grid's count of rows with
  // data): rows above it count even when empty.
  int DataRowCount() const;
  bool RowIsEmpty(int row) const;

  // Rows below move up; the bottom row comes back empty, unlocked, without a list.
  void DeleteRow(int row);
  // Columns right of it move left; the last column comes back empty.
  void DeleteColumn(int col);
  // The texts only: locks and lists stay as they are.
  void ClearRow(int row);
  void ClearAll();

  int ActiveRow() const { return activeRow_; }
  int ActiveCol() const { return activeCol_; }
  void SetActiveCell(int row, int col);

  const CellBlock& Block() const { return block_; }
  void SetBlock(CellBlock block) { block_ = block; }
  void ClearBlock() { block_ = {}; }

  bool Locked(int row, int col) const;
  void SetLocked(int row, int col, bool locked);

  // The drop-down list of a cell (empty: a plain text cell).
  const std::vector<std::string>& List(int row, int col) const;
  void SetList(int row, int col, std::vector<std::string> items);

  const std::string& Head(int col) const;
  void SetHead(int col, std::string text);

 private:
  bool InRange(int row, int col) const;
  struct Cell {
    std::string Text;
    bool Locked = false;
    std::vector<std::string> List;
  };
  Cell& At(int row, int col);
  const Cell& At(int row, int col) const;
  int rows_, cols_;
  std::vector<Cell> cells_;
  std::vector<std::string> heads_;
  int activeRow_ = 1, activeCol_ = 1;
  CellBlock block_;
};
