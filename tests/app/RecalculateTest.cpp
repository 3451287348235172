// The batch command line on whole studies.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
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
  // Reads one record of a file, changes it, and writes it back.
  template <class R>
  static void Change(const std::filesystem::path& file, int record,
                     const std::function<void(R&)>& change) {
    RecordFile<R> records(file);
    R r = records.Read(record);
    change(r);
    records.Write(record, r);
  }
  static int Count(const std::string& text, const std::string& what) {
    int n = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
      ++n;
    return n;
  }
  std::ostringstream out, err;
  const std::filesystem::path loops = folder / "RVLFiles" / "Μελέτη με κενά.lps";
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

// A run that writes puts a stale study right in place; while another run writes in the study's
// folder it is refused with the run-time's message and leaves the study as it was.
TEST_F(RecalculateTest, WriteSavesTheStudyInPlaceButNotWhileAnotherWrites) {
  const auto study = MakeStudy(3);
  const std::string good = ReadAllBytes(loops);
  Change<LoopRecord>(loops, LoopRecordNumber(2, 1), [](LoopRecord& r) {
    r.SomaText = "stale";
    r.SomaOutput = 1;
  });
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
  EXPECT_EQ(ReadAllBytes(loops), good);
}

// A batch run works out the water of every sheet once, then only that of each sheet it saves:
// stale water anywhere, a first sheet that does not calculate (reported with its message), and
// a model left in an empty row of a later sheet (counted by the first pass, cleared when that
// sheet is saved) still end as saves on the screen would leave them.
TEST_F(RecalculateTest, TheWaterOfEverySheetIsRightAfterABatchRun) {
  const auto study = MakeStudy(5);
  const auto blankOwner = [](SheetRecord& r) { r.Ownership = ""; };
  const auto expectedSheets = std::filesystem::path(folder / "expected.sht");
  std::filesystem::copy_file(study, expectedSheets);
  Change<SheetRecord>(expectedSheets, 1, blankOwner);
  const std::string goodLoops = ReadAllBytes(loops);
  Change<SheetRecord>(study, 1, blankOwner);
  for (int s = 1; s <= 5; ++s) {
    Change<SheetRecord>(study, s, [](SheetRecord& r) { r.WaterContent = 99; });
    Change<LoopRecord>(loops, LoopRecordNumber(s, 2), [](LoopRecord& r) { r.SomaWater = 7; });
  }
  Change<LoopRecord>(loops, LoopRecordNumber(4, 6), [](LoopRecord& r) { r.SomaType = "II/905"; });
  EXPECT_EQ(Run(study, false, true), 1);
  EXPECT_NE(out.str().find("ΜΗΝΥΜΑ\t!! ΠΡΟΣΟΧΗ !! | ... ΔΕΝ ΕΧΕΤΕ ΚΑΤΑΧΩΡΗΣΕΙ ΤΗΝ ΙΔΙΟΚΤΗΣΙΑ"),
            std::string::npos);
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
