#pragma once
// The main screen over a program folder, as the tests and the benchmarks drive it: a scripted
// prompter, modal screens that take queued actions, a platform whose display and separators the
// caller chooses, and every action through the command boundary, as the views run it. The
// system's pause is 0: it is a wait on purpose, not work.
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "CommandBoundary.h"
#include "Cp1253.h"
#include "FakePlatform.h"
#include "FrmRavolin.h"
#include "Message.h"
#include "ScriptedScreens.h"
#include "StudyState.h"
#include "TempFolder.h"
#include "TypeFiles.h"
#include "Workspace.h"

inline const Separators kGreek{U',', U'.'};
inline const Separators kEnglish{U'.', U','};

class MainScreen {
 private:
  std::optional<TempFolder> temp_;

 public:
  // Over a fresh program folder of its own, removed with it.
  MainScreen() : temp_(std::in_place), folder(temp_->Path()), ws(folder) {
    ws.SetPauseMilliseconds(0);
  }
  // Over a program folder that is there already.
  explicit MainScreen(const std::filesystem::path& home) : folder(home), ws(home) {
    ws.SetPauseMilliseconds(0);
  }

  // The pipe list as the program ships it (code page 1253, CRLF).
  void WritePipes(const std::vector<std::string>& names) {
    std::string bytes;
    for (const auto& n : names) bytes += Utf8ToCp1253(n) + "\r\n";
    WriteAllBytes(folder / "RavoPipes.txt", bytes);
  }
  void WriteTypeFile(const std::string& name, int16_t categoryNo, const std::string& category,
                     std::vector<SomaRecord> models) {
    ::WriteTypeFile(folder / name, categoryNo, category, std::move(models));
  }
  // The family with sections, as a type file and its master copy.
  void WriteSectionFamily(float unitWater = 1.5f) {
    WriteTypeFile(kSectionFamilyFile, 1, kSectionFamilyCategory, SectionModels(unitWater));
    WriteTypeFile(kSectionFamilyMaster, 1, kSectionFamilyCategory, SectionModels(unitWater));
  }
  void WriteSectionFamilyMaster() {
    WriteSectionFamily();
    std::filesystem::remove(folder / kSectionFamilyFile);
  }

  // Starts the main screen. A program folder gets a pipe list and the master copy of the family
  // with sections first, as every installation has them, unless the caller wants a folder
  // without them.
  FrmRavolin& Load() {
    if (withPipes && !std::filesystem::exists(folder / "RavoPipes.txt")) WritePipes({"Φ16x1"});
    if (withSectionMaster && !std::filesystem::exists(folder / kSectionFamilyMaster))
      WriteSectionFamilyMaster();
    form = std::make_unique<FrmRavolin>(ws, state, prompter, platform, boundary, screens);
    boundary.Run(*form, [&] { form->Form_Load(); });
    return *form;
  }

  // A user's actions; false when the command failed.
  bool Run(const std::function<void()>& command) { return boundary.Run(*form, command); }
  bool Type(const std::string& control, const std::string& text) {
    return Run([&] { form->Controls().at(control).Type(text); });
  }
  bool Cell(int row, int col, const std::string& text) {
    return Run([&] { form->Grid_EditCell(row, col, text); });
  }
  bool Key(KeyCode code) {
    return Run([&] { form->Form_KeyDown(KeyStroke{code}); });
  }
  bool Choose(const std::string& control, const std::string& entry) {
    return Run([&] { form->Controls().at(control).ChooseText(entry); });
  }
  // A radiator typed into a row of the grid: its name, load, room temperature and model.
  void Radiator(int row, const std::string& name, const std::string& load,
                const std::string& room = "20", const std::string& model = "II/905") {
    for (auto [col, text] : {std::pair{1, &name}, {2, &load}, {3, &room}, {10, &model}})
      Cell(row, col, *text);
  }
  // The sheet header as an engineer fills it in.
  void TypeHeader(const std::string& tempDrop = "20", const std::string& origTemp = "85",
                  const std::string& length = "10") {
    Type("TxtOwnership", "Οικία Παπαδόπουλου");
    Type("TxtLoopNo", "Κ1");
    Type("TxtTempDrop", tempDrop);
    Type("TxtOrigTemp", origTemp);
    Type("TxtLoopLength", length);
  }

  const Message& LastBox() const { return prompter.History().back().Box; }

  std::filesystem::path folder;
  Workspace ws;
  StudyState state;
  ScriptedPrompter prompter;
  FakePlatform platform;
  CommandBoundary boundary{ws, prompter, state};
  ScriptedScreens screens;
  std::unique_ptr<FrmRavolin> form;
  bool withPipes = true;
  bool withSectionMaster = true;
};
