#pragma once
// The study state shared by all screens: one instance per process, handed to every screen.
#include <cstdint>
#include <string>

#include "Numbers.h"

struct StudyState {
  int16_t CurrentSheet = 1;  // the sheet on the screen, from 1
  int16_t SheetCount = 0;    // records of the sheets' file, recounted each time it is opened
  int16_t Calculated = 0;    // 0 or -1: the sheet on the screen holds valid results
  int16_t StudyChanged = 0;  // 0 or -1: something changed since the last save
  int16_t ErrorFlag = 0;     // 0 nothing, -1 the caller reports, -2 already reported;
                             // the count of decimal separators of a bad number (2 or more)
  std::string LastAnswer;    // "YES" or "NO" of the last question; the caller empties it
  int16_t SomaCategory = 1;  // radiator family in use; 1 is the family with sections
  int16_t DecimalSep = '.';  // character codes of the locale's separators, found at start
  int16_t ThousandsSep = ',';
  float PipeArea = 0;            // m², inner cross-section of the first pipe of the list
  std::string StudyFileName;     // the study file opened, empty for a new study
  std::string Thema;             // the subject of the study as the sheet on the screen shows it
  int16_t ColumnsEditable = -1;  // columns 1 to 3 stay open when a sheet is left
  int16_t SomaRecords = 0;       // records of the radiator type file read last
  // The engineer whose name the printouts carry; chosen in the names list, it belongs to the
  // program run, not to a study, and a new study keeps it.
  std::string CurrentEngineer;

  Separators Seps() const {
    return Separators{static_cast<char32_t>(static_cast<uint16_t>(DecimalSep)),
                      static_cast<char32_t>(static_cast<uint16_t>(ThousandsSep))};
  }
  void SetSeparators(Separators seps) {
    DecimalSep = static_cast<int16_t>(seps.Decimal);
    ThousandsSep = static_cast<int16_t>(seps.Thousands);
  }

  // ParseNumber with this state's separators and ErrorFlag.
  double Parse(std::string_view text) { return ParseNumber(text, Seps(), ErrorFlag); }
  std::string Format(double value, std::string_view pattern) const {
    return FormatNumber(value, pattern, Seps());
  }
  // The same for a quantity kept in single precision.
  std::string FormatF(float value, std::string_view pattern) const {
    return FormatSingle(value, pattern, Seps());
  }

  // Returns the shared state to its empty value: numbers 0, texts empty, StudyChanged,
  // SomaCategory and ColumnsEditable 0. CurrentSheet, the separators, PipeArea (it belongs to
  // the pipe list read at start, not to the study) and CurrentEngineer are kept.
  void InitializeVariables();
};
