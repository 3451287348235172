// Study files mutated at random (bit flips, cuts, splices, floats no single should hold, control
// and undefined code-page bytes in the texts), opened and worked through as an engineer would:
// never a crash or a hang, and the files on disk stay as they were. Bounded and seeded, so that
// a failure comes back the same.
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "SheetsFixture.h"
#include "StudyMaker.h"

namespace {

constexpr int kInputs = 300;

// Where the fields of one kind stand in a record of T: offset and width, from its layout.
template <class T>
std::vector<std::pair<int, int>> FieldsOf(FieldKind kind) {
  std::vector<std::pair<int, int>> fields;
  for (const auto& f : RecordLayoutOf<T>::Value.Fields)
    if (f.Kind == kind) fields.emplace_back(static_cast<int>(f.Offset), static_cast<int>(f.Width));
  return fields;
}
const auto kSheetSingles = FieldsOf<SheetRecord>(FieldKind::F32);
const auto kSheetTexts = FieldsOf<SheetRecord>(FieldKind::Text);
const auto kLoopSingles = FieldsOf<LoopRecord>(FieldKind::F32);
const auto kLoopTexts = FieldsOf<LoopRecord>(FieldKind::Text);
constexpr int kSheetLength = static_cast<int>(SheetRecordLayout.RecordLength);
constexpr int kLoopLength = static_cast<int>(LoopRecordLayout.RecordLength);
// Control characters and the bytes code page 1253 leaves undefined.
constexpr unsigned char kOddBytes[] = {0x00, 0x07, 0x0A, 0x0D, 0x1A, 0x1F, 0x7F, 0x81,
                                       0x88, 0x8A, 0x8C, 0x8D, 0x8E, 0x8F, 0x90, 0x98,
                                       0x9A, 0x9C, 0x9D, 0x9E, 0x9F, 0xAA, 0xD2, 0xFF};

class Mutator {
 public:
  explicit Mutator(unsigned seed) : random_(seed) {}
  int Below(int n) { return n <= 0 ? 0 : static_cast<int>(random_() % static_cast<unsigned>(n)); }

  void Mutate(std::string& sheets, std::string& loops) {
    for (int k = 0, n = 1 + Below(4); k < n; ++k) {
      std::string& file = Below(2) ? sheets : loops;
      const bool isSheets = &file == &sheets;
      switch (Below(5)) {
        case 0:  // a bit flipped
          if (!file.empty()) file[Below(static_cast<int>(file.size()))] ^= char(1 << Below(8));
          break;
        case 1:  // cut short
          file.resize(Below(static_cast<int>(file.size()) + 1));
          break;
        case 2: {  // a run of one file laid over the other
          const std::string& from = Below(2) ? sheets : loops;
          if (from.empty() || file.empty()) break;
          const int at = Below(static_cast<int>(from.size()));
          const int length = 1 + Below(std::min<int>(300, static_cast<int>(from.size()) - at));
          const std::string run = from.substr(at, length);
          const int to = Below(static_cast<int>(file.size()));
          file.replace(to, std::min<std::size_t>(run.size(), file.size() - to), run);
          break;
        }
        case 3:  // a single no program writes
          PutSingle(file, isSheets ? kSheetLength : kLoopLength,
                    (isSheets ? Pick(kSheetSingles) : Pick(kLoopSingles)).first);
          break;
        default:  // odd bytes in a text
          PutText(file, isSheets ? kSheetLength : kLoopLength,
                  isSheets ? Pick(kSheetTexts) : Pick(kLoopTexts));
      }
    }
  }

 private:
  template <class T, std::size_t N>
  T Pick(const T (&from)[N]) {
    return from[Below(static_cast<int>(N))];
  }
  std::pair<int, int> Pick(const std::vector<std::pair<int, int>>& from) {
    return from[Below(static_cast<int>(from.size()))];
  }
  void PutSingle(std::string& file, int length, int offset) {
    using Limits = std::numeric_limits<float>;
    const float inf = Limits::infinity(), nan = Limits::quiet_NaN(), max = Limits::max();
    const float values[] = {inf, -inf, nan, max, -3e38f, 1e-45f, 65536.5f};
    const int records = static_cast<int>(file.size()) / length;
    if (records == 0) return;
    const float value = Pick(values);
    std::memcpy(file.data() + Below(records) * length + offset, &value, sizeof value);
  }
  void PutText(std::string& file, int length, std::pair<int, int> text) {
    const int records = static_cast<int>(file.size()) / length;
    if (records == 0) return;
    char* at = file.data() + Below(records) * length + text.first;
    for (int i = 0; i < text.second; ++i) at[i] = static_cast<char>(Pick(kOddBytes));
  }
  std::mt19937 random_;
};

using StudyFuzzTest = SheetsTest;

TEST_F(StudyFuzzTest, MutatedStudiesNeverCrashOrHangAndStayOnDiskAsTheyWere) {
  WriteStartFiles(folder);
  const auto made = MakeStudyOfCopies(ws, "Πηγή", 3, {"1000", "800", "650"}, "II/905");
  const std::string goodSheets = ReadAllBytes(made);
  const std::string goodLoops = ReadAllBytes(folder / "RVLFiles" / "Πηγή.lps");
  Load();
  const auto study = folder / "RVLFiles" / "Φ.sht", sister = folder / "RVLFiles" / "Φ.lps";
  Mutator mutate(20261124);
  int opened = 0;
  for (int input = 0; input < kInputs; ++input) {
    std::string sheets = goodSheets, loops = goodLoops;
    mutate.Mutate(sheets, loops);
    WriteAllBytes(study, sheets);
    WriteAllBytes(sister, loops);
    prompter.Clear();
    if (MainScreen::Run([&] { form->OpenFile(study.string()); }) && state.SheetCount > 0) ++opened;
    for (int step = 0; step < 3; ++step) {
      Key(KeyCode::F10);
      Key(KeyCode::PageDown);
      Key(KeyCode::PageUp);
    }
    EXPECT_TRUE(ReadAllBytes(study) == sheets && ReadAllBytes(sister) == loops)
        << "input " << input;
  }
  EXPECT_GT(opened, kInputs / 4);  // the mutations leave many studies that still open
}

}  // namespace
