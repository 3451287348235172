#pragma once
// The editor of a grid cell that has a drop-down list (the models of column 10): a combo box
// holding the cell's list. Only a pick from the list (a click, Enter in the open list, or the
// first letters of an entry) changes the cell. Cells without a list get the plain text editor.
#include <QStyledItemDelegate>

#include "TextGrid.h"

class GridListDelegate : public QStyledItemDelegate {
 public:
  GridListDelegate(const TextGrid& grid, QObject* parent = nullptr);

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;

 private:
  const std::vector<std::string>& ListOf(const QModelIndex& index) const;
  const TextGrid& grid_;
};
