#include "SomaRecord.h"

#include "Cp1253.h"

std::string DisplayCategory(const std::string& category) {
  const std::size_t bracket = category.find('(');
  return Trim(bracket == std::string::npos ? category : category.substr(0, bracket));
}
