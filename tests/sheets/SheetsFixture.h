#pragma once
// A main screen over a fresh program folder for each test.
#include <gtest/gtest.h>

#include "MainScreen.h"
#include "RadiatorSizing.h"
#include "RecordFile.h"
#include "SomaRecord.h"

class SheetsTest : public ::testing::Test, public MainScreen {};
