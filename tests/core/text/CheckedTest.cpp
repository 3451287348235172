// Checked arithmetic of the old run-time's integer types and the fault texts.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <optional>
#include <set>
#include <string>

#include "Checked.h"
#include "RuntimeFault.h"

namespace {

// The fault code a call throws, or nothing when it returns.
std::optional<FaultCode> FaultOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeFault& fault) {
    return fault.Code();
  }
  return std::nullopt;
}

struct ToIntegerCase {
  double Value;
  int32_t Expected;
};

class ToInteger : public ::testing::TestWithParam<ToIntegerCase> {};

TEST_P(ToInteger, CIntAndCLngRoundHalvesToEven) {
  EXPECT_EQ(CInt(GetParam().Value), GetParam().Expected);
  EXPECT_EQ(CLng(GetParam().Value), GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(Checked, ToInteger,
                         ::testing::Values(ToIntegerCase{2.5, 2}, ToIntegerCase{3.5, 4},
                                           ToIntegerCase{-2.5, -2}, ToIntegerCase{-3.5, -4},
                                           ToIntegerCase{0.4999, 0}, ToIntegerCase{-0.5, 0},
                                           ToIntegerCase{32767.4, 32767},
                                           ToIntegerCase{-32768.5, -32768},
                                           ToIntegerCase{1091.6, 1092}));

TEST(Checked, CIntOverflowsOutsideSixteenBits) {
  EXPECT_EQ(FaultOf([] { CInt(32767.5); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { CInt(-32768.51); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { CInt(1e300); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { CInt(NAN); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { CInt(INFINITY); }), FaultCode::Overflow);
}

TEST(Checked, CLngOverflowsOutsideThirtyTwoBits) {
  EXPECT_EQ(CLng(2147483646.5), 2147483646);
  EXPECT_EQ(CLng(-2147483648.0), -2147483647 - 1);
  EXPECT_EQ(FaultOf([] { CLng(2147483647.5); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { CLng(-2147483649.0); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { CLng(NAN); }), FaultCode::Overflow);
  EXPECT_EQ(CLng(40000.5), 40000);
}

TEST(Checked, SixteenBitArithmetic) {
  EXPECT_EQ(AddI16(32766, 1), 32767);
  EXPECT_EQ(SubI16(-32767, 1), -32768);
  EXPECT_EQ(MulI16(-181, 181), -32761);
  EXPECT_EQ(FaultOf([] { AddI16(32767, 1); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { SubI16(-32768, 1); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { MulI16(200, 200); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { MulI16(2147483647, 2147483647); }), FaultCode::Overflow);
}

TEST(Checked, DivisionStopsAtZero) {
  EXPECT_DOUBLE_EQ(Divide(7, 2), 3.5);
  EXPECT_DOUBLE_EQ(Divide(-1, 4), -0.25);
  EXPECT_EQ(FaultOf([] { Divide(1, 0); }), FaultCode::DivisionByZero);
  EXPECT_EQ(FaultOf([] { Divide(0, 0); }), FaultCode::DivisionByZero);
  EXPECT_EQ(FaultOf([] { Divide(1, -0.0); }), FaultCode::DivisionByZero);
  EXPECT_EQ(FaultOf([] { Divide(1e308, 1e-10); }), FaultCode::Overflow);
}

struct IntegerDivisionCase {
  double A;
  double B;
  int32_t Mod;
  int32_t Quotient;
};

class IntegerDivision : public ::testing::TestWithParam<IntegerDivisionCase> {};

TEST_P(IntegerDivision, ModAndBackslash) {
  EXPECT_EQ(VbMod(GetParam().A, GetParam().B), GetParam().Mod);
  EXPECT_EQ(VbIntDiv(GetParam().A, GetParam().B), GetParam().Quotient);
}

INSTANTIATE_TEST_SUITE_P(
    Checked, IntegerDivision,
    ::testing::Values(IntegerDivisionCase{-7, 3, -1, -2}, IntegerDivisionCase{7, -3, 1, -2},
                      IntegerDivisionCase{7, 3, 1, 2}, IntegerDivisionCase{5.5, 2, 0, 3},
                      IntegerDivisionCase{2.5, 2, 0, 1}, IntegerDivisionCase{7.5, 2, 0, 4},
                      IntegerDivisionCase{5, 1.5, 1, 2}, IntegerDivisionCase{10, 2.5, 0, 5}));

TEST(Checked, ModAndBackslashFailures) {
  EXPECT_EQ(FaultOf([] { VbMod(5, 0.4); }), FaultCode::DivisionByZero);
  EXPECT_EQ(FaultOf([] { VbMod(5, 0.5); }), FaultCode::DivisionByZero);
  EXPECT_EQ(FaultOf([] { VbMod(5, 0); }), FaultCode::DivisionByZero);
  EXPECT_EQ(FaultOf([] { VbIntDiv(5, -0.5); }), FaultCode::DivisionByZero);
  EXPECT_EQ(FaultOf([] { VbMod(3e9, 2); }), FaultCode::Overflow);
  EXPECT_EQ(FaultOf([] { VbIntDiv(-2147483648.0, -1); }), FaultCode::Overflow);
  EXPECT_EQ(VbMod(-2147483648.0, -1), 0);
}

TEST(RuntimeFault, WhatHoldsTheGreekTextAndTheDetail) {
  const RuntimeFault fault(FaultCode::FileNotFound, "RavoPipes.txt");
  EXPECT_EQ(std::string(fault.what()), "Το αρχείο δεν βρέθηκε: RavoPipes.txt");
  EXPECT_EQ(fault.Detail(), "RavoPipes.txt");
  EXPECT_EQ(fault.Code(), FaultCode::FileNotFound);
  EXPECT_EQ(std::string(RuntimeFault(FaultCode::Overflow).what()), "Υπερχείλιση αριθμού");
}

TEST(RuntimeFault, KnownTexts) {
  EXPECT_EQ(FaultText(FaultCode::DivisionByZero), "Διαίρεση με το μηδέν");
  EXPECT_EQ(FaultText(FaultCode::Overflow), "Υπερχείλιση αριθμού");
  EXPECT_EQ(FaultText(FaultCode::PathFileAccess), "Σφάλμα πρόσβασης σε αρχείο ή φάκελο");
  EXPECT_EQ(FaultText(FaultCode::DiskFull), "Ο δίσκος είναι γεμάτος");
  EXPECT_EQ(FaultText(FaultCode::PermissionDenied), "Δεν επιτρέπεται η πρόσβαση");
  EXPECT_EQ(FaultText(FaultCode::InvalidCall), "Μη αποδεκτή κλήση διαδικασίας ή τιμή ορίσματος");
  EXPECT_EQ(FaultText(FaultCode::Internal), "Εσωτερικό σφάλμα του προγράμματος");
}

TEST(RuntimeFault, EveryCodeHasItsOwnText) {
  const FaultCode all[] = {
      FaultCode::InvalidCall,      FaultCode::Overflow,       FaultCode::OutOfMemory,
      FaultCode::DivisionByZero,   FaultCode::TypeMismatch,   FaultCode::FileNotFound,
      FaultCode::DeviceIo,         FaultCode::DiskFull,       FaultCode::BadRecordNumber,
      FaultCode::PermissionDenied, FaultCode::PathFileAccess, FaultCode::PathNotFound,
      FaultCode::Internal};
  std::set<std::string_view> texts;
  for (const FaultCode code : all) texts.insert(FaultText(code));
  EXPECT_EQ(texts.size(), std::size(all));
  EXPECT_FALSE(texts.count(FaultText(static_cast<FaultCode>(9999))));
}

}  // namespace
