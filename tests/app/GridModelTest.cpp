// The grid model over a real TextGrid: Qt's own checks of a model, and the alignments it is given.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

#include "GridModel.h"

namespace {

TEST(GridModel, PassesQtsModelChecksAndShowsTheAlignmentsItIsGiven) {
  TextGrid grid(3, 2);
  grid.SetHead(1, "ΤΥΠΟΣ ΣΩΜΑ- ΤΟΣ");
  grid.SetText(1, 1, "Σ1");
  grid.SetLocked(1, 2, true);
  const std::vector<Qt::Alignment> given = {Qt::AlignLeft | Qt::AlignVCenter,
                                            Qt::AlignRight | Qt::AlignTop};
  GridModel model(grid, given, [&](int r, int c, const std::string& t) { grid.SetText(r, c, t); });
  QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
  EXPECT_TRUE(model.setData(model.index(2, 1), QStringLiteral("1.000"), Qt::EditRole));
  model.Refresh();
  EXPECT_EQ(grid.Text(3, 2), "1.000");
  EXPECT_FALSE(model.flags(model.index(0, 1)).testFlag(Qt::ItemIsEditable));
  for (int col = 0; col < 2; ++col)
    EXPECT_EQ(model.data(model.index(1, col), Qt::TextAlignmentRole).value<Qt::Alignment>(),
              given[col]);
}

}  // namespace
