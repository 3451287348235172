// Sizing one radiator: the unit count with its rounded divisibility test, the rating table of
// the sections with its Greek-keyboard spellings, and the stepped family read from the working
// copy, with its discontinuities walked as the engineers' files expect; and the cascade of the
// water temperature along one row.
#include <optional>

#include "Faults.h"
#include "RowCascade.h"
#include "SheetsFixture.h"

namespace {

TEST(UnitCountTest, CountsOrFails) {
  const struct {
    float Load, Rating;
    bool SecondTest;
    std::optional<int16_t> Units;  // nullopt: the failure below
    FaultCode Fault = FaultCode::DivisionByZero;
  } cases[] = {
      {500, 90, false, 6},                         // 500 mod 90 = 50: Int(5.56) + 1
      {450, 90, false, 5},                         // an exact multiple
      {450.4f, 90, false, 5},                      // 450 by the rounded test: 0.4 short, by design
      {180.4f, 90, false, 2},                      //
      {180.6f, 90, false, 3},                      // rounds to 181
      {3001.5f, 1000.5f, true, 4},                 // 3002 mod 1000 (both halves to even) = 2
      {301, 100, true, 4},                         // not a multiple: the second test is not met
      {300, 100, false, 3},                        //
      {-100, 90, false, -1},                       // a room warmer than the water: Int(-1.1) + 1
      {300, 100, true, {}},                        // exact multiple, stepped family
      {299.6f, 100, true, {}},                     // rounds to the multiple 300
      {100, 0.4f, false, {}},                      // a rating below 0.5 rounds to 0
      {1e7f, 90, false, {}, FaultCode::Overflow},  // 111112 units
      {1e10f, 90, false, {}, FaultCode::Overflow},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.Load) + " / " + std::to_string(c.Rating));
    if (c.Units)
      EXPECT_EQ(UnitCount(c.Load, c.Rating, c.SecondTest), *c.Units);
    else
      EXPECT_EQ(FaultOf([&] { UnitCount(c.Load, c.Rating, c.SecondTest); }), c.Fault);
  }
}

TEST_F(SheetsTest, SectionsAbove32767KcalOverflow) {
  RadiatorSizing sizing(ws, state);
  SomaSize size;
  // 400 sections of II/905 are 36000 Kcal/h: the product leaves the 16-bit range.
  EXPECT_EQ(FaultOf([&] { sizing.CalculateSoma_Fetes(0, 36000, "II/905", size); }, "II/905"),
            FaultCode::Overflow);
}

// ---- The stepped family --------------------------------------------------------------------

class PanelSizingTest : public SheetsTest {
 protected:
  void WorkingCopy(std::vector<SomaRecord> models) {
    WriteTypeFile(SomataWorkingCopy.Name, 2, "Χαλύβδινα Πάνελ", std::move(models));
  }
  SomaSize Size(float load, const std::string& model) {
    SomaSize size;
    sizing.CalculateSoma_Panel(0, load, model, size);
    return size;
  }
  RadiatorSizing sizing{ws, state};
};

TEST_F(PanelSizingTest, WalksTheDiscontinuitiesWithTheTokenKept) {
  const struct {
    const char* Discon;
    float Load;  // with UnitOutput 100
    const char* Text;
  } cases[] = {
      {"8,10,", 750, "900/22/600"},     // n = 8 is not made: 9
      {"8,10,", 950, "1000/22/600"},    // 10 meets the token "810"
      {"8", 750, "800/22/600"},         // no comma behind it
      {"7,8,", 750, "800/22/600"},      // the second token is "78"
      {"8,9,", 750, "900/22/600"},      // 8 -> 9, then "89"
      {" 8,", 750, "900/22/600"},       // blanks around are read
      {"8 ,", 750, "900/22/600"},       //
      {"", 750, "800/22/600"},          //
      {"24,27,", 2350, "2500/22/600"},  // 24 -> 25
  };
  for (const auto& c : cases) {
    WorkingCopy({Stepped("22/600", 100, 0.25f, 100, "400", 1, 30, c.Discon)});
    EXPECT_EQ(Size(c.Load, "22/600").SomaText, c.Text) << c.Discon;
  }
}

// A blank inside the list, an empty token or a first body that is no number is a failure
// naming the model; an empty working copy from the start divides by zero.
TEST_F(PanelSizingTest, AFamilyThatCannotBeReadIsAFailure) {
  const struct {
    const char* FirstSoma;
    const char* Discon;
    FaultCode Fault;
  } cases[] = {{"400", "8, 10,", FaultCode::TypeMismatch},
               {"400", ",,,,,,,,", FaultCode::TypeMismatch},
               {"400", ",", FaultCode::TypeMismatch},
               {"40Ο", "", FaultCode::TypeMismatch}};
  for (const auto& c : cases) {
    WorkingCopy({Stepped("22/600", 100, 0.25f, 100, c.FirstSoma, 1, 30, c.Discon)});
    EXPECT_EQ(FaultOf([&] { Size(950, "22/600"); }, "22/600"), c.Fault) << c.Discon;
  }
  WriteAllBytes(folder / SomataWorkingCopy.Name, "");
  EXPECT_EQ(FaultOf([&] { Size(1000, "22/600"); }), FaultCode::DivisionByZero);
}

TEST_F(PanelSizingTest, AMissingWorkingCopyIsCreatedEmptyAndTheRecordReadBeforeStays) {
  WorkingCopy({Stepped("22/600", 150, 0.25f, 100, "400", 4, 30, "")});
  Size(1000, "22/600");
  std::filesystem::remove(folder / SomataWorkingCopy.Name);
  EXPECT_EQ(Size(1000, "11/600").SomaText, "700/11/600");
  EXPECT_TRUE(std::filesystem::exists(folder / SomataWorkingCopy.Name));
  EXPECT_EQ(std::filesystem::file_size(folder / SomataWorkingCopy.Name), 0u);
  EXPECT_EQ(state.SomaRecords, 0);
}

TEST_F(PanelSizingTest, StepsForTheRangeCheckIgnoreTheDiscontinuities) {
  WorkingCopy({Stepped("22/600", 150, 0.25f, 100, "400", 4, 8, "8,")});
  int16_t minSteps = 0, maxSteps = 0;
  EXPECT_EQ(sizing.StepsWithoutDiscontinuities(1137, "22/600", minSteps, maxSteps), 8);
  EXPECT_EQ(minSteps, 4);
  EXPECT_EQ(maxSteps, 8);
  // ...while the sizing steps over 8: one step above the largest size, as kept.
  EXPECT_EQ(Size(1137, "22/600").SomaText, "900/22/600");
}

// The cascade of one row, worked by hand from the formula: out = in - load / flow,
// mean = (out + in) / 2, factor = 60 / (mean - room), equivalent = load × factor, each kept in
// single precision before the next step uses it.
TEST(RowCascadeTest, WorkedByHand) {
  const struct {
    float In, Load, Room;
    std::optional<float> Flow;
    float OutWithoutFlow;
    RowTemperatures Expected;
  } cases[] = {
      // 80 - 1000 / 50 = 60, mean 70, 60 / 50 = 1.2 kept as 1.20000005; 1000 × 1.20000005
      // = 1200.00005, kept as 1200.
      {80, 1000, 20, 50.0f, 0, {60, 70, 1.20000005f, 1200}},
      // 70 - 900 / 60 = 55, mean 62.5, 60 / 42.5 = 1.41176471 kept as 1.41176474;
      // 900 × 1.41176474 = 1270.588267, kept as 1270.58826.
      {70, 900, 20, 60.0f, 0, {55, 62.5f, 1.41176474f, 1270.58826f}},
      // 80 - 1000 / 45 = 57.7777778 kept as 57.7777786; the mean of that and 80 is
      // 68.8888893, kept as 68.8888855; 60 / 50.8888855 = 1.17903937 kept as 1.17903936;
      // 1000 × 1.17903936 = 1179.039359, kept as 1179.03931.
      {80, 1000, 18, 45.0f, 0, {57.7777786f, 68.8888855f, 1.17903936f, 1179.03931f}},
      // 90 - 1500 / 40 = 52.5, mean 71.25, 60 / 49.25 = 1.21827411 kept as 1.21827412;
      // 1500 × 1.21827412 = 1827.41117, kept as 1827.41113.
      {90, 1500, 22, 40.0f, 0, {52.5f, 71.25f, 1.21827412f, 1827.41113f}},
      // The water may cool to the room: 30 - 10 = 20, mean 25, 60 / 5 = 12.
      {30, 1000, 20, 100.0f, 0, {20, 25, 12, 12000}},
      // No flow yet: the outlet of the row before (65) stands, mean 70.
      {75, 500, 20, std::nullopt, 65, {65, 70, 1.20000005f, 600}},
      // No flow on the first row: the outlet is 0, mean 40, 60 / 20 = 3.
      {80, 450, 20, std::nullopt, 0, {0, 40, 3, 1350}},
  };
  for (const auto& c : cases) {
    const RowTemperatures t = CascadeRow(c.In, c.Load, c.Room, c.Flow, c.OutWithoutFlow);
    const RowTemperatures& e = c.Expected;
    EXPECT_EQ(std::tuple(t.Out, t.Mean, t.Factor, t.Equivalent),
              std::tuple(e.Out, e.Mean, e.Factor, e.Equivalent))
        << c.In << " " << c.Load;
  }
  // A flow of 0; and 30 - 200 / 20 = 20, mean 25: the room's own.
  EXPECT_EQ(FaultOf([] { CascadeRow(80, 1000, 20, 0.0f); }), FaultCode::DivisionByZero);
  EXPECT_EQ(FaultOf([] { CascadeRow(30, 200, 25, 20.0f); }), FaultCode::DivisionByZero);
}

}  // namespace
