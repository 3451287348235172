// The batch command line on whole studies.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sstream>

#include "ProgramFolder.h"
#include "Recalculate.h"
#include "StudyMaker.h"

namespace {

class RecalculateTest : public ::testing::Test, public ProgramFolder {
 protected:
  RecalculateTest() { WriteStartFiles(folder.Path()); }
  std::filesystem::path MakeStudy(int sheets) {
    return MakeStudyOfCopies(ws, "Μελέτη με κενά", sheets, {"1000", "800", "650"}, "II/905");
  }
  int Run(const std::filesystem::path& study, bool json = false, bool write = false) {
    Options o;
    o.Recalculate = study.string();
    o.Json = json;
    o.Write = write;
    out.str({});
    err.str({});
    return Recalculate(o, ws, out, err);
  }
  static int Count(const std::string& text, const std::string& what) {
    int n = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
      ++n;
    return n;
  }
  std::ostringstream out, err;
};

// Text cell by cell, or JSON with numbers; the engineer's working files are not touched.
TEST_F(RecalculateTest, EverySheetIsWorkedAgainAndReportedAsTextOrJson) {
  const auto study = MakeStudy(2);
  ASSERT_EQ(Run(study), 0) << err.str();
  const std::string text = out.str();
  EXPECT_EQ(Count(text, "ΦΥΛΛΟ\t"), 2);
  EXPECT_NE(text.find("ΦΥΛΛΟ\t1\tΚ1\tΦΟΡΤΙΟ\t2,450\tΠΑΡΟΧΗ\t122.5\t"), std::string::npos);
  EXPECT_NE(text.find("\t1\t1000\t20\t1,000\t85.0\t"), std::string::npos);
  EXPECT_EQ(err.str(), "");
  EXPECT_FALSE(std::filesystem::exists(folder / "SHEETS.TMP"));
  ASSERT_EQ(Run(study, true), 0);
  const std::string json = out.str();
  EXPECT_EQ(json.rfind("{\"study\": \"ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ\", \"sheets\": [", 0), 0u);
  EXPECT_NE(json.find("\"load\": 2450, \"flow\": 122.5"), std::string::npos);
  EXPECT_NE(json.find("\"inlet\": 85, \"outlet\": 76.83673"), std::string::npos);
  EXPECT_EQ(Count(json, "\"calculated\": true"), 2);
  EXPECT_EQ(json.substr(json.size() - 4), "\n]}\n");
}

TEST_F(RecalculateTest, WriteSavesTheRecalculatedStudyInPlace) {
  const auto study = MakeStudy(3);
  const auto loops = folder / "RVLFiles" / "Μελέτη με κενά.lps";
  const std::string good = ReadAllBytes(loops);
  {
    RecordFile<LoopRecord> file(loops);
    LoopRecord r = file.Read(LoopRecordNumber(2, 1));
    r.SomaText = "stale";
    r.SomaOutput = 1;
    file.Write(LoopRecordNumber(2, 1), r);
  }
  ASSERT_EQ(Run(study, false, true), 0);
  EXPECT_EQ(RecordFile<LoopRecord>(loops).Read(LoopRecordNumber(2, 1)).SomaText, "11/II/905");
  EXPECT_EQ(ReadAllBytes(loops), good);
}

// A second run that writes while another writes in the study's folder is refused with the
// run-time's message and leaves the study as it was; once the other is done, it writes.
TEST_F(RecalculateTest, TwoWritersOfOneStudyDoNotMixIt) {
  const auto study = MakeStudy(2);
  const auto loops = folder / "RVLFiles" / "Μελέτη με κενά.lps";
  {
    RecordFile<LoopRecord> file(loops);
    LoopRecord r = file.Read(LoopRecordNumber(2, 1));
    r.SomaText = "stale";
    file.Write(LoopRecordNumber(2, 1), r);
  }
  const std::string sheets = ReadAllBytes(study), loopsBefore = ReadAllBytes(loops);
  int ready[2], done[2];
  ASSERT_EQ(::pipe(ready), 0);
  ASSERT_EQ(::pipe(done), 0);
  const pid_t other = fork();  // the other run, in the middle of its save
  ASSERT_GE(other, 0);
  if (other == 0) {
    const int fd = ::open((folder / "RVLFiles").c_str(), O_RDONLY | O_DIRECTORY);
    char go = 0;
    if (fd < 0 || ::flock(fd, LOCK_EX) != 0 || ::write(ready[1], "1", 1) != 1 ||
        ::read(done[0], &go, 1) != 1)
      _exit(1);
    _exit(0);
  }
  char signal = 0;
  ASSERT_EQ(::read(ready[0], &signal, 1), 1);
  EXPECT_EQ(Run(study, false, true), 2);
  EXPECT_NE(err.str().find("ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ"), std::string::npos) << err.str();
  EXPECT_TRUE(ReadAllBytes(study) == sheets);
  EXPECT_TRUE(ReadAllBytes(loops) == loopsBefore);
  ASSERT_EQ(::write(done[1], "1", 1), 1);
  ::waitpid(other, nullptr, 0);
  for (int fd : {ready[0], ready[1], done[0], done[1]}) ::close(fd);
  ASSERT_EQ(Run(study, false, true), 0) << err.str();
  EXPECT_EQ(RecordFile<LoopRecord>(loops).Read(LoopRecordNumber(2, 1)).SomaText, "11/II/905");
}

TEST_F(RecalculateTest, ASheetThatDoesNotCalculateIsReportedWithItsMessage) {
  const auto study = MakeStudy(2);
  {
    RecordFile<SheetRecord> file(study);
    SheetRecord r = file.Read(2);
    r.Ownership = "";
    file.Write(2, r);
  }
  EXPECT_EQ(Run(study), 1);
  EXPECT_NE(out.str().find("ΜΗΝΥΜΑ\t!! ΠΡΟΣΟΧΗ !! | ... ΔΕΝ ΕΧΕΤΕ ΚΑΤΑΧΩΡΗΣΕΙ ΤΗΝ ΙΔΙΟΚΤΗΣΙΑ"),
            std::string::npos);
}

// A batch run works out the water of every sheet once, then only that of each sheet it saves:
// stale water anywhere, a first sheet that does not calculate, and a model left in an empty row
// of a later sheet (counted by the first pass, cleared when that sheet is saved) still end as
// saves on the screen would leave them.
TEST_F(RecalculateTest, TheWaterOfEverySheetIsRightAfterABatchRun) {
  const auto study = MakeStudy(5);
  const auto loops = folder / "RVLFiles" / "Μελέτη με κενά.lps";
  const auto blankOwner = [](const std::filesystem::path& file) {
    RecordFile<SheetRecord> sheets(file);
    SheetRecord r = sheets.Read(1);
    r.Ownership = "";
    sheets.Write(1, r);
  };
  const auto expectedSheets = std::filesystem::path(folder / "expected.sht");
  std::filesystem::copy_file(study, expectedSheets);
  blankOwner(expectedSheets);
  const std::string goodLoops = ReadAllBytes(loops);
  blankOwner(study);
  {
    RecordFile<SheetRecord> sheets(study);
    RecordFile<LoopRecord> rows(loops);
    for (int s = 1; s <= 5; ++s) {
      SheetRecord r = sheets.Read(s);
      r.WaterContent = 99;
      sheets.Write(s, r);
      LoopRecord l = rows.Read(LoopRecordNumber(s, 2));
      l.SomaWater = 7;
      rows.Write(LoopRecordNumber(s, 2), l);
    }
    LoopRecord left = rows.Read(LoopRecordNumber(4, 6));
    left.SomaType = "II/905";
    rows.Write(LoopRecordNumber(4, 6), left);
  }
  EXPECT_EQ(Run(study, false, true), 1);
  EXPECT_EQ(ReadAllBytes(study), ReadAllBytes(expectedSheets));
  const std::string after = ReadAllBytes(loops);
  const std::size_t at = (LoopRecordNumber(4, 6) - 1) * LoopRecordLayout.RecordLength;
  EXPECT_EQ(after.substr(0, at), goodLoops.substr(0, at));
  EXPECT_EQ(after.substr(at + LoopRecordLayout.RecordLength),
            goodLoops.substr(at + LoopRecordLayout.RecordLength));
  EXPECT_EQ(RecordFile<LoopRecord>(loops).Read(LoopRecordNumber(4, 6)).SomaType, "");
}

TEST_F(RecalculateTest, AFileThatIsNoStudyEndsWithStatusTwoAndAMessage) {
  const auto text = folder / "RVLFiles" / "σημειώσεις.sht";
  WriteAllBytes(text, "όχι μελέτη\n");
  WriteAllBytes(folder / "RVLFiles" / "σημειώσεις.lps", "");
  EXPECT_EQ(Run(text), 2);
  EXPECT_NE(err.str().find("ΔΕΝ είναι αρχείο Μελέτης"), std::string::npos);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(Run(folder / "RVLFiles" / "λείπει.sht"), 2);
  EXPECT_NE(err.str().find("ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ"), std::string::npos);
}

}  // namespace
