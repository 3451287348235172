// Sizing one radiator: the unit count with its rounded divisibility test, the rating table of
// the sections with its Greek-keyboard spellings, and the stepped family read from the working
// copy, with its discontinuities walked as the engineers' files expect.
#include <optional>

#include "Faults.h"
#include "SheetsFixture.h"

namespace {

struct UnitCountCase {
  float Load, Rating;
  bool SecondTest;
  std::optional<int16_t> Units;  // nullopt: the failure below
  FaultCode Fault = FaultCode::DivisionByZero;
};

class UnitCountTest : public ::testing::TestWithParam<UnitCountCase> {};

TEST_P(UnitCountTest, CountsOrFails) {
  const UnitCountCase& c = GetParam();
  if (c.Units) {
    EXPECT_EQ(UnitCount(c.Load, c.Rating, c.SecondTest), *c.Units);
  } else {
    EXPECT_EQ(FaultOf([&] { UnitCount(c.Load, c.Rating, c.SecondTest); }), c.Fault);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Loads, UnitCountTest,
    ::testing::Values(
        UnitCountCase{500, 90, false, 6},     // 500 mod 90 = 50: Int(5.56) + 1
        UnitCountCase{450, 90, false, 5},     // an exact multiple
        UnitCountCase{450.4f, 90, false, 5},  // 450 by the rounded test: 0.4 short, by design
        UnitCountCase{180.4f, 90, false, 2}, UnitCountCase{180.6f, 90, false, 3},  // rounds to 181
        UnitCountCase{3001.5f, 1000.5f, true, 4},  // 3002 mod 1000 (both halves to even) = 2
        UnitCountCase{301, 100, true, 4},          // not a multiple: the second test is not met
        UnitCountCase{300, 100, false, 3},
        UnitCountCase{-100, 90, false, -1},           // a room warmer than the water: Int(-1.1) + 1
        UnitCountCase{300, 100, true, std::nullopt},  // exact multiple, stepped family
        UnitCountCase{299.6f, 100, true, std::nullopt},  // rounds to the multiple 300
        UnitCountCase{100, 0.4f, false, std::nullopt},   // a rating below 0.5 rounds to 0
        UnitCountCase{1e7f, 90, false, std::nullopt, FaultCode::Overflow},  // 111112 units
        UnitCountCase{1e10f, 90, false, std::nullopt, FaultCode::Overflow}));

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

struct DisconCase {
  const char* Discon;
  float Load;  // with UnitOutput 100
  const char* Text;
};

class DisconTest : public PanelSizingTest, public ::testing::WithParamInterface<DisconCase> {};

TEST_P(DisconTest, WalksTheListWithTheTokenKept) {
  const DisconCase& c = GetParam();
  WorkingCopy({Stepped("22/600", 100, 0.25f, 100, "400", 1, 30, c.Discon)});
  EXPECT_EQ(Size(c.Load, "22/600").SomaText, c.Text) << c.Discon;
}

INSTANTIATE_TEST_SUITE_P(
    Lists, DisconTest,
    ::testing::Values(DisconCase{"8,10,", 750, "900/22/600"},       // n = 8 is not made: 9
                      DisconCase{"8,10,", 950, "1000/22/600"},      // 10 meets the token "810"
                      DisconCase{"8", 750, "800/22/600"},           // no comma behind it
                      DisconCase{"7,8,", 750, "800/22/600"},        // the second token is "78"
                      DisconCase{"8,9,", 750, "900/22/600"},        // 8 -> 9, then "89"
                      DisconCase{" 8,", 750, "900/22/600"},         // blanks around are read
                      DisconCase{"8 ,", 750, "900/22/600"},         //
                      DisconCase{"", 750, "800/22/600"},            //
                      DisconCase{"24,27,", 2350, "2500/22/600"}));  // 24 -> 25

TEST_F(PanelSizingTest, ABlankInsideTheListOrAnEmptyTokenIsAFailureNamingTheList) {
  for (const char* discon : {"8, 10,", ",,,,,,,,", ","}) {
    WorkingCopy({Stepped("22/600", 100, 0.25f, 100, "400", 1, 30, discon)});
    EXPECT_EQ(FaultOf([&] { Size(950, "22/600"); }, "22/600"), FaultCode::TypeMismatch) << discon;
  }
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

TEST_F(PanelSizingTest, AnEmptyWorkingCopyFromTheStartDividesByZero) {
  WriteAllBytes(folder / SomataWorkingCopy.Name, "");
  EXPECT_THROW(Size(1000, "22/600"), RuntimeFault);
}

TEST_F(PanelSizingTest, AFirstBodyThatIsNoNumberIsReported) {
  WorkingCopy({Stepped("22/600", 150, 0.25f, 100, "40Ο", 4, 30, "")});
  EXPECT_EQ(FaultOf([&] { Size(1000, "22/600"); }), FaultCode::TypeMismatch);
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

}  // namespace
