#include "StudyState.h"

#include <gtest/gtest.h>

namespace {

TEST(StudyState, StartValues) {
  const StudyState s;
  EXPECT_EQ(s.CurrentSheet, 1);
  EXPECT_EQ(s.SomaCategory, 1);
  EXPECT_EQ(s.ColumnsEditable, -1);
  EXPECT_EQ(s.SheetCount, 0);
}

// The pipe's area comes from the pipe list read at start: a new study still calculates.
TEST(StudyState, InitializeVariablesEmptiesAllButTheSheetTheSeparatorsAndThePipe) {
  StudyState s;
  s.CurrentSheet = 7;
  s.SheetCount = 9;
  s.Calculated = -1;
  s.StudyChanged = -1;
  s.ErrorFlag = -2;
  s.LastAnswer = "YES";
  s.SomaCategory = 4;
  s.DecimalSep = ',';
  s.ThousandsSep = '.';
  s.PipeArea = 0.0001131f;
  s.StudyFileName = "RVLFiles/Μελέτη.sht";
  s.ColumnsEditable = -1;
  s.SomaRecords = 12;
  s.Thema = "Μελέτη";

  s.InitializeVariables();

  EXPECT_EQ(s.CurrentSheet, 7);
  EXPECT_EQ(s.DecimalSep, ',');
  EXPECT_EQ(s.ThousandsSep, '.');
  EXPECT_EQ(s.SheetCount, 0);
  EXPECT_EQ(s.Calculated, 0);
  EXPECT_EQ(s.StudyChanged, 0);
  EXPECT_EQ(s.ErrorFlag, 0);
  EXPECT_EQ(s.LastAnswer, "");
  EXPECT_EQ(s.SomaCategory, 0);
  EXPECT_EQ(s.PipeArea, 0.0001131f);
  EXPECT_EQ(s.SomaRecords, 0);
  EXPECT_EQ(s.Thema, "");
  EXPECT_EQ(s.StudyFileName, "");
  EXPECT_EQ(s.ColumnsEditable, 0);
}

}  // namespace
