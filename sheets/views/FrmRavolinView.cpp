#include "FrmRavolinView.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <filesystem>
#include <map>

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

// Each field with its caption, where it stands: inputs on the left, results on the right, the
// subject and the sheet number on top.
struct Placed {
  const char* Label;
  const char* Control;
  int Row, Col;
};
constexpr Placed kHeader[] = {{"LblThema", "TxtThema", 0, 0},
                              {"Lbla_a", "Txta_a", 0, 3},
                              {"LblOwnership", "TxtOwnership", 1, 0},
                              {"LblLoopNo", "TxtLoopNo", 2, 0},
                              {"LblTempDrop", "TxtTempDrop", 3, 0},
                              {"LblOrigTemp", "TxtOrigTemp", 4, 0},
                              {"LblLoopLength", "TxtLoopLength", 5, 0},
                              {"LblOtherRes", "TxtOtherRes", 6, 0},
                              {"LblPipes", "CboPipes", 7, 0},
                              {"LblLoopLoad", "TxtLoopLoad", 1, 3},
                              {"LblFlow", "TxtFlow", 2, 3},
                              {"LblVelocity", "TxtVelocity", 3, 3},
                              {"LblSFR", "TxtSFR", 4, 3},
                              {"LblSomata", "CboSomata", 6, 3}};

// The commands under the grid: those on the rows, then those on the sheets and the study.
constexpr const char* kRowCommands[] = {"CmdAddSpaces", "CmdRemoveSpaces", "CmdOneRowUp",
                                        "CmdOneRowDn",  "CmdPaste",        "CmdEditCols",
                                        "CmdDeleteRow", "CmdDeleteColumn"};
constexpr const char* kSheetCommands[] = {"CmdFirst", "CmdPrev",        "CmdNext",
                                          "CmdLast",  "CmdDeleteSheet", "CmdSave",
                                          "CmdOpen",  "CmdNew",         "Cmd_Client"};

// The radiator's number, its type and its name read from the left; the numbers from the right.
std::vector<Qt::Alignment> ColumnAlignments() {
  std::vector<Qt::Alignment> alignments(kGridCols, Qt::AlignVCenter | Qt::AlignRight);
  for (const int col : {1, 10, 11}) alignments[col - 1] = Qt::AlignVCenter | Qt::AlignLeft;
  return alignments;
}

}  // namespace

FrmRavolinView::FrmRavolinView(FrmRavolin& logic, CommandBoundary& boundary, QWidget* parent)
    : QWidget(parent), logic_(logic), kit_(*this, logic, boundary) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  auto* header = new QGridLayout();
  header->setHorizontalSpacing(6);
  header->setVerticalSpacing(4);
  BuildHeader(header);
  layout->addLayout(header);
  kit_.AlignColumns("Grid", ColumnAlignments());
  BuildGrid();
  layout->addWidget(kit_.Make("Grid"));
  layout->addLayout(BuildCommands());
  layout->addStretch(1);
  // As wide as the grid needs, no taller than the screen needs: the dialogs open beneath it.
  resize(1000, sizeHint().height());
  // The title names the study file beside the screen's caption, as desktop windows do.
  kit_.SetTitle([this](const QString& caption) {
    const std::string& file = logic_.StudyFileName();
    if (file.empty()) return caption;
    const QString name = QString::fromStdString(std::filesystem::path(file).filename().string());
    return name + QStringLiteral(" — ") + caption;
  });
  kit_.Render();
}

void FrmRavolinView::BuildHeader(QGridLayout* layout) {
  for (const Placed& p : kHeader) {
    auto* label = kit_.Make<QLabel>(p.Label);
    layout->addWidget(label, p.Row, p.Col, Qt::AlignRight | Qt::AlignVCenter);
    QWidget* widget = kit_.Make(p.Control);
    const std::string name = p.Control;
    if (name == "TxtThema") {
      layout->addWidget(widget, p.Row, p.Col + 1, 1, 2);
      continue;
    }
    if (name == "CboSomata") {
      // The family's whole name: the box takes the width of its caption and its field.
      layout->removeWidget(label);
      layout->addWidget(label, p.Row - 1, p.Col, 1, 3, Qt::AlignLeft | Qt::AlignBottom);
      layout->addWidget(widget, p.Row, p.Col, 1, 3);
      continue;
    }
    widget->setMaximumWidth(name == "TxtOwnership" || name == "TxtLoopNo" ? 260 : 110);
    layout->addWidget(widget, p.Row, p.Col + 1);
    if (Units().count(name))
      layout->addWidget(new QLabel(QString::fromUtf8(Units().at(name)), this), p.Row, p.Col + 2);
  }
  // A result box frames its figure as an input box does, and reads as clearly; it is never
  // typed into, but its figure can be selected and copied.
  for (const char* result : {"Txta_a", "TxtLoopLoad", "TxtFlow", "TxtVelocity", "TxtSFR"}) {
    auto* box = kit_.Make<QLabel>(result);
    box->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    box->setAutoFillBackground(true);
    box->setBackgroundRole(QPalette::Base);
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    box->setMinimumWidth(90);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
  }
  auto* calc = kit_.Make<QPushButton>("CmdCalc");
  calc->setFocusPolicy(Qt::TabFocus);
  layout->addWidget(calc, 7, 4);
  layout->setColumnStretch(2, 1);
  layout->setColumnStretch(5, 1);
}

void FrmRavolinView::BuildGrid() {
  auto* grid = kit_.Make<QTableView>("Grid");
  QHeaderView* heads = grid->horizontalHeader();
  heads->setDefaultAlignment(Qt::Alignment(Qt::AlignCenter | Qt::TextWordWrap));
  heads->setMinimumHeight(118);
  QFont small = heads->font();
  small.setPointSizeF(small.pointSizeF() * 0.8);
  heads->setFont(small);
  for (int col = 0; col < kGridCols; ++col) grid->setColumnWidth(col, kColumnWidths[col]);
  grid->verticalHeader()->setDefaultSectionSize(26);
  grid->verticalHeader()->setMinimumWidth(24);
  // The eight rows of a loop and the heads, without an empty area below them.
  grid->setFixedHeight(heads->minimumHeight() + kGridRows * 26 + 2 * grid->frameWidth() + 4);
}

QVBoxLayout* FrmRavolinView::BuildCommands() {
  auto* rows = new QVBoxLayout();
  for (const auto& names :
       {std::vector<const char*>(std::begin(kRowCommands), std::end(kRowCommands)),
        std::vector<const char*>(std::begin(kSheetCommands), std::end(kSheetCommands))}) {
    auto* row = new QHBoxLayout();
    for (const char* name : names) {
      auto* button = kit_.Make<QPushButton>(name);
      button->setFocusPolicy(Qt::TabFocus);
      row->addWidget(button);
    }
    row->addStretch(1);
    rows->addLayout(row);
  }
  return rows;
}

void FrmRavolinView::closeEvent(QCloseEvent* event) {
  kit_.Run([this] { logic_.Form_Unload(); });
  event->accept();
}
