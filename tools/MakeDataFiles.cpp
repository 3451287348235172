// Build-time generator of the data files the program ships, from the text sources of data/.
//   make-data-files text IN OUT    a UTF-8 list (lines starting with "#" are comments) becomes
//                                  a code page 1253 text with one entry a line (CRLF, as the
//                                  engineers' files have it)
//   make-data-files clients IN OUT  the engineer names, one a line, become CLIENTS.zfo
//   make-data-files somata IN OUT...
//                                  the source of one radiator family (see SomataSource.h)
//                                  becomes its type file, 331-byte records; every OUT gets
//                                  the same bytes (the default family is both the master
//                                  "~Basic.dl" and its ".ths")
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "ClientRecord.h"
#include "Cp1253.h"
#include "SomataSource.h"

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

bool ReadSource(const std::string& in, std::string& text) {
  std::ifstream source(in, std::ios::binary);
  if (!source) {
    std::cerr << "make-data-files: cannot read " << in << '\n';
    return false;
  }
  text.assign(std::istreambuf_iterator<char>(source), std::istreambuf_iterator<char>());
  return true;
}

bool WriteTarget(const std::string& out, const std::string& bytes) {
  std::ofstream target(out, std::ios::binary | std::ios::trunc);
  target.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  target.close();
  if (!target) std::cerr << "make-data-files: cannot write " << out << '\n';
  return static_cast<bool>(target);
}

int MakeText(const std::string& in, const std::string& out) {
  std::string text;
  if (!ReadSource(in, text)) return 1;
  std::string bytes;
  for (const std::string& line : SourceLines(text)) {
    if (!IsCp1253Representable(line)) {
      std::cerr << "make-data-files: " << in << ": not in code page 1253: " << line << '\n';
      return 1;
    }
    bytes += Utf8ToCp1253(line) + "\r\n";
  }
  return WriteTarget(out, bytes) ? 0 : 1;
}

// A refused source leaves no target behind, so the build cannot go on with an old file.
int MakeSomata(const std::string& in, const std::vector<std::string>& outs) {
  std::string text;
  if (!ReadSource(in, text)) return 1;
  std::string bytes;
  try {
    bytes = EncodeSomataFile(ReadSomataSource(text));
  } catch (const SomataSourceError& error) {
    std::cerr << "make-data-files: " << in;
    if (error.Line() != 0) std::cerr << ':' << error.Line();
    std::cerr << ": " << error.Message() << '\n';
    for (const std::string& out : outs) std::remove(out.c_str());
    return 1;
  }
  for (const std::string& out : outs)
    if (!WriteTarget(out, bytes)) return 1;
  return 0;
}

// One engineer name a line; the list ships without a password.
int MakeClients(const std::string& in, const std::string& out) {
  std::string text;
  if (!ReadSource(in, text)) return 1;
  ClientList list;
  for (const std::string& line : SourceLines(text)) {
    if (!IsCp1253Representable(line) || Utf8ToCp1253(line).size() > kClientNameWidth) {
      std::cerr << "make-data-files: " << in << ": not a name of code page 1253 up to "
                << kClientNameWidth << " characters: " << line << '\n';
      return 1;
    }
    list.Names.push_back(line);
  }
  if (list.Names.empty()) {
    std::cerr << "make-data-files: " << in << ": the list needs a first name\n";
    return 1;
  }
  return WriteTarget(out, EncodeClients(list)) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  if (args.size() == 3 && args[0] == "text") return MakeText(args[1], args[2]);
  if (args.size() == 3 && args[0] == "clients") return MakeClients(args[1], args[2]);
  if (args.size() >= 3 && args[0] == "somata")
    return MakeSomata(args[1], std::vector<std::string>(args.begin() + 2, args.end()));
  std::cerr << "usage: make-data-files text IN OUT\n"
               "       make-data-files somata IN OUT...\n"
               "       make-data-files clients IN OUT\n";
  return 2;
}
