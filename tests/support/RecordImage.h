#pragma once
// Record images as the tests pin them, field by field: "Name@offset=value ...", where the value
// is hex bytes, "+width" pads them with blanks to the field's width, and "~width/step/start" is
// the byte pattern of a reserved field (start, start + step, ... modulo 256).
#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

inline std::string FromHex(const std::string& hex) {
  std::string out;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
    out += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
  return out;
}

inline std::string Pattern(std::size_t width, int step, int start) {
  std::string out;
  for (std::size_t i = 0; i < width; ++i) out += static_cast<char>((start + step * i) & 0xFF);
  return out;
}

struct ImageField {
  std::string Name;
  std::size_t Offset;
  std::string Bytes;
};

inline std::vector<ImageField> ImageFields(const std::string& list) {
  std::vector<ImageField> fields;
  std::istringstream in(list);
  for (std::string token; in >> token;) {
    const std::size_t at = token.find('@'), eq = token.find('=');
    const std::string value = token.substr(eq + 1);
    ImageField f{token.substr(0, at), std::stoul(token.substr(at + 1)), {}};
    if (value[0] == '~') {
      int width = 0, step = 0, start = 0;
      std::sscanf(value.c_str(), "~%d/%d/%d", &width, &step, &start);
      f.Bytes = Pattern(width, step, start);
    } else {
      const std::size_t plus = value.find('+');
      f.Bytes = FromHex(value.substr(0, plus));
      if (plus != std::string::npos) f.Bytes.resize(std::stoul(value.substr(plus + 1)), ' ');
    }
    fields.push_back(f);
  }
  return fields;
}

// Every field of the list stands in the record's bytes.
inline void ExpectFields(const std::string& record, const std::string& fields) {
  for (const ImageField& f : ImageFields(fields)) {
    ASSERT_LE(f.Offset + f.Bytes.size(), record.size()) << f.Name;
    EXPECT_EQ(record.substr(f.Offset, f.Bytes.size()), f.Bytes) << f.Name << " at " << f.Offset;
  }
}
