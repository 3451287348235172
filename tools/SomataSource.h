#pragma once
// The text source of one radiator family, read into the records of its type file.
//
// A source is UTF-8 text, one item a line; blank lines and lines whose first non-blank
// character is "#" are comments.
//   Family values, "Name: value", each exactly once:
//     CategoryNo, Category, MeanActiveTemp, Step, StepUnits, FirstSoma
//   One table of models, each line framed by "|": the first line names the columns, a line of
//   dashes under it may follow, and every further line is one model, in file order. The
//   columns, in any order, each exactly once:
//     SomaType | UnitOutput | UnitArea | SomaHeight | SomaWidth | UnitWater | MinSteps |
//     MaxSteps | SomaWeight | Discon
//   Every cell but Discon must hold a value; a 0 is written as 0.
// Anything else is refused with the line it stands on: the shipped files must never carry a
// record that the start-up test, the sizing or the catalogue maker would trip over.
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "SomaRecord.h"

class SomataSourceError : public std::runtime_error {
 public:
  // line 0 stands for the source as a whole (a key or the table missing).
  SomataSourceError(std::size_t line, const std::string& message);
  std::size_t Line() const { return line_; }
  const std::string& Message() const { return message_; }

 private:
  std::size_t line_;
  std::string message_;
};

// The records of the family, numbered 1..n in source order, the family values in each.
// Throws SomataSourceError.
std::vector<SomaRecord> ReadSomataSource(std::string_view text);

// The bytes of the type file: the records packed one after another, no header.
std::string EncodeSomataFile(const std::vector<SomaRecord>& records);
