#include "Recalculate.h"

#include <stdlib.h>

#include <cerrno>

#include <ostream>
#include <sstream>

#include "CommandBoundary.h"
#include "Cp1253.h"
#include "DiskSteps.h"
#include "Program.h"
#include "SomaRecord.h"
#include "SomaTypeFiles.h"
#include "SystemSeparators.h"

namespace fs = std::filesystem;

namespace {

// The computer under a batch run: no display, no viewer, no dialogs.
class BatchPlatform : public Platform {
 public:
  DisplaySize Display() const override { return {}; }
  Separators NumberSeparators() const override { return SystemSeparators(); }
  bool OpenDocument(const fs::path&) override { return false; }
};

// A screen opened during a batch run is closed at once: nobody is there to answer it.
class BatchScreens : public Screens {
 public:
  void ShowModal(ScriptScreen& screen) override { screen.CloseBox(); }
};

// A workspace of its own in the temporary folder, removed at the end, with the pipe list and
// the radiator families of the engineer's program folder.
class TemporaryWorkspace {
 public:
  explicit TemporaryWorkspace(const Workspace& home) {
    std::error_code ec;
    const fs::path temporary = fs::temp_directory_path(ec);
    std::string name = (temporary / "ravolinette-XXXXXX").string();
    if (ec || !mkdtemp(name.data()))
      throw RuntimeFault(
          disk::FaultOf(std::error_code(errno, std::generic_category()), FaultCode::PathNotFound),
          temporary.string());
    folder_ = name;
    try {
      workspace_ = std::make_unique<Workspace>(folder_);
      workspace_->SetPauseMilliseconds(0);
      for (const auto& pattern :
           {FrmRavolin::kPipeListFile, kTypeFilePattern, kSectionFamilyMaster})
        for (const std::string& file : home.ListFiles("", pattern)) {
          fs::copy_file(home.PathOf(file), workspace_->PathOf(file), ec);
          if (ec) throw RuntimeFault(disk::FaultOf(ec, FaultCode::FileNotFound), file);
        }
    } catch (...) {
      Remove();
      throw;
    }
  }
  ~TemporaryWorkspace() { Remove(); }
  TemporaryWorkspace(const TemporaryWorkspace&) = delete;
  TemporaryWorkspace& operator=(const TemporaryWorkspace&) = delete;
  Workspace& Get() { return *workspace_; }

 private:
  void Remove() {
    workspace_.reset();
    std::error_code ec;
    fs::remove_all(folder_, ec);
  }
  fs::path folder_;
  std::unique_ptr<Workspace> workspace_;
};

std::string JsonString(const std::string& text) {
  std::string out = "\"";
  for (const unsigned char c : text) {
    if (c == '"' || c == '\\') {
      out += '\\';
      out += static_cast<char>(c);
    } else if (c < 0x20) {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
      out += escaped;
    } else {
      out += static_cast<char>(c);
    }
  }
  return out + "\"";
}

std::string JsonNumber(float value) {
  return CStrSingle(value, Separators{U'.', U','});
}

// One sheet as the report gives it.
struct SheetReport {
  int Number = 0;
  bool Calculated = false;
  std::string LoopNo;
  std::vector<std::string> Header;  // load, flow, velocity, resistance as shown
  SheetRecord Record;
  std::vector<std::vector<std::string>> Cells;  // the 14 cells of each row with a radiator
  std::vector<LoopRecord> Rows;
  std::vector<std::string> Messages;
};

void WriteText(std::ostream& out, const std::string& thema, const std::vector<SheetReport>& all) {
  out << "ΜΕΛΕΤΗ\t" << thema << '\n';
  for (const SheetReport& s : all) {
    out << "ΦΥΛΛΟ\t" << s.Number << '\t' << s.LoopNo << "\tΦΟΡΤΙΟ\t" << s.Header[0] << "\tΠΑΡΟΧΗ\t"
        << s.Header[1] << "\tΤΑΧΥΤΗΤΑ\t" << s.Header[2] << "\tΑΝΤΙΣΤΑΣΗ\t" << s.Header[3] << '\n';
    for (const auto& row : s.Cells) {
      for (const std::string& cell : row) out << '\t' << cell;
      out << '\n';
    }
    for (const std::string& m : s.Messages) out << "ΜΗΝΥΜΑ\t" << m << '\n';
  }
}

void WriteJson(std::ostream& out, const std::string& thema, const std::vector<SheetReport>& all) {
  out << "{\"study\": " << JsonString(thema) << ", \"sheets\": [";
  for (std::size_t i = 0; i < all.size(); ++i) {
    const SheetReport& s = all[i];
    const SheetRecord& r = s.Record;
    out << (i ? ",\n  " : "\n  ") << "{\"sheet\": " << s.Number
        << ", \"loop\": " << JsonString(s.LoopNo)
        << ", \"calculated\": " << (s.Calculated ? "true" : "false")
        << ", \"load\": " << JsonNumber(r.TotalLoad) << ", \"flow\": " << JsonNumber(r.Flow)
        << ", \"velocity\": " << JsonNumber(r.Velocity)
        << ", \"resistance\": " << JsonNumber(r.SpecificResistance)
        << ", \"realOutput\": " << JsonNumber(r.RealOutput)
        << ", \"waterContent\": " << JsonNumber(r.WaterContent) << ", \"rows\": [";
    for (std::size_t k = 0; k < s.Rows.size(); ++k) {
      const LoopRecord& l = s.Rows[k];
      out << (k ? ", " : "") << "{\"no\": " << JsonString(l.SomaNo)
          << ", \"load\": " << JsonNumber(l.Load) << ", \"room\": " << JsonNumber(l.RoomTemp)
          << ", \"inlet\": " << JsonNumber(l.InletTemp)
          << ", \"outlet\": " << JsonNumber(l.OutletTemp)
          << ", \"mean\": " << JsonNumber(l.MeanTemp)
          << ", \"factor\": " << JsonNumber(l.CorrectionFactor)
          << ", \"equivalent\": " << JsonNumber(l.EquivalentLoad)
          << ", \"model\": " << JsonString(l.SomaType)
          << ", \"radiator\": " << JsonString(l.SomaText)
          << ", \"output\": " << JsonNumber(l.SomaOutput)
          << ", \"area\": " << JsonNumber(l.SomaArea)
          << ", \"length\": " << JsonNumber(l.SomaLength) << "}";
    }
    out << "], \"messages\": [";
    for (std::size_t k = 0; k < s.Messages.size(); ++k)
      out << (k ? ", " : "") << JsonString(s.Messages[k]);
    out << "]}";
  }
  out << "\n]}\n";
}

}  // namespace

int Recalculate(const Options& options, Workspace& home, std::ostream& out, std::ostream& err) {
  const fs::path study = fs::absolute(*options.Recalculate);
  try {
    TemporaryWorkspace temporary(home);
    Workspace& ws = temporary.Get();
    ScriptedPrompter prompter;
    BatchPlatform platform;
    BatchScreens screens;
    Program program(ws, prompter, platform, screens);
    StudyState& state = program.State;
    FrmRavolin& form = program.Main;
    const auto boundary = [&](const std::function<void()>& command) {
      return program.Boundary.Run(form, command);
    };
    boundary([&] { form.Form_Load(); });
    form.KeepOtherSheetsWater(true);
    prompter.Clear();
    const bool opened = boundary([&] { form.OpenFile(study.string()); });
    if (!opened || !ws.FileExists(SheetsFile.Name)) {
      for (const auto& shown : prompter.History()) err << shown.Box.OneLine() << '\n';
      if (prompter.History().empty()) err << "... Η Μελέτη δεν διαβάστηκε: " << study << '\n';
      return 2;
    }
    std::vector<SheetReport> reports;
    bool all = true;
    const int16_t count = state.SheetCount;
    for (int16_t s = 1; s <= count; ++s) {
      prompter.Clear();
      SheetReport report;
      report.Number = s;
      boundary([&] { form.LoadSheet(s); });
      boundary([&] { form.CmdCalc_Click(); });
      // A check that stopped the calculation has said why; the sheet keeps what it held.
      report.Calculated = state.Calculated == -1 && prompter.History().empty();
      // A save that failed was undone; the next one goes over all the sheets again.
      if (report.Calculated && !boundary([&] { form.SaveTemporarData(); }))
        form.KeepOtherSheetsWater(true);
      all = all && report.Calculated;
      report.LoopNo = form.TxtLoopNo.Text;
      report.Header = {form.TxtLoopLoad.Text, form.TxtFlow.Text, form.TxtVelocity.Text,
                       form.TxtSFR.Text};
      for (int row = 1; row <= form.Grid.DataRowCount(); ++row) {
        std::vector<std::string> cells;
        for (int col = 1; col <= kGridCols; ++col) cells.push_back(form.Grid.Text(row, col));
        report.Cells.push_back(std::move(cells));
      }
      report.Record = ws.Open(SheetsFile, RecordFileMode::ReadOnly).Read(s);
      auto loops = ws.Open(LoopsFile, RecordFileMode::ReadOnly);
      for (int row = 1; row <= kRowsPerSheet; ++row) {
        LoopRecord r = loops.Read(LoopRecordNumber(s, row));
        if (!Trim(r.SomaNo).empty()) report.Rows.push_back(std::move(r));
      }
      for (const auto& shown : prompter.History()) report.Messages.push_back(shown.Box.OneLine());
      reports.push_back(std::move(report));
    }
    if (options.Write) {
      prompter.Clear();
      if (!boundary([&] { form.SaveAsFile(study.string()); })) {
        for (const auto& shown : prompter.History()) err << shown.Box.OneLine() << '\n';
        return 2;
      }
    }
    const std::string thema = form.TxtThema.Text;
    if (options.Json)
      WriteJson(out, thema, reports);
    else
      WriteText(out, thema, reports);
    return all ? 0 : 1;
  } catch (const RuntimeFault& fault) {
    err << FaultMessage(fault).OneLine() << '\n';
    return 2;
  } catch (const fs::filesystem_error& error) {
    // Whatever the file system refuses is the run-time's fault of that kind, never an abort.
    err << FaultMessage(RuntimeFault(disk::FaultOf(error.code(), FaultCode::FileNotFound),
                                     error.path1().string()))
               .OneLine()
        << '\n';
    return 2;
  }
}
