#pragma once
// The calculation grid as a Qt table model over the logic's TextGrid. Edits of the user go to
// the logic's handler; the view calls Refresh() after every event to show the logic's state.
// The screen gives each column its alignment; a column it gives none has Qt's default.
#include <QAbstractTableModel>
#include <functional>
#include <string>
#include <vector>

#include "TextGrid.h"

class GridModel : public QAbstractTableModel {
 public:
  using EditHandler = std::function<void(int row, int col, const std::string& text)>;
  GridModel(TextGrid& grid, std::vector<Qt::Alignment> columnAlignments, EditHandler onEdit,
            QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  void Refresh();
  // A head as shown: the blanks that broke it into lines in the old grid become line breaks.
  static QString HeadForDisplay(const std::string& head);

 private:
  TextGrid& grid_;
  std::vector<Qt::Alignment> alignments_;  // one per column, from the left
  EditHandler onEdit_;
};
