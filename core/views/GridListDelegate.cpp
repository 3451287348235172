#include "GridListDelegate.h"

#include <QComboBox>

GridListDelegate::GridListDelegate(const TextGrid& grid, QObject* parent)
    : QStyledItemDelegate(parent), grid_(grid) {}

const std::vector<std::string>& GridListDelegate::ListOf(const QModelIndex& index) const {
  return grid_.List(index.row() + 1, index.column() + 1);
}

QWidget* GridListDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const {
  const auto& list = ListOf(index);
  if (list.empty()) return QStyledItemDelegate::createEditor(parent, option, index);
  // Only an entry of the list can stand in the cell.
  auto* combo = new QComboBox(parent);
  for (const std::string& item : list) combo->addItem(QString::fromStdString(item));
  // A pick from the list ends the edit at once, as the old grid's drop-down did.
  connect(combo, &QComboBox::activated, this, [this, combo] {
    auto* self = const_cast<GridListDelegate*>(this);
    emit self->commitData(combo);
    emit self->closeEditor(combo);
  });
  return combo;
}

void GridListDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  auto* combo = qobject_cast<QComboBox*>(editor);
  if (combo == nullptr) return QStyledItemDelegate::setEditorData(editor, index);
  const QString text = index.data(Qt::EditRole).toString();
  const int at = combo->findText(text);
  // An empty cell opens on no entry: opening the list chooses nothing by itself.
  combo->setCurrentIndex(at);
}

void GridListDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                    const QModelIndex& index) const {
  auto* combo = qobject_cast<QComboBox*>(editor);
  if (combo == nullptr) return QStyledItemDelegate::setModelData(editor, model, index);
  if (combo->currentIndex() >= 0) model->setData(index, combo->currentText(), Qt::EditRole);
}
