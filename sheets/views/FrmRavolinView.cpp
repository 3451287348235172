#include "FrmRavolinView.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPushButton>
#include <QVBoxLayout>

#include "GridListDelegate.h"
#include "KeyMapping.h"

namespace {

// Units shown after the fields; decoration of the screen only.
const std::map<std::string, const char*>& Units() {
  static const std::map<std::string, const char*> units = {
      {"TxtTempDrop", "[°C]"},    {"TxtOrigTemp", "[°C]"},     {"TxtLoopLength", "[m]"},
      {"TxtOtherRes", "[m]"},     {"TxtLoopLoad", "[Kcal/h]"}, {"TxtFlow", "[Lit/h]"},
      {"TxtVelocity", "[m/sec]"}, {"TxtSFR", "[mm Σ.Υ./m]"}};
  return units;
}

// Widths of the grid's columns in pixels, chosen so that the whole sheet fits 1024 pixels.
constexpr int kColumnWidths[kGridCols] = {48, 72, 52, 72, 60, 60, 60, 52, 76, 84, 96, 72, 60, 56};

// The radiator's number, its type and its name read from the left; the numbers from the right.
std::vector<Qt::Alignment> ColumnAlignments() {
  std::vector<Qt::Alignment> alignments(kGridCols, Qt::AlignVCenter | Qt::AlignRight);
  for (const int col : {1, 10, 11}) alignments[col - 1] = Qt::AlignVCenter | Qt::AlignLeft;
  return alignments;
}

Field& FieldOf(FrmRavolin& f, const std::string& name) {
  static const std::map<std::string, Field FrmRavolin::*> fields = {
      {"TxtThema", &FrmRavolin::TxtThema},       {"TxtOwnership", &FrmRavolin::TxtOwnership},
      {"TxtLoopNo", &FrmRavolin::TxtLoopNo},     {"TxtTempDrop", &FrmRavolin::TxtTempDrop},
      {"TxtOrigTemp", &FrmRavolin::TxtOrigTemp}, {"TxtLoopLength", &FrmRavolin::TxtLoopLength},
      {"TxtOtherRes", &FrmRavolin::TxtOtherRes}, {"Txta_a", &FrmRavolin::Txta_a},
      {"TxtLoopLoad", &FrmRavolin::TxtLoopLoad}, {"TxtFlow", &FrmRavolin::TxtFlow},
      {"TxtVelocity", &FrmRavolin::TxtVelocity}, {"TxtSFR", &FrmRavolin::TxtSFR}};
  return f.*(fields.at(name));
}

}  // namespace

FrmRavolinView::FrmRavolinView(FrmRavolin& logic, CommandBoundary& boundary, QWidget* parent)
    : QWidget(parent), logic_(logic), boundary_(boundary) {
  setObjectName(QStringLiteral("FrmRavolin"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  auto* header = new QGridLayout();
  header->setHorizontalSpacing(6);
  header->setVerticalSpacing(4);
  BuildHeader(header);
  layout->addLayout(header);
  BuildGrid();
  layout->addWidget(grid_);
  layout->addLayout(BuildCommands());
  layout->addStretch(1);
  qApp->installEventFilter(this);
  resize(1000, 700);
  Render();
}

FrmRavolinView::~FrmRavolinView() {
  qApp->removeEventFilter(this);
}

void FrmRavolinView::BuildHeader(QGridLayout* layout) {
  // Inputs on the left, results on the right; the subject and the sheet number on top.
  const std::map<std::string, std::pair<int, int>> place = {
      {"TxtThema", {0, 0}},      {"Txta_a", {0, 3}},      {"TxtOwnership", {1, 0}},
      {"TxtLoopNo", {2, 0}},     {"TxtTempDrop", {3, 0}}, {"TxtOrigTemp", {4, 0}},
      {"TxtLoopLength", {5, 0}}, {"TxtOtherRes", {6, 0}}, {"CboPipes", {7, 0}},
      {"TxtLoopLoad", {1, 3}},   {"TxtFlow", {2, 3}},     {"TxtVelocity", {3, 3}},
      {"TxtSFR", {4, 3}},        {"CboSomata", {6, 3}}};
  for (const auto& caption : FrmRavolin::Captions()) {
    const auto [row, col] = place.at(caption.Control);
    auto* label = new QLabel(QString::fromStdString(caption.Text).trimmed(), this);
    label->setObjectName(QString::fromLatin1(caption.Label));
    layout->addWidget(label, row, col, Qt::AlignRight | Qt::AlignVCenter);
    QWidget* widget = nullptr;
    const std::string name = caption.Control;
    if (name == "CboPipes") {
      widget = pipes_ = MakeCombo(name);
    } else if (name == "CboSomata") {
      widget = somata_ = MakeCombo(name);
    } else {
      auto* box = new FilteredLineEdit(
          FieldOf(logic_, name), logic_.EventsOf(name),
          [this](const std::function<void()>& h) { Run(h); }, this);
      box->setObjectName(QString::fromStdString(name));
      box->setReadOnly(!FieldOf(logic_, name).Enabled);
      boxes_[name] = box;
      widget = box;
    }
    if (name == "TxtThema" || name == "CboSomata") {
      layout->addWidget(widget, row, col + 1, 1, 2);
      continue;
    }
    widget->setMaximumWidth(name == "TxtOwnership" || name == "TxtLoopNo" ? 260 : 110);
    layout->addWidget(widget, row, col + 1);
    if (Units().count(name)) {
      layout->addWidget(new QLabel(QString::fromUtf8(Units().at(name)), this), row, col + 2);
    }
  }
  calc_ = new QPushButton(QString::fromStdString(logic_.CmdCalc.Text), this);
  calc_->setObjectName(QStringLiteral("CmdCalc"));
  calc_->setToolTip(QString::fromUtf8(FrmRavolin::kCalcTip));
  calc_->setFocusPolicy(Qt::TabFocus);
  connect(calc_, &QPushButton::clicked, this, [this] { Run([this] { logic_.CmdCalc_Click(); }); });
  layout->addWidget(calc_, 7, 4);
  layout->setColumnStretch(2, 1);
  layout->setColumnStretch(5, 1);
}

// The row commands under the grid, each with its tip; Calculate stands in the header.
// Two rows under the grid: the commands on the rows, then those on the sheets and the study.
QVBoxLayout* FrmRavolinView::BuildCommands() {
  auto* rows = new QVBoxLayout();
  auto* row = new QHBoxLayout();
  rows->addLayout(row);
  for (const auto& command : FrmRavolin::CommandButtons()) {
    if (std::string(command.Name) == "CmdCalc") continue;
    if (std::string(command.Name) == "CmdFirst") {
      row->addStretch(1);
      row = new QHBoxLayout();
      rows->addLayout(row);
    }
    auto* button = new QPushButton(QString::fromStdString((logic_.*command.Button).Text), this);
    button->setObjectName(QString::fromLatin1(command.Name));
    button->setToolTip(QString::fromUtf8(command.Tip));
    button->setFocusPolicy(Qt::TabFocus);
    const std::string name = command.Name;
    connect(button, &QPushButton::clicked, this,
            [this, name] { Run([this, name] { logic_.Controls().at(name).Press(); }); });
    row->addWidget(button);
    buttons_[name] = button;
  }
  row->addStretch(1);
  return rows;
}

QComboBox* FrmRavolinView::MakeCombo(const std::string& name) {
  auto* combo = new QComboBox(this);
  combo->setObjectName(QString::fromStdString(name));
  // A long family name must not widen the screen; the list shows it whole when opened.
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setMinimumContentsLength(12);
  connect(combo, &QComboBox::activated, this, [this, name](int index) {
    if (rendering_) return;
    Run([this, name, index] { logic_.Controls().at(name).ChooseIndex(index); });
  });
  return combo;
}

namespace {

void RenderCombo(QComboBox* widget, const ComboBox& combo) {
  QStringList items;
  for (const auto& item : combo.Items) items << QString::fromStdString(item);
  QStringList shown;
  for (int i = 0; i < widget->count(); ++i) shown << widget->itemText(i);
  if (shown != items) {
    widget->clear();
    widget->addItems(items);
  }
  widget->setCurrentIndex(combo.Index);
  widget->setToolTip(widget->currentText());  // the whole name, when the box cuts it
}

}  // namespace

void FrmRavolinView::BuildGrid() {
  model_ = new GridModel(
      logic_.Grid, ColumnAlignments(),
      [this](int r, int c, const std::string& t) {
        Run([=, this] { logic_.Grid_EditCell(r, c, t); });
      },
      this);
  grid_ = new QTableView(this);
  grid_->setObjectName(QStringLiteral("Grid"));
  grid_->setModel(model_);
  grid_->setItemDelegate(new GridListDelegate(logic_.Grid, grid_));
  QHeaderView* heads = grid_->horizontalHeader();
  heads->setDefaultAlignment(Qt::Alignment(Qt::AlignCenter | Qt::TextWordWrap));
  heads->setMinimumHeight(118);
  QFont small = heads->font();
  small.setPointSizeF(small.pointSizeF() * 0.8);
  heads->setFont(small);
  for (int col = 0; col < kGridCols; ++col) grid_->setColumnWidth(col, kColumnWidths[col]);
  grid_->verticalHeader()->setDefaultSectionSize(26);
  grid_->verticalHeader()->setMinimumWidth(24);
  grid_->setEditTriggers(QAbstractItemView::AllEditTriggers);
  // The eight rows of a loop and the heads, without an empty area below them.
  grid_->setFixedHeight(heads->minimumHeight() + kGridRows * 26 + 2 * grid_->frameWidth() + 4);
  connect(grid_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) {
            if (rendering_ || !current.isValid()) return;
            Run([this, current] { logic_.Grid_Click(current.row() + 1, current.column() + 1); });
          });
  connect(grid_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    if (rendering_) return;
    const QModelIndexList cells = grid_->selectionModel()->selectedIndexes();
    if (cells.size() < 2) return;
    CellBlock block{kGridCols + 1, kGridRows + 1, 0, 0};
    for (const QModelIndex& i : cells) {
      block.Col1 = std::min(block.Col1, i.column() + 1);
      block.Row1 = std::min(block.Row1, i.row() + 1);
      block.Col2 = std::max(block.Col2, i.column() + 1);
      block.Row2 = std::max(block.Row2, i.row() + 1);
    }
    Run([this, block] { logic_.Grid_MarkBlock(block); });
  });
}

void FrmRavolinView::Run(const std::function<void()>& handler) {
  boundary_.Run(handler);
  Render();
  ApplyFocus();
}

void FrmRavolinView::Render() {
  rendering_ = true;
  setWindowTitle(QString::fromStdString(logic_.Caption.Text));
  for (auto& [name, box] : boxes_) box->Render();
  RenderCombo(pipes_, logic_.CboPipes);
  RenderCombo(somata_, logic_.CboSomata);
  model_->Refresh();
  const QModelIndex active =
      model_->index(logic_.Grid.ActiveRow() - 1, logic_.Grid.ActiveCol() - 1);
  if (grid_->currentIndex() != active) grid_->setCurrentIndex(active);
  rendering_ = false;
}

QWidget* FrmRavolinView::WidgetNamed(const std::string& name) const {
  if (name == "Grid") return grid_;
  if (name == "CboPipes") return pipes_;
  if (name == "CboSomata") return somata_;
  if (auto b = buttons_.find(name); b != buttons_.end()) return b->second;
  auto it = boxes_.find(name);
  return it == boxes_.end() ? nullptr : it->second;
}

FilteredLineEdit* FrmRavolinView::TextBox(const std::string& name) const {
  auto it = boxes_.find(name);
  return it == boxes_.end() ? nullptr : it->second;
}

void FrmRavolinView::ApplyFocus() {
  if (logic_.FocusTarget.empty()) return;
  QWidget* target = WidgetNamed(logic_.FocusTarget);
  logic_.FocusTarget.clear();
  if (target && !target->hasFocus()) target->setFocus(Qt::OtherFocusReason);
}

bool FrmRavolinView::eventFilter(QObject* watched, QEvent* event) {
  // The form sees every key first, whichever of its controls has the focus.
  // A key not taken by a widget travels on to its parents; the form sees it once, at the
  // widget that has the focus.
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  auto* widget = qobject_cast<QWidget*>(watched);
  QWidget* focus = QApplication::focusWidget();
  const bool first = focus ? widget == focus : widget == this;
  if (!widget || widget->window() != this || !first) return QWidget::eventFilter(watched, event);
  const KeyStroke key = ToKeyStroke(*static_cast<QKeyEvent*>(event));
  bool handled = false;
  Run([&] { handled = logic_.Form_KeyDown(key); });
  return handled;
}

void FrmRavolinView::closeEvent(QCloseEvent* event) {
  Run([this] { logic_.Form_Unload(); });
  event->accept();
}
