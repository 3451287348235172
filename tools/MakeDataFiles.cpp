// Build-time generator of the data files the program ships, from the text sources of data/.
//   make-data-files text IN OUT    a UTF-8 list (lines starting with "#" are comments) becomes
//                                  a code page 1253 text with one entry a line (CRLF, as the
//                                  engineers' files have it)
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "Cp1253.h"

namespace {

std::vector<std::string> SourceLines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start <= text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    std::string line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const bool comment = !line.empty() && line.front() == '#';
    if (!comment && line.find_first_not_of(" \t") != std::string::npos) lines.push_back(line);
    start = end + 1;
  }
  return lines;
}

int MakeText(const std::string& in, const std::string& out) {
  std::ifstream source(in, std::ios::binary);
  if (!source) {
    std::cerr << "make-data-files: cannot read " << in << '\n';
    return 1;
  }
  const std::string text((std::istreambuf_iterator<char>(source)),
                         std::istreambuf_iterator<char>());
  std::string bytes;
  for (const std::string& line : SourceLines(text)) {
    if (!IsCp1253Representable(line)) {
      std::cerr << "make-data-files: " << in << ": not in code page 1253: " << line << '\n';
      return 1;
    }
    bytes += Utf8ToCp1253(line) + "\r\n";
  }
  std::ofstream target(out, std::ios::binary | std::ios::trunc);
  target.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return target ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  if (args.size() == 3 && args[0] == "text") return MakeText(args[1], args[2]);
  std::cerr << "usage: make-data-files text IN OUT\n";
  return 2;
}
