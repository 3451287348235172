#include "FrmOldStudy.h"

#include <algorithm>

#include "Checked.h"
#include "Cp1253.h"
#include "Numbers.h"
#include "WorkingFiles.h"

namespace {

// The lines of the message and the blanks each takes on the left beyond its centring.
struct MessageLine {
  const char* Text;
  int Extra;
};

const MessageLine kLines[] = {
    {"Στον Σκληρό Δίσκο τού Συστήματός σας,", 6},
    {"βρέθηκε μια ημιτελής Παλαιά Μελέτη, του Προγράμματος < Ravolinette >.", 0},
    {"Το Πρόγραμμα είναι σε θέση να < αναβιώσει > την Μελέτη αυτή.", 1},
    {"ΘΕΛΕΤΕ ΝΑ ΚΑΝΕΤΕ ΚΑΤΙ ΤΕΤΟΙΟ ;", 12},
    {"... Εάν επιλέξετε < ΟΧΙ >, η Μελέτη θα χαθεί ΟΡΙΣΤΙΚΑ ! ...", 6},
};

// Each line centred against the longest: half the difference on both sides, and its extra
// blanks on the left.
std::vector<std::string> CentredLines() {
  std::size_t longest = 0;
  for (const MessageLine& l : kLines) longest = std::max(longest, Utf8ToU32(l.Text).size());
  std::vector<std::string> lines;
  for (const MessageLine& l : kLines) {
    const double difference = static_cast<double>(longest - Utf8ToU32(l.Text).size());
    const auto half = static_cast<std::size_t>(RoundHalfEven(difference / 2));
    lines.push_back(std::string(half + static_cast<std::size_t>(l.Extra), ' ') + l.Text +
                    std::string(half, ' '));
  }
  return lines;
}

}  // namespace

const ControlTable<FrmOldStudy>& FrmOldStudy::Table() {
  using F = FrmOldStudy;
  static const ControlTable<F> table = {
      kit::Label("Caption", &F::Caption),
      kit::Label("Label1", &F::Label1),
      kit::List("List1", &F::List1),
      kit::Label("Lbl_Wait", &F::Lbl_Wait),
      kit::Command("Command1", &F::Command1, &F::Command1_Click),
      kit::Command("Command2", &F::Command2, &F::Command2_Click),
  };
  return table;
}

FrmOldStudy::FrmOldStudy(SheetOnScreen& sheet, Workspace& workspace)
    : Dialog(kName), sheet_(sheet), ws_(workspace) {
  List1.SetItems(CentredLines());
  Lbl_Wait.Visible = false;
}

void FrmOldStudy::Command1_Click() {
  Lbl_Wait.Visible = true;
  sheet_.OpeningOld();
  // What a revived study does not need: the sheets, the levels and the working copy stay, the
  // derived network is built again.
  for (const char* name : {StudiesFile.Name, kDummyFile}) ws_.Delete(name);
  for (const std::string& name : NetworkFileNames()) ws_.Delete(name);
  Close();
}

void FrmOldStudy::Command2_Click() {
  KillRavoTemporaries(ws_);
  Close();
}
