#include "SomaTypeFiles.h"

std::vector<std::string> TypeFiles(const Workspace& ws) {
  return ws.ListFiles("", kTypeFilePattern);
}

bool PassesTypeFileTest(const SomaRecord& first, int32_t listed) {
  return !(first.RecordNo > listed || first.RecordNo < 0 || first.UnitOutput == 0);
}

std::string FailedTypeFileName(const std::string& name) {
  return name.substr(0, name.size() - 1) + "_";
}
