#include "GridModel.h"

#include <QRegularExpression>

GridModel::GridModel(TextGrid& grid, std::vector<Qt::Alignment> columnAlignments,
                     EditHandler onEdit, QObject* parent)
    : QAbstractTableModel(parent),
      grid_(grid),
      alignments_(std::move(columnAlignments)),
      onEdit_(std::move(onEdit)) {}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.MaxRows();
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.MaxCols();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::DisplayRole || role == Qt::EditRole)
    return QString::fromStdString(grid_.Text(index.row() + 1, index.column() + 1));
  if (role == Qt::TextAlignmentRole && index.column() < static_cast<int>(alignments_.size()))
    return QVariant::fromValue(alignments_[index.column()]);
  return {};
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole) return false;
  const std::string text = value.toString().toStdString();
  if (text == grid_.Text(index.row() + 1, index.column() + 1)) return false;
  if (onEdit_) onEdit_(index.row() + 1, index.column() + 1, text);
  return true;
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (!grid_.Locked(index.row() + 1, index.column() + 1)) f |= Qt::ItemIsEditable;
  return f;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return QAbstractTableModel::headerData(section, orientation, role);
  if (orientation == Qt::Vertical) return section + 1;
  return HeadForDisplay(grid_.Head(section + 1));
}

QString GridModel::HeadForDisplay(const std::string& head) {
  QString text = QString::fromStdString(head).trimmed();
  text.replace(QRegularExpression(QStringLiteral(" {2,}")), QStringLiteral("\n"));
  return text;
}

void GridModel::Refresh() {
  emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}
