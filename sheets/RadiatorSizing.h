#pragma once
// How big a radiator must be for its equivalent load at the 80/20 condition, and what it
// really gives. The family with sections (family 1) is sized from the program's own rating
// table; any other family is made in steps whose ratings come from the working copy of the
// family's type file (SomataWorkingCopy), opened and scanned once per radiator.
#include <cstdint>
#include <string>

#include "SectionRatings.h"
#include "SomaRecord.h"
#include "StudyState.h"
#include "Workspace.h"

// The smallest whole number of units of rating `rating` for the load `load`: the divisibility
// test works on the rounded values (halves to even), the division on the exact ones, so a
// load just above a multiple does not add a unit. With `secondTest` (the stepped family) the
// branch of an exact multiple also tests a second rating that nothing ever sets: it divides
// by zero, and the failure travels to the command. Overflow above 32767 units.
int16_t UnitCount(float load, float rating, bool secondTest);

// The result of sizing one radiator.
struct SomaSize {
  std::string SomaText;  // "12/II/905", "1200/22"
  float Output = 0;      // Kcal/h
  float Area = 0;        // m²
  float Length = 0;      // m
};

class RadiatorSizing {
 public:
  RadiatorSizing(Workspace& workspace, StudyState& state);

  // The family with sections. `size.Area` is an in-out value: an unknown model leaves it as
  // it stood (0 sections give "0/<model>", no output and no length). `tempDiff` is carried
  // and not used.
  void CalculateSoma_Fetes(float tempDiff, float load, const std::string& somaType,
                           SomaSize& size) const;
  // A stepped family, from the working copy; the discontinuities of the model raise the step
  // count as they are walked.
  void CalculateSoma_Panel(float tempDiff, float load, const std::string& somaType, SomaSize& size);
  // The step count of a model for a load, without discontinuities, and the model's limits:
  // what the range check before the sizing needs.
  int16_t StepsWithoutDiscontinuities(float load, const std::string& somaType, int16_t& minSteps,
                                      int16_t& maxSteps);

 private:
  // Reads the working copy in order until the model is found; when none matches, the last
  // record read stays in use (and with an empty file, the one read before).
  void LookUp(const std::string& somaType);
  int16_t WalkDiscontinuities(int16_t steps) const;

  Workspace& ws_;
  StudyState& st_;
  SomaRecord record_;
};
