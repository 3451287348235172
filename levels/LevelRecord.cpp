#include "LevelRecord.h"

void ClearFloorRecord(LevelRecord& record) {
  record = LevelRecord{};
  record.Reserved1.assign(30, ' ');
  record.Reserved2.assign(4, '\0');
  record.Reserved3.assign(22, '\0');
  record.Reserved4.assign(16, '\0');
}
