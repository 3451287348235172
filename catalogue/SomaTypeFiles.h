#pragma once
// The radiator type files of the program folder: which files are type files, the test each
// passes at start-up, and the name a file that fails it takes.
#include <cstdint>
#include <string>
#include <vector>

#include "SomaRecord.h"
#include "Workspace.h"

// A type file is any file of the program folder that ends in ".ths", whatever the case.
inline constexpr const char* kTypeFilePattern = "*.ths";

// The type files of the program folder, in the order of a file list.
std::vector<std::string> TypeFiles(const Workspace& ws);

// The start-up test of a type file on its first record: a record number that is neither
// negative nor beyond the number of type files listed (`listed`), and an output.
bool PassesTypeFileTest(const SomaRecord& first, int32_t listed);

// "Χαλύβδινα Πάνελ.ths" -> "Χαλύβδινα Πάνελ.th_": the name a file that failed the test takes,
// so that it leaves the lists and the engineer still finds it.
std::string FailedTypeFileName(const std::string& name);
