#include "RadiatorSizing.h"

#include "Checked.h"
#include "Cp1253.h"
#include "Numbers.h"

namespace {

// A section is 40 mm long.
constexpr int16_t kSectionLength = 40;
// The discontinuity list is walked over the whole width of its field.
constexpr std::size_t kDisconWidth = 100;

// The decimal text of a whole number of units, as the sizing writes it before the model.
std::string UnitsText(float units) {
  return Trim(StrSingle(units));
}

// A failure of a model's sizing names the model, so that the engineer knows which row to fix.
[[noreturn]] void RethrowForModel(const RuntimeFault& fault, const std::string& somaType,
                                  float load) {
  std::string detail =
      "ΤΥΠΟΣ ΣΩΜΑΤΟΣ " + somaType + ", ΙΣΟΔ. ΦΟΡΤΙΟ " + Trim(StrSingle(load)) + " Kcal/h";
  if (!fault.Detail().empty()) detail = fault.Detail() + " : " + detail;
  throw RuntimeFault(fault.Code(), detail);
}

}  // namespace

int16_t UnitCount(float load, float rating, bool secondTest) {
  const double q = load;
  const double k = rating;
  if (VbMod(q, k) != 0) return CInt(VbInt(Divide(q, k)) + 1);
  if (secondTest) {
    // Kept on purpose: the second rating is never set, so an exact multiple of a stepped
    // model divides by zero here and the sizing stops with the failure.
    const double neverSet = 0;
    if (VbMod(q, neverSet) != 0) return CInt(VbInt(Divide(q, k)) + 1);
  }
  return CInt(Divide(q, k));
}

RadiatorSizing::RadiatorSizing(Workspace& workspace, StudyState& state)
    : ws_(workspace), st_(state) {}

void RadiatorSizing::CalculateSoma_Fetes(float /*tempDiff*/, float load,
                                         const std::string& somaType, SomaSize& size) const {
  const SectionRating* row = FindSectionRating(somaType);
  int16_t sections = 0;
  try {
    if (row != nullptr) sections = UnitCount(load, row->Output, false);
    if (row != nullptr) size.Area = CSng(sections * static_cast<double>(row->Area));
    size.Output = row != nullptr ? MulI16(sections, row->Output) : 0;
    size.Length = CSng(MulI16(sections, kSectionLength) / 1000.0);
  } catch (const RuntimeFault& fault) {
    RethrowForModel(fault, somaType, load);
  }
  size.SomaText = UnitsText(sections) + "/" + somaType;
}

void RadiatorSizing::CalculateSoma_Panel(float /*tempDiff*/, float load,
                                         const std::string& somaType, SomaSize& size) {
  LookUp(somaType);
  try {
    const int16_t steps = WalkDiscontinuities(UnitCount(load, record_.UnitOutput, true));
    size.SomaText = UnitsText(CSng(steps * static_cast<double>(record_.Step))) + "/" + somaType;
    size.Output = CSng(VbInt(steps * static_cast<double>(record_.UnitOutput)));
    double firstSoma = 0;
    if (!RegionalToDouble(record_.FirstSoma, st_.Seps(), firstSoma))
      throw RuntimeFault(FaultCode::TypeMismatch,
                         "ΠΡΩΤΟ ΣΩΜΑ ΤΗΣ ΣΕΙΡΑΣ \"" + record_.FirstSoma + "\"");
    size.Length = CSng(firstSoma * steps / 1000);
    size.Area = CSng(steps * static_cast<double>(record_.UnitArea));
  } catch (const RuntimeFault& fault) {
    RethrowForModel(fault, somaType, load);
  }
}

int16_t RadiatorSizing::StepsWithoutDiscontinuities(float load, const std::string& somaType,
                                                    int16_t& minSteps, int16_t& maxSteps) {
  LookUp(somaType);
  minSteps = record_.MinSteps;
  maxSteps = record_.MaxSteps;
  try {
    return UnitCount(load, record_.UnitOutput, true);
  } catch (const RuntimeFault& fault) {
    RethrowForModel(fault, somaType, load);
  }
}

void RadiatorSizing::LookUp(const std::string& somaType) {
  // Opened for reading and writing, as the old program did: a missing working copy is created
  // empty, and the record read before stays in use.
  auto file = ws_.Open(SomataWorkingCopy);
  st_.SomaRecords = CInt(file.Count());
  for (int32_t n = 1; n <= st_.SomaRecords; ++n) {
    record_ = file.Read(n);
    if (Trim(record_.SomaType) == somaType) break;
  }
}

// Kept on purpose: the token is not cleared at the comma, so only the first number of the list
// can match, and a number with no comma behind it is never compared.
int16_t RadiatorSizing::WalkDiscontinuities(int16_t steps) const {
  std::u32string discon = Utf8ToU32(record_.Discon);
  discon.resize(kDisconWidth, U' ');
  std::string token;
  for (const char32_t ch : discon) {
    if (ch != U',') {
      AppendUtf8(token, ch);
      continue;
    }
    double value = 0;
    if (!RegionalToDouble(token, st_.Seps(), value))
      throw RuntimeFault(FaultCode::TypeMismatch,
                         "ΑΣΥΝΕΧΕΙΕΣ ΣΕΙΡΑΣ \"" + Trim(record_.Discon) + "\"");
    if (value == steps) steps = AddI16(steps, 1);
  }
  return steps;
}
