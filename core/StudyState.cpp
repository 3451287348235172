#include "StudyState.h"

void StudyState::InitializeVariables() {
  SheetCount = 0;
  Calculated = 0;
  StudyChanged = 0;
  ErrorFlag = 0;
  LastAnswer.clear();
  SomaCategory = 0;
  StudyFileName.clear();
  Thema.clear();
  ColumnsEditable = 0;
  SomaRecords = 0;
}
