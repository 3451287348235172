// The radiator families at start and in use: the test of each type file, the numbering with the
// files' dates kept, the restored family with sections, CboSomata and the working copy.
#include <chrono>

#include "SheetsFixture.h"

namespace {

class FamiliesTest : public SheetsTest {
 protected:
  void WritePanelFamily(const std::string& file, const std::string& category, int16_t number,
                        float unitOutput = 150) {
    WriteTypeFile(file, number, category,
                  {Stepped("11/600", unitOutput, 0.12f, 100, "400", 4, 30, ""),
                   Stepped("22/600", 150.5f, 0.25f, 100, "400", 4, 30, "8,")});
  }
  std::vector<int16_t> NumbersIn(const std::string& file) {
    std::vector<int16_t> numbers;
    for (const SomaRecord& r : RecordFile<SomaRecord>(folder / file).ReadAll())
      numbers.push_back(r.CategoryNo);
    return numbers;
  }
  std::string Bytes(const std::string& file) { return ReadAllBytes(folder / file); }
};

TEST_F(FamiliesTest, FilesAreNumberedInListOrderAroundTheSectionFamily) {
  WriteSectionFamily();
  WritePanelFamily("Αλουμινίου.ths", "Σώματα Αλουμινίου", 7);
  WritePanelFamily("Χαλύβδινα Πάνελ.ths", "Χαλύβδινα Πάνελ", 9);
  Load();
  EXPECT_EQ(NumbersIn("Αλουμινίου.ths"), (std::vector<int16_t>{2, 2}));
  EXPECT_EQ(NumbersIn(kSectionFamilyFile), std::vector<int16_t>(12, 1));
  EXPECT_EQ(NumbersIn("Χαλύβδινα Πάνελ.ths"), (std::vector<int16_t>{3, 3}));
  EXPECT_EQ(
      form->CboSomata.Items,
      (std::vector<std::string>{"Σώματα Αλουμινίου", kSectionFamilyCategory, "Χαλύβδινα Πάνελ"}));
  // The first entry is the family in use: its working copy, its number, its models.
  EXPECT_EQ(form->CboSomata.Index, 0);
  EXPECT_EQ(state.SomaCategory, 2);
  EXPECT_EQ(Bytes(SomataWorkingCopy.Name), Bytes("Αλουμινίου.ths"));
  EXPECT_EQ(form->Grid.List(8, 10), (std::vector<std::string>{"11/600", "22/600"}));
  EXPECT_TRUE(prompter.History().empty());
}

TEST_F(FamiliesTest, RenumberingKeepsTheDatesOfTheFiles) {
  WriteSectionFamily();
  WritePanelFamily("Χαλύβδινα Πάνελ.ths", "Χαλύβδινα Πάνελ", 9);
  const auto old = std::filesystem::file_time_type::clock::now() - std::chrono::hours(24 * 400);
  std::filesystem::last_write_time(folder / "Χαλύβδινα Πάνελ.ths", old);
  Load();
  EXPECT_EQ(NumbersIn("Χαλύβδινα Πάνελ.ths"), (std::vector<int16_t>{2, 2}));
  EXPECT_EQ(std::filesystem::last_write_time(folder / "Χαλύβδινα Πάνελ.ths"), old);
}

TEST_F(FamiliesTest, AFileThatFailsItsTestIsRenamedAndLeftOut) {
  WriteSectionFamily();
  WritePanelFamily("Άχρηστο.ths", "Άχρηστο", 2, 0);  // UnitOutput 0 in record 1
  WriteAllBytes(folder / "Άχρηστο.th_", "an older one");
  SomaRecord far = Stepped("X", 100, 1, 100, "400", 1, 2, "");
  WriteTypeFile("Μακρινό.ths", 3, "Μακρινό", {far});
  {
    RecordFile<SomaRecord> file(folder / "Μακρινό.ths");
    SomaRecord r = file.Read(1);
    r.RecordNo = 4;  // more than the three files listed
    file.Write(1, r);
  }
  Load();
  EXPECT_FALSE(std::filesystem::exists(folder / "Άχρηστο.ths"));
  EXPECT_EQ(NumbersIn("Άχρηστο.th_"), (std::vector<int16_t>{2, 2}));  // the file, unchanged
  EXPECT_TRUE(std::filesystem::exists(folder / "Μακρινό.th_"));
  EXPECT_EQ(form->CboSomata.Items, (std::vector<std::string>{kSectionFamilyCategory}));
  EXPECT_EQ(state.SomaCategory, 1);
}

TEST_F(FamiliesTest, AMissingSectionFamilyIsRestoredFromTheMasterAndRepairedNextStart) {
  WriteSectionFamilyMaster();
  {
    RecordFile<SomaRecord> master(folder / kSectionFamilyMaster);
    for (int32_t n = 1; n <= master.Count(); ++n) {
      SomaRecord r = master.Read(n);
      r.CategoryNo = 5;
      master.Write(n, r);
    }
  }
  WritePanelFamily("Χαλύβδινα Πάνελ.ths", "Χαλύβδινα Πάνελ", 9);
  Load();
  ASSERT_TRUE(std::filesystem::exists(folder / kSectionFamilyFile));
  EXPECT_EQ(NumbersIn(kSectionFamilyFile), std::vector<int16_t>(12, 5));
  EXPECT_EQ(form->CboSomata.Items,
            (std::vector<std::string>{kSectionFamilyCategory, "Χαλύβδινα Πάνελ"}));
  EXPECT_EQ(NumbersIn("Χαλύβδινα Πάνελ.ths"), (std::vector<int16_t>{2, 2}));

  Load();  // the next start
  EXPECT_EQ(NumbersIn(kSectionFamilyFile), std::vector<int16_t>(12, 1));
  EXPECT_TRUE(prompter.History().empty());
}

TEST_F(FamiliesTest, WithoutAnyTypeFileOrMasterTheStartReportsItAndGoesOn) {
  withSectionMaster = false;
  Load();
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(LastBox().Title, "... ΣΦΑΛΜΑ ΕΚΤΕΛΕΣΗΣ ...");
  EXPECT_TRUE(form->CboSomata.Items.empty());
  EXPECT_EQ(form->TxtThema.Text, "ΘΕΜΑ ΤΗΣ ΜΕΛΕΤΗΣ");
}

TEST_F(FamiliesTest, AQualifierInBracketsIsNotShownAndTheFirstOfTwoLikeNamesWins) {
  WriteSectionFamily();
  WritePanelFamily("Πάνελ Α.ths", "Χαλύβδινα Πάνελ (EN 442, τύποι 11-22)", 2, 111);
  WritePanelFamily("Πάνελ Β.ths", "Χαλύβδινα Πάνελ (άλλος κατασκευαστής)", 3, 222);
  Load();
  EXPECT_EQ(
      form->CboSomata.Items,
      (std::vector<std::string>{kSectionFamilyCategory, "Χαλύβδινα Πάνελ", "Χαλύβδινα Πάνελ"}));
  Choose("CboSomata", "Χαλύβδινα Πάνελ");
  EXPECT_EQ(Bytes(SomataWorkingCopy.Name), Bytes("Πάνελ Α.ths"));
  boundary.Run(*form, [&] { form->Controls().at("CboSomata").ChooseIndex(2); });
  EXPECT_EQ(Bytes(SomataWorkingCopy.Name), Bytes("Πάνελ Α.ths"));  // told apart by nothing
}

TEST_F(FamiliesTest, AnEmptyTypeFileFailsItsTestAndOneCutShortStillServes) {
  WriteSectionFamily();
  WriteAllBytes(folder / "Κενό.ths", "");
  WritePanelFamily("Κομμένο.ths", "Κομμένο", 5);
  std::filesystem::resize_file(folder / "Κομμένο.ths", 2 * 331 - 1);  // the last byte lost
  Load();
  EXPECT_TRUE(std::filesystem::exists(folder / "Κενό.th_"));
  EXPECT_EQ(form->CboSomata.Items, (std::vector<std::string>{kSectionFamilyCategory, "Κομμένο"}));
  Choose("CboSomata", "Κομμένο");
  EXPECT_EQ(state.SomaRecords, 2);  // 661 bytes are two records, rounded
  EXPECT_EQ(form->Grid.List(1, 10), (std::vector<std::string>{"11/600", "22/600"}));
  EXPECT_TRUE(prompter.History().empty());
}

class CalculatedSheetFamilyTest : public FamiliesTest {
 protected:
  void SetUp() override {
    WriteSectionFamily();
    WritePanelFamily("Χαλύβδινα Πάνελ.ths", "Χαλύβδινα Πάνελ", 9);
    Load();
    TypeHeader();
    Radiator(1, "1", "1000");
    Key(KeyCode::F10);
    ASSERT_EQ(form->Grid.Text(1, 11), "13/II/905");
    prompter.Clear();
  }
};

TEST_F(CalculatedSheetFamilyTest, AnotherFamilyAsksNoPutsTheComboBackYesDiscardsTheResults) {
  Choose("CboSomata", kSectionFamilyCategory);  // the same family: no question
  EXPECT_TRUE(prompter.History().empty());
  prompter.QueueAnswer(Answer::No);
  Choose("CboSomata", "Χαλύβδινα Πάνελ");
  ASSERT_EQ(prompter.History().size(), 1u);
  EXPECT_EQ(LastBox().Lines.front(),
            "!! ΘΑ ΔΙΑΓΡΑΦΟΥΝ ΟΛΑ ΤΑ ΑΠΟΤΕΛΕΣΜΑΤΑ ΤΟΥ ΤΡΕΧΟΝΤΟΣ ΦΎΛΛΟΥ  !!");
  EXPECT_EQ(form->CboSomata.Text(), kSectionFamilyCategory);
  EXPECT_EQ(Bytes(SomataWorkingCopy.Name), Bytes(kSectionFamilyFile));
  EXPECT_EQ(form->Grid.Text(1, 11), "13/II/905");
  EXPECT_EQ(state.Calculated, -1);
  prompter.QueueAnswer(Answer::Yes);
  Choose("CboSomata", "Χαλύβδινα Πάνελ");
  EXPECT_EQ(Bytes(SomataWorkingCopy.Name), Bytes("Χαλύβδινα Πάνελ.ths"));
  EXPECT_EQ(state.SomaCategory, 2);
  EXPECT_EQ(form->Grid.Text(1, 11), "");
  EXPECT_EQ(form->TxtFlow.Text, "");
  EXPECT_EQ(form->Grid.Text(1, 10), "II/905");  // the typed model stays
  EXPECT_EQ(state.Calculated, 0);
  EXPECT_EQ(state.StudyChanged, -1);
  EXPECT_EQ(form->Grid.List(1, 10), (std::vector<std::string>{"11/600", "22/600"}));
}

}  // namespace
