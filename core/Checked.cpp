#include "Checked.h"

#include <cmath>
#include <limits>

#include "Numbers.h"

namespace {

// Halves to even, then the range of the target type; NaN counts as out of range.
template <typename Int>
Int RoundInto(double value) {
  const double rounded = RoundHalfEven(value);
  if (!(rounded >= std::numeric_limits<Int>::min() && rounded <= std::numeric_limits<Int>::max())) {
    throw RuntimeFault(FaultCode::Overflow);
  }
  return static_cast<Int>(rounded);
}

int16_t CheckedI16(int64_t result) {
  if (result < std::numeric_limits<int16_t>::min() ||
      result > std::numeric_limits<int16_t>::max()) {
    throw RuntimeFault(FaultCode::Overflow);
  }
  return static_cast<int16_t>(result);
}

int32_t CheckedLong(int64_t result) {
  if (result < std::numeric_limits<int32_t>::min() ||
      result > std::numeric_limits<int32_t>::max()) {
    throw RuntimeFault(FaultCode::Overflow);
  }
  return static_cast<int32_t>(result);
}

struct LongOperands {
  int32_t A;
  int32_t B;
};

LongOperands ForIntegerDivision(double a, double b) {
  const LongOperands ops{CLng(a), CLng(b)};
  if (ops.B == 0) throw RuntimeFault(FaultCode::DivisionByZero);
  return ops;
}

}  // namespace

int16_t CInt(double value) {
  return RoundInto<int16_t>(value);
}
int32_t CLng(double value) {
  return RoundInto<int32_t>(value);
}

float CSng(double value) {
  // The first value that rounds up past the largest single: FLT_MAX and half its last step.
  // Checked before the conversion, which is undefined beyond it.
  constexpr double kBeyondSingle = 0x1.ffffffp+127;
  if (!(std::fabs(value) < kBeyondSingle)) throw RuntimeFault(FaultCode::Overflow);
  return static_cast<float>(value);
}

int16_t AddI16(int32_t a, int32_t b) {
  return CheckedI16(int64_t{a} + b);
}
int16_t SubI16(int32_t a, int32_t b) {
  return CheckedI16(int64_t{a} - b);
}
int16_t MulI16(int32_t a, int32_t b) {
  return CheckedI16(int64_t{a} * b);
}

double Divide(double a, double b) {
  if (b == 0.0) throw RuntimeFault(FaultCode::DivisionByZero);
  const double quotient = a / b;
  // The run-time never produced an infinity: a quotient beyond the double range overflowed.
  if (std::isinf(quotient) && std::isfinite(a)) throw RuntimeFault(FaultCode::Overflow);
  return quotient;
}

int32_t VbMod(double a, double b) {
  const LongOperands ops = ForIntegerDivision(a, b);
  // -2147483648 Mod -1 is 0; the division alone would leave the Long range.
  if (ops.B == -1) return 0;
  return ops.A % ops.B;
}

int32_t VbIntDiv(double a, double b) {
  const LongOperands ops = ForIntegerDivision(a, b);
  return CheckedLong(int64_t{ops.A} / ops.B);
}
