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
  // The family numbers of a type file, each of its records once, joined.
  std::string Numbers(const std::string& file) {
    std::string joined;
    for (int16_t n : NumbersIn(file)) joined += std::to_string(n);
    return joined;
  }
};

TEST_F(FamiliesTest, FilesAreNumberedInListOrderAroundTheSectionFamily) {
  WriteSectionFamily();
  WritePanelFamily("Αλουμινίου.ths", "Σώματα Αλουμινίου", 7);
  WritePanelFamily("Χαλύβδινα Πάνελ.ths", "Χαλύβδινα Πάνελ", 9);
  Load();
  EXPECT_EQ(
      Numbers("Αλουμινίου.ths") + Numbers(kSectionFamilyFile) + Numbers("Χαλύβδινα Πάνελ.ths"),
      "22" + std::string(12, '1') + "33");
  EXPECT_EQ(
      form->CboSomata.Items,
      (std::vector<std::string>{"Σώματα Αλουμινίου", kSectionFamilyCategory, "Χαλύβδινα Πάνελ"}));
  // The first entry is the family in use: its working copy, its number, its models.
  EXPECT_EQ(std::tuple(form->CboSomata.Index, state.SomaCategory), std::tuple(0, 2));
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
  EXPECT_EQ(Numbers("Χαλύβδινα Πάνελ.ths"), "22");
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
  EXPECT_EQ(Numbers("Άχρηστο.th_"), "22");  // the file, unchanged
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
  EXPECT_EQ(Numbers(kSectionFamilyFile), std::string(12, '5'));
  EXPECT_EQ(form->CboSomata.Items,
            (std::vector<std::string>{kSectionFamilyCategory, "Χαλύβδινα Πάνελ"}));
  EXPECT_EQ(Numbers("Χαλύβδινα Πάνελ.ths"), "22");
  Load();  // the next start
  EXPECT_EQ(Numbers(kSectionFamilyFile), std::string(12, '1'));
  EXPECT_TRUE(prompter.History().empty());
}

TEST_F(FamiliesTest, WithoutAnyTypeFileOrMasterTheStartReportsItAndGoesOn) {
  withSectionMaster = false;
  Load();
  ExpectRunFault();
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
  Run([&] { form->Controls().at("CboSomata").ChooseIndex(2); });
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

TEST_F(FamiliesTest, AnotherFamilyOnACalculatedSheetAsksNoPutsTheComboBackYesDiscards) {
  WriteSectionFamily();
  WritePanelFamily("Χαλύβδινα Πάνελ.ths", "Χαλύβδινα Πάνελ", 9);
  Load();
  TypeHeader();
  Radiator(1, "1", "1000");
  Key(KeyCode::F10);
  ASSERT_EQ(form->Grid.Text(1, 11), "13/II/905");
  Choose("CboSomata", kSectionFamilyCategory);  // the same family: no question
  EXPECT_TRUE(prompter.History().empty());
  prompter.QueueAnswer(Answer::No);
  Choose("CboSomata", "Χαλύβδινα Πάνελ");
  ExpectBox("!! ΘΑ ΔΙΑΓΡΑΦΟΥΝ ΟΛΑ ΤΑ ΑΠΟΤΕΛΕΣΜΑΤΑ ΤΟΥ ΤΡΕΧΟΝΤΟΣ ΦΎΛΛΟΥ  !!");
  EXPECT_EQ(form->CboSomata.Text(), kSectionFamilyCategory);
  EXPECT_EQ(Bytes(SomataWorkingCopy.Name), Bytes(kSectionFamilyFile));
  EXPECT_EQ(std::tuple(form->Grid.Text(1, 11), state.Calculated), std::tuple("13/II/905", -1));
  prompter.QueueAnswer(Answer::Yes);
  Choose("CboSomata", "Χαλύβδινα Πάνελ");
  EXPECT_EQ(Bytes(SomataWorkingCopy.Name), Bytes("Χαλύβδινα Πάνελ.ths"));
  EXPECT_EQ(std::tuple(state.SomaCategory, state.Calculated, state.StudyChanged),
            std::tuple(2, 0, -1));
  EXPECT_EQ(Cells(1, {10, 11}) + form->TxtFlow.Text, "II/905|");  // the typed model stays
  EXPECT_EQ(form->Grid.List(1, 10), (std::vector<std::string>{"11/600", "22/600"}));
}

}  // namespace
