// The cascade of one row, worked by hand from the formula: out = in - load / flow,
// mean = (out + in) / 2, factor = 60 / (mean - room), equivalent = load × factor, each kept in
// single precision before the next step uses it.
#include <gtest/gtest.h>

#include <optional>

#include "Faults.h"
#include "RowCascade.h"

namespace {

struct CascadeCase {
  float In, Load, Room;
  std::optional<float> Flow;
  float OutWithoutFlow;
  RowTemperatures Expected;
};

class RowCascadeTest : public ::testing::TestWithParam<CascadeCase> {};

TEST_P(RowCascadeTest, WorkedByHand) {
  const CascadeCase& c = GetParam();
  const RowTemperatures t = CascadeRow(c.In, c.Load, c.Room, c.Flow, c.OutWithoutFlow);
  EXPECT_EQ(t.Out, c.Expected.Out);
  EXPECT_EQ(t.Mean, c.Expected.Mean);
  EXPECT_EQ(t.Factor, c.Expected.Factor);
  EXPECT_EQ(t.Equivalent, c.Expected.Equivalent);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RowCascadeTest,
    ::testing::Values(
        // 80 - 1000 / 50 = 60, mean 70, 60 / 50 = 1.2 kept as 1.20000005; 1000 × 1.20000005
        // = 1200.00005, kept as 1200.
        CascadeCase{80, 1000, 20, 50.0f, 0, {60, 70, 1.20000005f, 1200}},
        // 70 - 900 / 60 = 55, mean 62.5, 60 / 42.5 = 1.41176471 kept as 1.41176474;
        // 900 × 1.41176474 = 1270.588267, kept as 1270.58826.
        CascadeCase{70, 900, 20, 60.0f, 0, {55, 62.5f, 1.41176474f, 1270.58826f}},
        // 80 - 1000 / 45 = 57.7777778 kept as 57.7777786; the mean of that and 80 is
        // 68.8888893, kept as 68.8888855; 60 / 50.8888855 = 1.17903937 kept as 1.17903936;
        // 1000 × 1.17903936 = 1179.039359, kept as 1179.03931.
        CascadeCase{80, 1000, 18, 45.0f, 0, {57.7777786f, 68.8888855f, 1.17903936f, 1179.03931f}},
        // 90 - 1500 / 40 = 52.5, mean 71.25, 60 / 49.25 = 1.21827411 kept as 1.21827412;
        // 1500 × 1.21827412 = 1827.41117, kept as 1827.41113.
        CascadeCase{90, 1500, 22, 40.0f, 0, {52.5f, 71.25f, 1.21827412f, 1827.41113f}},
        // The water may cool to the room: 30 - 10 = 20, mean 25, 60 / 5 = 12.
        CascadeCase{30, 1000, 20, 100.0f, 0, {20, 25, 12, 12000}},
        // No flow yet: the outlet of the row before (65) stands, mean 70.
        CascadeCase{75, 500, 20, std::nullopt, 65, {65, 70, 1.20000005f, 600}},
        // No flow on the first row: the outlet is 0, mean 40, 60 / 20 = 3.
        CascadeCase{80, 450, 20, std::nullopt, 0, {0, 40, 3, 1350}}));

struct FailingCase {
  float In, Load, Room;
  std::optional<float> Flow;
};

class RowCascadeFailure : public ::testing::TestWithParam<FailingCase> {};

TEST_P(RowCascadeFailure, DividesByZero) {
  const FailingCase& c = GetParam();
  EXPECT_EQ(FaultOf([&] { CascadeRow(c.In, c.Load, c.Room, c.Flow); }), FaultCode::DivisionByZero);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RowCascadeFailure,
    ::testing::Values(FailingCase{80, 1000, 20,
                                  0.0f},  // a flow of 0
                                          // 30 - 200 / 20 = 20, mean 25: the room's own
                      FailingCase{30, 200, 25, 20.0f}));

}  // namespace
