#include "LevelRecord.h"

#include "Cp1253.h"

void ClearFloorRecord(LevelRecord& record) {
  record = LevelRecord{};
  record.Reserved1.assign(30, ' ');
  record.Reserved2.assign(4, '\0');
  record.Reserved3.assign(22, '\0');
  record.Reserved4.assign(16, '\0');
}

std::pair<std::string, std::string> SectionNodes(const std::string& sectionName) {
  std::string name = sectionName;
  const std::size_t slash = name.find('/');
  if (slash != std::string::npos && slash < 3) name.insert(0, 3 - slash, ' ');
  if (name.size() < 7) name.resize(7, ' ');
  return {Trim(name.substr(0, 3)), Trim(name.substr(name.size() - 3))};
}
