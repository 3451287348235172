// The header fields of the main screen: filters, focus behaviour and range checks.
#include "RavoMessages.h"
#include "RecordFile.h"
#include "SheetRecords.h"
#include "SheetsFixture.h"

namespace {

class HeaderTest : public SheetsTest {
 protected:
  HeaderTest() { platform.Seps = kGreek; }
};

// Filters and formats beside those the header scripts show; text with no accepted character
// leaves the field as it was.
TEST_F(HeaderTest, EachFieldKeepsOnlyWhatItAcceptsAndShowsItInItsFormat) {
  const struct {
    const char* Control;
    std::string Typed;
    const char* Shown;
  } greek[] = {
      {"TxtTempDrop", "2,5", "25"},
      {"TxtTempDrop", "abc", "25"},
      {"TxtOrigTemp", "7-0", "70"},
      {"TxtOrigTemp", std::string(10000, 'x'), "70"},
      {"TxtLoopLength", "12.5", "125,0"},
      {"TxtLoopLength", "abc", "125,0"},
      {"TxtOtherRes", "2,5", "2,50"},
      {"TxtOwnership", "Οικία-Α+Β", "ΟικίαΑΒ"},
      {"TxtThema", "Νέο +- θέμα", "Νέο +- θέμα"},
  };
  FrmRavolin& f = Load();
  for (const auto& c : greek) {
    Type(c.Control, c.Typed);
    EXPECT_EQ(f.Controls().at(c.Control).GetText(), c.Shown) << c.Control << " " << c.Typed;
  }
  EXPECT_TRUE(prompter.History().empty());
  // The lengths lose their thousands separator when they get the focus.
  f.TxtLoopLength.Text = "1.234,5";
  f.TxtOtherRes.Text = "12.345,60";
  f.TxtLoopLength_GotFocus();
  f.TxtOtherRes_GotFocus();
  EXPECT_EQ(f.TxtLoopLength.Text + " " + f.TxtOtherRes.Text, "1234,5 12345,60");
}

TEST_F(HeaderTest, TemperaturesOutOfRangePutTheOldValueBackAndKeepTheFocus) {
  const struct {
    const char* Control;
    const char* Typed;
    bool Refused;
  } cases[] = {
      {"TxtTempDrop", "8", false},  {"TxtTempDrop", "30", false}, {"TxtTempDrop", "31", true},
      {"TxtTempDrop", "", true},    {"TxtOrigTemp", "29", true},  {"TxtOrigTemp", "30", false},
      {"TxtOrigTemp", "90", false}, {"TxtOrigTemp", "91", true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.Control) + " " + c.Typed);
    prompter.Clear();
    FrmRavolin& f = Load();
    const std::string before = f.Controls().at(c.Control).GetText();
    Type(c.Control, c.Typed);
    EXPECT_EQ(prompter.History().size(), c.Refused ? 1u : 0u);
    EXPECT_EQ(f.Controls().at(c.Control).GetText(), c.Refused ? before : c.Typed);
    if (c.Refused) {
      const RavoMessage code = std::string(c.Control) == "TxtTempDrop"
                                   ? RavoMessage::TempDropOutOfRange
                                   : RavoMessage::InletTempOutOfRange;
      EXPECT_EQ(LastBox().Lines, RavoMessageBox(code).Lines);
      EXPECT_EQ(f.FocusTarget(), c.Control);
    }
  }
}

// A sheet with results on the screen, as a calculation leaves it.
void FillResults(FrmRavolin& f, StudyState& state) {
  for (int row = 1; row <= 2; ++row)
    for (int col = 1; col <= 14; ++col) f.Grid.SetText(row, col, "v");
  f.TxtLoopLoad.Text = "2.000";
  f.TxtFlow.Text = "100,0";
  f.TxtVelocity.Text = "0,18";
  f.TxtSFR.Text = "10,39";
  state.Calculated = -1;
}

// The same value retyped asks nothing; a new one asks, and No keeps everything.
TEST_F(HeaderTest, ANewTemperatureOnACalculatedSheetAsksAndYesDiscardsTheResults) {
  FrmRavolin& f = Load();
  FillResults(f, state);
  Type("TxtTempDrop", "20");
  EXPECT_TRUE(prompter.History().empty());
  prompter.QueueAnswer(Answer::No);
  Type("TxtOrigTemp", "70");
  EXPECT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(f.TxtOrigTemp.Text + " " + f.TxtFlow.Text + " " + f.Grid.Text(1, 9), "85 100,0 v");
  EXPECT_EQ(state.Calculated, -1);
  prompter.Clear();
  prompter.QueueAnswer(Answer::Yes);
  Type("TxtTempDrop", "15");
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(LastBox().Lines, RavoMessageBox(RavoMessage::DiscardResults).Lines);
  EXPECT_EQ(f.TxtTempDrop.Text, "15");
  EXPECT_EQ(std::tuple(state.Calculated, state.StudyChanged, state.LastAnswer),
            std::tuple(0, -1, ""));
  for (const Field* out : {&f.TxtLoopLoad, &f.TxtFlow, &f.TxtVelocity, &f.TxtSFR})
    EXPECT_EQ(out->Text, "");
  EXPECT_EQ(Cells(2, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}), "v|v|v|||||||v||||");
  EXPECT_EQ(f.FocusTarget(), "Grid");
}

TEST_F(HeaderTest, EnterMovesOnAsEachFieldSays) {
  FrmRavolin& f = Load();
  const std::pair<const char*, const char*> cases[] = {
      {"TxtOwnership", "TxtLoopNo"}, {"TxtLoopNo", "TxtTempDrop"}, {"TxtTempDrop", "Grid"},
      {"TxtOrigTemp", "Grid"},       {"TxtLoopLength", "Grid"},    {"TxtOtherRes", "Grid"}};
  for (const auto& [control, next] : cases) {
    f.TakeFocusTarget();
    EXPECT_FALSE(f.Controls().at(control).Events.KeyPress(13)) << control;
    EXPECT_EQ(f.FocusTarget(), next) << control;
  }
}

// Two sheets on disk with their rows.
void WriteStudy(Workspace& ws) {
  RecordFile<SheetRecord> sheets(ws.PathOf("SHEETS.TMP"));
  RecordFile<LoopRecord> loops(ws.PathOf("LOOPS.TMP"));
  for (int16_t s = 1; s <= 2; ++s) {
    SheetRecord sheet;
    sheet.SheetNo = s;
    sheet.Thema = "ΠΑΛΙΟ ΘΕΜΑ";
    sheet.Ownership = "Οικία";
    sheet.TempDrop = 20;
    sheets.Write(s, sheet);
    for (int16_t r = 1; r <= 8; ++r) {
      LoopRecord row;
      row.SheetNo = s;
      row.Thema = "ΠΑΛΙΟ ΘΕΜΑ";
      row.RowNo = r;
      row.Load = 100.0f * r;
      row.Reserved1 = std::string(53, '\x7f');
      loops.Write(LoopRecordNumber(s, r), row);
    }
  }
}

// The bytes of a file with the subject's field blanked in every record.
std::string WithoutThema(const std::string& bytes, std::size_t length) {
  std::string rest = bytes;
  for (std::size_t at = 0; at + length <= rest.size(); at += length)
    rest.replace(at + 2, 78, std::string(78, ' '));
  return rest;
}

// A subject retyped unchanged touches nothing, and on a study without files makes none.
TEST_F(HeaderTest, ANewSubjectIsWrittenIntoEveryRecordOfBothFiles) {
  FrmRavolin& f = Load();
  Type("TxtThema", "ΑΛΛΟ");
  EXPECT_FALSE(std::filesystem::exists(folder / "SHEETS.TMP"));
  EXPECT_FALSE(std::filesystem::exists(folder / "LOOPS.TMP"));
  WriteStudy(ws);
  state.StudyChanged = 0;
  const std::string sheetsBefore = Bytes("SHEETS.TMP");
  const std::string loopsBefore = Bytes("LOOPS.TMP");
  Type("TxtThema", f.TxtThema.Text);
  EXPECT_EQ(state.StudyChanged, 0);
  EXPECT_EQ(Bytes("SHEETS.TMP"), sheetsBefore);
  Type("TxtThema", "ΠΟΛΥΚΑΤΟΙΚΙΑ ΣΤΗΝ ΚΗΦΙΣΙΑ");
  EXPECT_EQ(state.StudyChanged, -1);
  RecordFile<SheetRecord> sheets(ws.PathOf("SHEETS.TMP"), RecordFileMode::ReadOnly);
  RecordFile<LoopRecord> loops(ws.PathOf("LOOPS.TMP"), RecordFileMode::ReadOnly);
  ASSERT_EQ(sheets.Count(), 2);
  ASSERT_EQ(loops.Count(), 16);
  for (int n = 1; n <= 2; ++n) EXPECT_EQ(sheets.Read(n).Thema, "ΠΟΛΥΚΑΤΟΙΚΙΑ ΣΤΗΝ ΚΗΦΙΣΙΑ");
  for (int n = 1; n <= 16; ++n) EXPECT_EQ(loops.Read(n).Thema, "ΠΟΛΥΚΑΤΟΙΚΙΑ ΣΤΗΝ ΚΗΦΙΣΙΑ");
  // Nothing but the subject changed, reserved bytes included.
  EXPECT_EQ(WithoutThema(Bytes("SHEETS.TMP"), 196), WithoutThema(sheetsBefore, 196));
  EXPECT_EQ(WithoutThema(Bytes("LOOPS.TMP"), 298), WithoutThema(loopsBefore, 298));
}

// A failure half-way through a command: the sheets file has been rewritten when the second
// file of the rows cannot be made (a folder stands in its place). The boundary reports it and the
// sheets file is as it was.
TEST_F(HeaderTest, AFaultHalfWayThroughACommandLeavesTheWorkingFilesAsTheyWere) {
  FrmRavolin& f = Load();
  WriteStudy(ws);
  std::filesystem::create_directory(folder / "LOOPS.TMP.@@@");
  WriteAllBytes(folder / "LOOPS.TMP.@@@/inside", "x");
  const std::string before = Bytes("SHEETS.TMP") + Bytes("LOOPS.TMP");
  const auto listBefore = ws.ListFiles("", "*");
  Type("TxtThema", "ΝΕΟ ΘΕΜΑ");
  ExpectRunFault();
  EXPECT_EQ(Bytes("SHEETS.TMP") + Bytes("LOOPS.TMP"), before);
  EXPECT_EQ(ws.ListFiles("", "*"), listBefore);
  // The screen goes back with the files: it shows the subject the files still hold.
  EXPECT_EQ(f.TxtThema.Text, "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ");
}

// A message of the sheets asked through the prompter: a question leaves its answer behind.
TEST(RavoMessages, AQuestionLeavesItsAnswerAndANoticeLeavesNothing) {
  StudyState state;
  ScriptedPrompter prompter;
  prompter.QueueAnswer(Answer::No);
  RavoMessages(RavoMessage::DeleteWholeSheet, prompter, state);
  EXPECT_EQ(state.LastAnswer, "NO");
  RavoMessages(RavoMessage::DiscardResults, prompter, state);  // nothing queued: the default
  EXPECT_EQ(state.LastAnswer, "YES");
  RavoMessages(RavoMessage::NoLoopLength, prompter, state);
  EXPECT_EQ(state.LastAnswer, "YES");  // a notice leaves the last answer as it was
  ASSERT_EQ(prompter.History().size(), 3u);
  EXPECT_EQ(prompter.History()[0].Given, Answer::No);
}

}  // namespace
