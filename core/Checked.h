#pragma once
// Checked arithmetic of the old run-time's integer types. Every failure throws RuntimeFault,
// which the command boundary reports; nothing here ever wraps around silently.
#include <cstdint>

#include "RuntimeFault.h"

// Assignment of a floating value to i16 / i32: halves to even, Overflow outside the range.
int16_t CInt(double value);
int32_t CLng(double value);
// Assignment of a floating value to a single: Overflow when it does not fit (an infinity or a
// NaN never fits; the run-time made neither).
float CSng(double value);

// i16 arithmetic: Overflow when the result leaves -32768..32767.
int16_t AddI16(int32_t a, int32_t b);
int16_t SubI16(int32_t a, int32_t b);
int16_t MulI16(int32_t a, int32_t b);

// Floating division: DivisionByZero when b is 0 (the run-time stops instead of giving inf).
double Divide(double a, double b);

// a Mod b: both rounded halves to even first, the result takes the sign of a.
// DivisionByZero when b rounds to 0; Overflow when an operand leaves the i32 range.
int32_t VbMod(double a, double b);

// a \ b: both rounded halves to even, then the quotient truncated. DivisionByZero as Mod.
int32_t VbIntDiv(double a, double b);
