#pragma once
#include "Numbers.h"

// The separators of the user's locale (LC_ALL, LC_NUMERIC, LANG through QLocale::system()):
// 2500.0 formatted with "#,##0.0" under the locale, character 2 the thousands separator and
// character 6 the decimal one. Nothing else is consulted.
Separators SystemSeparators();
