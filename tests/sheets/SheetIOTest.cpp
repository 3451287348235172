// The sheet between the screen and the working files: the records SaveTemporarData writes,
// the water content of every sheet, and what comes back to the screen.
#include "SheetsFixture.h"

namespace {

class SheetIOTest : public SheetsTest {
 protected:
  SheetIOTest() {
    WritePipes({"Φ16x1", "Φ18x1", "Φ20x2"});
    WriteSectionFamily(1.5f);  // 1.5 l of water per radiator of any model
  }
  // Sheet 1 on the screen: three radiators, calculated.
  void CalculatedSheet(const std::string& pipe = "Φ16x1") {
    Load();
    TypeHeader("20", "85", "12.5");
    Choose("CboPipes", pipe);
    const char* loads[] = {"1000", "800", "600"};
    for (int row = 1; row <= 3; ++row) Radiator(row, std::to_string(row), loads[row - 1]);
    Key(KeyCode::F10);
    ASSERT_EQ(state.Calculated, -1);
  }
  bool Save() { return Do(&FrmRavolin::SaveTemporarData); }
  std::vector<LoopRecord> Loops() { return RecordFile<LoopRecord>(folder / "LOOPS.TMP").ReadAll(); }
  std::vector<SheetRecord> Sheets() {
    return RecordFile<SheetRecord>(folder / "SHEETS.TMP").ReadAll();
  }
  // A sheet written straight into the files, as an earlier save left it.
  void SavedSheet(int16_t sheet, const std::string& pipe, float length,
                  const std::vector<std::string>& models, float category = 1) {
    SheetRecord s;
    s.SheetNo = sheet;
    s.PipeName = pipe;
    s.LoopLength = length;
    s.SomaCategoryNo = category;
    s.ResultsValid = -1;
    RecordFile<SheetRecord>(folder / "SHEETS.TMP").Write(sheet, s);
    RecordFile<LoopRecord> loops(folder / "LOOPS.TMP");
    for (int row = 1; row <= 8; ++row) {
      LoopRecord r;
      r.SheetNo = sheet;
      r.RowNo = static_cast<int16_t>(row);
      if (row <= static_cast<int>(models.size())) {
        r.SomaNo = std::to_string(row);
        r.SomaType = models[row - 1];
        r.Load = 500;
        r.RoomTemp = 20;
      }
      loops.Write(LoopRecordNumber(sheet, row), r);
    }
  }
};

// Reserved bytes of the loop records are written back unchanged.
TEST_F(SheetIOTest, ASheetOfThreeRadiatorsHasEightRecordsAndEmptyRowsAreZero) {
  LoopRecord old;
  old.Reserved1 = std::string(53, 'R');
  old.Reserved2 = std::string(16, '\x7f');
  RecordFile<LoopRecord>(folder / "LOOPS.TMP").Write(2, old);
  CalculatedSheet();
  ASSERT_TRUE(Save());
  const std::string bytes = Bytes("LOOPS.TMP");
  EXPECT_EQ(bytes.substr(298 + 110, 53), std::string(53, 'R'));
  EXPECT_EQ(bytes.substr(298 + 282, 16), std::string(16, '\x7f'));
  EXPECT_EQ(bytes.substr(110, 53), std::string(53, '\0'));  // a new record: zeros
  const auto loops = Loops();
  ASSERT_EQ(loops.size(), 8u);
  EXPECT_EQ(std::filesystem::file_size(folder / "LOOPS.TMP"), 8u * 298);
  // Rows past the radiators are written empty: names blank, numbers zero.
  const LoopRecord& last = loops[7];
  EXPECT_EQ(std::tuple(last.RowNo, last.PipeName, last.SomaType, last.Load, last.SomaWater),
            std::tuple(8, "Φ16x1", "", 0.0f, 0.0f));
  const LoopRecord& first = loops[0];
  // 986 Kcal/h at 80/20: 11 sections of 90.
  EXPECT_EQ(std::tuple(first.SomaNo, first.Load, first.InletTemp, first.SomaType, first.SomaText,
                       first.SomaOutput),
            std::tuple("1", 1000.0f, 85.0f, "II/905", "11/II/905", 990.0f));
  EXPECT_FLOAT_EQ(first.OutletTemp, 85.0f - 1000.0f / 120.0f);
  // The second row enters with what the first one's record left.
  EXPECT_EQ(loops[1].InletTemp, first.OutletTemp);
  EXPECT_FLOAT_EQ(loops[2].OutletTemp, 65.0f);

  const SheetRecord sheet = Sheets().at(0);
  EXPECT_EQ(std::tuple(sheet.LoopLength, sheet.Flow, sheet.ResultsValid, sheet.SomaCategoryNo,
                       sheet.TotalLoad, sheet.RealOutput),
            std::tuple(12.5f, 120.0f, -1.0f, 1.0f, 2400.0f, 990.0f + 900.0f + 810.0f));
  // 12.5 m of Φ16x1 at 0.15 l/m, and 1.5 l once per radiator.
  EXPECT_FLOAT_EQ(sheet.WaterContent, 12.5f * 0.15f + 3 * 1.5f);
}

TEST_F(SheetIOTest, TheStoredResistanceComesFromTheFlowAsItsTextShowsIt) {
  Load();
  TypeHeader("8", "30");
  Radiator(1, "1", "550", "10");  // 68.75 l/h, shown as 68.8
  Key(KeyCode::F10);
  EXPECT_EQ(form->TxtFlow.Text, "68.8");
  EXPECT_EQ(form->TxtSFR.Text, "7.14");
  ASSERT_TRUE(Save());
  const SheetRecord sheet = Sheets().at(0);
  EXPECT_FLOAT_EQ(sheet.Flow, 68.8f);
  EXPECT_EQ(state.FormatF(sheet.SpecificResistance, "#,##0.00"), "7.15");
}

TEST_F(SheetIOTest, WaterContentOfEverySheetCarriesTheLitresOfTheSheetBefore) {
  SavedSheet(1, "Φ20x2", 10, {"II/905", "II/655"});  // unknown pipe first: radiators only
  SavedSheet(2, "Φ18x1", 10, {"II/905"});            // 0.2 l/m
  SavedSheet(3, "Φ20x2", 20, {"ΧΧ/905", "II/505"});  // carries 0.2; an unknown model adds 0
  SavedSheet(4, "Φ16x1", 10, {"22/600"}, 2);         // no type file has family 2
  CalculatedSheet();
  form->Txta_a.Text = "5";
  ASSERT_TRUE(Save());
  const auto sheets = Sheets();
  ASSERT_EQ(sheets.size(), 5u);
  EXPECT_FLOAT_EQ(sheets[0].WaterContent, 3.0f);
  EXPECT_FLOAT_EQ(sheets[1].WaterContent, 2.0f + 1.5f);
  EXPECT_FLOAT_EQ(sheets[2].WaterContent, 4.0f + 1.5f);
  EXPECT_FLOAT_EQ(sheets[3].WaterContent, 1.5f);
  const auto loops = Loops();
  EXPECT_EQ(loops[LoopRecordNumber(3, 1) - 1].SomaWater, 0.0f);  // not found: kept as it was
  EXPECT_EQ(loops[LoopRecordNumber(3, 2) - 1].SomaWater, 1.5f);
  EXPECT_EQ(state.SheetCount, 5);
}

TEST_F(SheetIOTest, ASheetComesBackCalculatedWhateverItsRecordSaid) {
  CalculatedSheet();
  ASSERT_TRUE(Save());
  {
    RecordFile<SheetRecord> sheets(folder / "SHEETS.TMP");
    SheetRecord s = sheets.Read(1);
    s.ResultsValid = 0.5f;
    sheets.Write(1, s);
  }
  state.Calculated = 0;
  form->DeleteSpreadData();
  ASSERT_TRUE(boundary.Run(*form, [&] { form->LoadSheet(1); }));
  EXPECT_EQ(state.Calculated, -1);
  EXPECT_EQ(form->Grid.Text(3, 4) + " " + form->TxtLoopLoad.Text + " " + form->TxtOtherRes.Text,
            "2,400 2,400 0.00");
  EXPECT_EQ(state.Thema, "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ");
}

TEST_F(SheetIOTest, BringingASheetBackTakesItsFamilyAsTheWorkingCopy) {
  WriteTypeFile("Πάνελ.ths", 2, "Πάνελ", {Stepped("22/600", 150, 0.25f, 100, "400", 1, 30, "")});
  SavedSheet(1, "Φ16x1", 10, {"22/600"}, 2);
  Load();
  ASSERT_EQ(state.SomaCategory, 1);
  ASSERT_TRUE(boundary.Run(*form, [&] { form->LoadSheet(1); }));
  EXPECT_EQ(state.SomaCategory, 2);
  EXPECT_EQ(form->CboSomata.Text(), "Πάνελ");
  EXPECT_EQ(ReadAllBytes(folder / SomataWorkingCopy.Name), ReadAllBytes(folder / "Πάνελ.ths"));
  EXPECT_EQ(form->Grid.List(1, 10), std::vector<std::string>{"22/600"});
  EXPECT_EQ(form->Grid.Text(1, 10), "22/600");
}

TEST_F(SheetIOTest, AnEmptySheetOfAStudyAsksWhetherItIsToGoAndTheOnlySheetNeverGoes) {
  SavedSheet(1, "Φ16x1", 10, {"II/905"});
  Load();
  prompter.Clear();
  prompter.QueueAnswer(Answer::No);
  const std::string before = Bytes("SHEETS.TMP");
  ASSERT_TRUE(Save());
  ExpectBox("!! ΔΕΝ ΥΠΑΡΧΟΥΝ ΔΕΔΟΜΕΝΑ ΓΙΑ ΤΟ ΤΡΕΧΟΝ ΦΥΛΛΟ ΥΠΟΛΟΓΙΣΜΩΝ !!");
  EXPECT_EQ(Bytes("SHEETS.TMP"), before);
  EXPECT_EQ(state.LastAnswer, "");
  ASSERT_TRUE(boundary.Run(*form, [&] { form->LoadSheet(1); }));
  prompter.Clear();
  ASSERT_TRUE(Do(&FrmRavolin::CmdDeleteSheet_Click));
  EXPECT_TRUE(prompter.History().empty());
  EXPECT_EQ(Sheets().size(), 1u);
}

}  // namespace
