#pragma once
// The command line of the program.
#include <optional>
#include <string>
#include <vector>

struct Options {
  std::optional<std::string> Home;    // --home DIR: the program folder
  std::optional<std::string> Script;  // --script FILE: run the screens' logic from a script
  int ScreenWidth = 1024;             // --screen WxH: the display a script run pretends to have
  int ScreenHeight = 768;
  std::optional<std::string> Recalculate;  // --recalculate STUDY.sht: the batch command
  bool Json = false;                       // --json: its report as JSON
  bool Write = false;                      // --write: the recalculated study saved in place
  bool Help = false;
  std::string Error;  // not empty: the command line could not be read
};

Options ParseOptions(const std::vector<std::string>& args);
extern const char* const kUsage;
