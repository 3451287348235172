// Whole sheets worked out independently of the program (oracle/whole_sheets.py): every input
// typed as an engineer types it, F10, and every cell and header text compared.
#include <array>

#include "SheetsFixture.h"

namespace {

struct WholeSheetModel {
  const char* SomaType;
  float UnitOutput;
  float UnitArea;
  float Step;
  const char* FirstSoma;
  int16_t MinSteps, MaxSteps;
  const char* Discon;
};

struct WholeSheetRow {
  const char* SomaNo;
  const char* Load;
  const char* Room;
  const char* Model;
};

struct WholeSheetCase {
  const char* Name;
  bool Greek;
  const char* TempDrop;
  const char* OrigTemp;
  std::vector<WholeSheetModel> Models;
  std::vector<WholeSheetRow> Rows;
  const char* Outcome;
  const char* LoopLoad;
  const char* Flow;
  const char* Velocity;
  const char* SFR;
  std::vector<std::array<const char*, 14>> Cells;
};

void PrintTo(const WholeSheetCase& c, std::ostream* os) {
  *os << c.Name;
}

const std::vector<WholeSheetCase>& Cases() {
  static const std::vector<WholeSheetCase> cases = {
#include "WholeSheetCases.inc"
  };
  return cases;
}

constexpr const char* kPanelFamily = "Χαλύβδινα Πάνελ";

class WholeSheet : public SheetsTest, public ::testing::WithParamInterface<WholeSheetCase> {
 protected:
  void Enter(const WholeSheetCase& c) {
    platform.Seps = c.Greek ? kGreek : kEnglish;
    WritePipes({"Φ16x1", "Φ18x1"});
    WriteSectionFamily();
    if (!c.Models.empty()) {
      std::vector<SomaRecord> models;
      for (const WholeSheetModel& m : c.Models)
        models.push_back(Stepped(m.SomaType, m.UnitOutput, m.UnitArea, m.Step, m.FirstSoma,
                                 m.MinSteps, m.MaxSteps, m.Discon));
      WriteTypeFile("Πάνελ.ths", 2, kPanelFamily, models);
    }
    Load();
    if (!c.Models.empty()) Choose("CboSomata", kPanelFamily);
    TypeHeader(c.TempDrop, c.OrigTemp);
    for (std::size_t i = 0; i < c.Rows.size(); ++i) {
      const int row = static_cast<int>(i) + 1;
      Radiator(row, c.Rows[i].SomaNo, c.Rows[i].Load, c.Rows[i].Room, c.Rows[i].Model);
    }
    prompter.Clear();
  }

  // The header's texts that the working files keep. Velocity and resistance are stored as
  // worked again from the flow's text (one decimal), so only they may differ in the last place;
  // a test of their own pins that down.
  std::vector<std::string> Header() const {
    return {form->TxtThema.Text,    form->TxtOwnership.Text, form->TxtLoopNo.Text,
            form->TxtTempDrop.Text, form->TxtOrigTemp.Text,  form->TxtLoopLength.Text,
            form->TxtLoopLoad.Text, form->TxtFlow.Text};
  }
  // What the screen shows after the sheet is saved comes back the same from the working files.
  void ExpectSavedAndBack() {
    ASSERT_TRUE(Do(&FrmRavolin::SaveTemporarData));
    const TextGrid saved = form->Grid;
    const std::vector<std::string> header = Header();
    form->DeleteSpreadData();
    for (Field* f : {&form->TxtOwnership, &form->TxtLoopNo, &form->TxtFlow, &form->TxtLoopLoad})
      f->Text.clear();
    ASSERT_TRUE(boundary.Run(*form, [&] { form->LoadSheet(1); }));
    EXPECT_EQ(Header(), header);
    EXPECT_EQ(state.Calculated, -1);
    for (int row = 1; row <= 8; ++row)
      for (int col = 1; col <= 14; ++col) {
        if (col == 2)  // the load comes back as a number, whatever separators it was typed with
          EXPECT_EQ(state.Parse(form->Grid.Text(row, col)), state.Parse(saved.Text(row, col)));
        else
          EXPECT_EQ(form->Grid.Text(row, col), saved.Text(row, col)) << row << "," << col;
      }
  }
};

TEST_P(WholeSheet, EveryCellAfterCalculateAndBackFromTheWorkingFiles) {
  const WholeSheetCase& c = GetParam();
  Enter(c);
  Key(KeyCode::F10);
  const std::string outcome = c.Outcome;
  if (outcome == "ok") {
    EXPECT_TRUE(prompter.History().empty()) << LastBox().OneLine();
    EXPECT_EQ(state.Calculated, -1);
    EXPECT_EQ((std::vector<std::string>{form->TxtLoopLoad.Text, form->TxtFlow.Text,
                                        form->TxtVelocity.Text, form->TxtSFR.Text}),
              (std::vector<std::string>{c.LoopLoad, c.Flow, c.Velocity, c.SFR}));
    ASSERT_EQ(form->Grid.DataRowCount(), static_cast<int>(c.Cells.size()));
    for (std::size_t r = 0; r < c.Cells.size(); ++r)
      for (int col = 1; col <= 14; ++col)
        EXPECT_EQ(form->Grid.Text(static_cast<int>(r) + 1, col), c.Cells[r][col - 1])
            << "row " << r + 1 << " col " << col;
    ExpectSavedAndBack();
    return;
  }
  ASSERT_EQ(prompter.History().size(), 1u);
  if (outcome.rfind("too small ", 0) == 0) {
    const int row = std::stoi(outcome.substr(10));
    EXPECT_EQ(LastBox().Title, "... ! ΔΕΝ ΘΑ ΓΙΝΟΥΝ ΟΙ ΥΠΟΛΟΓΙΣΜΟΙ");
    EXPECT_EQ(std::pair(form->Grid.Block().Row1, form->Grid.Block().Row2), std::pair(row, row));
    EXPECT_EQ(form->TxtFlow.Text, "");
  } else if (outcome == "division by zero") {
    EXPECT_EQ(LastBox().Title, "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ...");
    EXPECT_EQ(form->TxtFlow.Text, "");
  } else if (outcome == "over 8000") {
    EXPECT_EQ(LastBox().Title, "... ΥΠΕΡΒΟΛΙΚΑ ΦΟΡΤΙΑ ΣΤΟΝ ΒΡΟΧΟ ...");
  } else {
    FAIL() << "unknown outcome " << outcome;
  }
  // No results at all; the typed loads and models stay.
  EXPECT_EQ(state.Calculated, 0);
  for (std::size_t i = 0; i < c.Rows.size(); ++i) {
    const int row = static_cast<int>(i) + 1;
    EXPECT_EQ(Cells(row, {2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}),
              std::string(c.Rows[i].Load) + "|||||||" + c.Rows[i].Model + "||||")
        << "row " << row;
  }
  for (const Field* f : {&form->TxtLoopLoad, &form->TxtVelocity, &form->TxtSFR})
    EXPECT_EQ(f->Text, "");
}

INSTANTIATE_TEST_SUITE_P(Oracle, WholeSheet, ::testing::ValuesIn(Cases()),
                         [](const auto& info) { return "Case" + std::to_string(info.index); });

}  // namespace
