#include "SomataSource.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <map>
#include <set>

#include "Cp1253.h"
#include "RecordLayout.h"

SomataSourceError::SomataSourceError(std::size_t line, const std::string& message)
    : std::runtime_error(line == 0 ? message : "line " + std::to_string(line) + ": " + message),
      line_(line),
      message_(message) {}

namespace {

[[noreturn]] void Refuse(std::size_t line, const std::string& message) {
  throw SomataSourceError(line, message);
}

std::string Blankless(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return {};
  const std::size_t end = text.find_last_not_of(" \t");
  return std::string(text.substr(begin, end - begin + 1));
}

// The whole cell must be the number: "12abc" or "1,5" is a typing slip, not 12 or 1.
double ReadReal(std::size_t line, const std::string& name, const std::string& value) {
  double number = 0;
  const char* end = value.data() + value.size();
  const auto [stop, fault] = std::from_chars(value.data(), end, number);
  if (value.empty() || fault != std::errc() || stop != end || !std::isfinite(number) ||
      std::fabs(number) > std::numeric_limits<float>::max())
    Refuse(line, name + ": \"" + value + "\" is not a number");
  return number;
}

int16_t ReadWhole(std::size_t line, const std::string& name, const std::string& value, int low) {
  int number = 0;
  const char* end = value.data() + value.size();
  const auto [stop, fault] = std::from_chars(value.data(), end, number);
  if (value.empty() || fault != std::errc() || stop != end)
    Refuse(line, name + ": \"" + value + "\" is not a whole number");
  if (number < low || number > std::numeric_limits<int16_t>::max())
    Refuse(line, name + ": " + value + " lies outside " + std::to_string(low) + " to 32767");
  return static_cast<int16_t>(number);
}

float ReadAtLeast(std::size_t line, const std::string& name, const std::string& value, double low) {
  const double number = ReadReal(line, name, value);
  if (number < low) {
    char bound[32];
    std::snprintf(bound, sizeof bound, "%g", low);
    Refuse(line, name + ": " + value + " is below " + bound);
  }
  return static_cast<float>(number);
}

// A text field of `width` bytes on disk: it must have a byte for every character and fit,
// since the codec would otherwise replace or cut it without a word.
std::string ReadText(std::size_t line, const std::string& name, const std::string& value,
                     std::size_t width) {
  if (value.empty()) Refuse(line, name + " is empty");
  if (!IsCp1253Representable(value))
    Refuse(line, name + ": \"" + value + "\" is not in code page 1253");
  const std::size_t bytes = Utf8ToCp1253(value).size();
  if (bytes > width)
    Refuse(line, name + ": \"" + value + "\" takes " + std::to_string(bytes) +
                     " bytes, the field holds " + std::to_string(width));
  return value;
}

// The sizing compares only the first number of the list, and only when a comma stands behind
// it; a blank inside the list makes its reading fail. So the shipped lists are plain numbers,
// each closed by a comma.
std::string ReadDiscon(std::size_t line, const std::string& value) {
  if (value.empty()) return value;
  if (value.size() > 100) Refuse(line, "Discon takes more than the 100 bytes of its field");
  if (value.find_first_not_of("0123456789,") != std::string::npos)
    Refuse(line, "Discon: \"" + value + "\" holds other characters than digits and commas");
  if (value.back() != ',') Refuse(line, "Discon: \"" + value + "\" must end with a comma");
  if (value.front() == ',' || value.find(",,") != std::string::npos)
    Refuse(line, "Discon: \"" + value + "\" has an empty number");
  return value;
}

using Setter = void (*)(SomaRecord&, std::size_t, const std::string&);

struct Field {
  const char* Name;
  Setter Set;
};

constexpr Field kFamilyKeys[] = {
    {"CategoryNo", [](SomaRecord& r, std::size_t l,
                      const std::string& v) { r.CategoryNo = ReadWhole(l, "CategoryNo", v, 1); }},
    {"Category", [](SomaRecord& r, std::size_t l,
                    const std::string& v) { r.Category = ReadText(l, "Category", v, 120); }},
    {"MeanActiveTemp",
     [](SomaRecord& r, std::size_t l, const std::string& v) {
       r.MeanActiveTemp = ReadAtLeast(l, "MeanActiveTemp", v, 5);
       if (r.MeanActiveTemp > 65) Refuse(l, "MeanActiveTemp: " + v + " is above 65");
     }},
    {"Step",
     [](SomaRecord& r, std::size_t l, const std::string& v) {
       r.Step = ReadAtLeast(l, "Step", v, 0);
       if (r.Step == 0) Refuse(l, "Step: 0 makes every size 0");
     }},
    {"StepUnits", [](SomaRecord& r, std::size_t l,
                     const std::string& v) { r.StepUnits = ReadText(l, "StepUnits", v, 16); }},
    {"FirstSoma",
     [](SomaRecord& r, std::size_t l, const std::string& v) {
       // Kept as text, but the sizing multiplies the step count by its number.
       r.FirstSoma = ReadText(l, "FirstSoma", v, 10);
       if (ReadReal(l, "FirstSoma", v) <= 0) Refuse(l, "FirstSoma: " + v + " is not above 0");
     }},
};

constexpr Field kColumns[] = {
    {"SomaType", [](SomaRecord& r, std::size_t l,
                    const std::string& v) { r.SomaType = ReadText(l, "SomaType", v, 25); }},
    {"UnitOutput",
     [](SomaRecord& r, std::size_t l, const std::string& v) {
       // The sizing divides by the rating rounded to a whole number: below 0.5 that is 0.
       r.UnitOutput = ReadAtLeast(l, "UnitOutput", v, 0.5);
     }},
    {"UnitArea", [](SomaRecord& r, std::size_t l,
                    const std::string& v) { r.UnitArea = ReadAtLeast(l, "UnitArea", v, 0); }},
    {"SomaHeight", [](SomaRecord& r, std::size_t l,
                      const std::string& v) { r.SomaHeight = ReadAtLeast(l, "SomaHeight", v, 0); }},
    {"SomaWidth", [](SomaRecord& r, std::size_t l,
                     const std::string& v) { r.SomaWidth = ReadAtLeast(l, "SomaWidth", v, 0); }},
    {"UnitWater", [](SomaRecord& r, std::size_t l,
                     const std::string& v) { r.UnitWater = ReadAtLeast(l, "UnitWater", v, 0); }},
    {"MinSteps", [](SomaRecord& r, std::size_t l,
                    const std::string& v) { r.MinSteps = ReadWhole(l, "MinSteps", v, 1); }},
    {"MaxSteps", [](SomaRecord& r, std::size_t l,
                    const std::string& v) { r.MaxSteps = ReadWhole(l, "MaxSteps", v, 1); }},
    {"SomaWeight", [](SomaRecord& r, std::size_t l,
                      const std::string& v) { r.SomaWeight = ReadAtLeast(l, "SomaWeight", v, 0); }},
    {"Discon",
     [](SomaRecord& r, std::size_t l, const std::string& v) { r.Discon = ReadDiscon(l, v); }},
};

const Field* FindField(const Field* begin, const Field* end, const std::string& name) {
  for (const Field* f = begin; f != end; ++f)
    if (name == f->Name) return f;
  return nullptr;
}

// The cells between the framing bars, blanks trimmed.
std::vector<std::string> Cells(std::size_t line, const std::string& row) {
  if (row.size() < 2 || row.back() != '|') Refuse(line, "a table row must end with \"|\"");
  std::vector<std::string> cells;
  std::size_t start = 1;
  for (std::size_t bar = row.find('|', start); bar != std::string::npos;
       bar = row.find('|', start)) {
    cells.push_back(Blankless(std::string_view(row).substr(start, bar - start)));
    start = bar + 1;
  }
  return cells;
}

bool IsRule(const std::vector<std::string>& cells) {
  for (const std::string& cell : cells)
    if (cell.empty() || cell.find_first_not_of("-:") != std::string::npos) return false;
  return true;
}

class Reader {
 public:
  void Line(std::size_t number, const std::string& text) {
    if (text.front() == '|') {
      TableRow(number, Cells(number, text));
      return;
    }
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos)
      Refuse(number, "neither a \"Name: value\" line nor a table row: " + text);
    FamilyValue(number, Blankless(std::string_view(text).substr(0, colon)),
                Blankless(std::string_view(text).substr(colon + 1)));
  }

  std::vector<SomaRecord> Finish() {
    for (const Field& key : kFamilyKeys)
      if (!keyLines_.count(key.Name)) Refuse(0, std::string("missing ") + key.Name);
    if (rows_.empty()) Refuse(0, "no models: the table of models has no rows");
    std::vector<SomaRecord> records;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      SomaRecord record = rows_[i];
      record.CategoryNo = family_.CategoryNo;
      record.RecordNo = static_cast<int16_t>(i + 1);
      record.Category = family_.Category;
      record.MeanActiveTemp = family_.MeanActiveTemp;
      record.Step = family_.Step;
      record.StepUnits = family_.StepUnits;
      record.FirstSoma = family_.FirstSoma;
      records.push_back(record);
    }
    return records;
  }

 private:
  void FamilyValue(std::size_t line, const std::string& name, const std::string& value) {
    const Field* key = FindField(std::begin(kFamilyKeys), std::end(kFamilyKeys), name);
    if (!key) Refuse(line, "unknown key \"" + name + "\"");
    if (const auto seen = keyLines_.find(name); seen != keyLines_.end())
      Refuse(line, name + " given twice (first on line " + std::to_string(seen->second) + ")");
    keyLines_[name] = line;
    key->Set(family_, line, value);
  }

  void TableRow(std::size_t line, const std::vector<std::string>& cells) {
    if (columns_.empty()) return Header(line, cells);
    if (line == headerLine_ + 1 && rows_.empty() && IsRule(cells)) return;
    if (cells.size() != columns_.size())
      Refuse(line, "the row has " + std::to_string(cells.size()) + " cells, the header " +
                       std::to_string(columns_.size()));
    SomaRecord row;
    for (std::size_t c = 0; c < cells.size(); ++c) {
      if (cells[c].empty() && std::string(columns_[c]->Name) != "Discon")
        Refuse(line, std::string("missing ") + columns_[c]->Name);
      columns_[c]->Set(row, line, cells[c]);
    }
    if (row.MinSteps > row.MaxSteps)
      Refuse(line, "MinSteps " + std::to_string(row.MinSteps) + " is above MaxSteps " +
                       std::to_string(row.MaxSteps));
    // The sizing takes the first record of that name; a second one could never be chosen.
    if (!models_.insert(row.SomaType).second)
      Refuse(line, "SomaType \"" + row.SomaType + "\" stands twice");
    if (rows_.size() == static_cast<std::size_t>(std::numeric_limits<int16_t>::max()))
      Refuse(line, "more models than record numbers");
    rows_.push_back(row);
  }

  void Header(std::size_t line, const std::vector<std::string>& cells) {
    for (const std::string& name : cells) {
      const Field* column = FindField(std::begin(kColumns), std::end(kColumns), name);
      if (!column) Refuse(line, "unknown column \"" + name + "\"");
      for (const Field* taken : columns_)
        if (taken == column) Refuse(line, "column " + name + " stands twice");
      columns_.push_back(column);
    }
    for (const Field& column : kColumns)
      if (std::find(columns_.begin(), columns_.end(), &column) == columns_.end())
        Refuse(line, std::string("missing column ") + column.Name);
    headerLine_ = line;
  }

  SomaRecord family_;
  std::map<std::string, std::size_t> keyLines_;
  std::vector<const Field*> columns_;
  std::size_t headerLine_ = 0;
  std::vector<SomaRecord> rows_;
  std::set<std::string> models_;
};

}  // namespace

std::vector<SomaRecord> ReadSomataSource(std::string_view text) {
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
  Reader reader;
  std::size_t number = 0;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    std::string_view raw = text.substr(start, end - start);
    if (!raw.empty() && raw.back() == '\r') raw.remove_suffix(1);
    ++number;
    const std::string line = Blankless(raw);
    if (!line.empty() && line.front() != '#') reader.Line(number, line);
    start = end + 1;
  }
  return reader.Finish();
}

std::string EncodeSomataFile(const std::vector<SomaRecord>& records) {
  constexpr std::size_t kLength = RecordLengthOf<SomaRecord>();
  std::string bytes(records.size() * kLength, '\0');
  for (std::size_t i = 0; i < records.size(); ++i)
    EncodeRecord(records[i], reinterpret_cast<unsigned char*>(bytes.data()) + i * kLength);
  return bytes;
}
