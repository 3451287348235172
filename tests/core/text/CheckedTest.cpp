// Checked arithmetic of the old run-time's integer types and the fault texts.
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <tuple>

#include "Checked.h"
#include "Faults.h"

namespace {

TEST(Checked, CIntAndCLngRoundHalvesToEven) {
  const std::pair<double, int32_t> cases[] = {{2.5, 2},         {3.5, 4},           {-2.5, -2},
                                              {-3.5, -4},       {0.4999, 0},        {-0.5, 0},
                                              {32767.4, 32767}, {-32768.5, -32768}, {1091.6, 1092}};
  for (const auto& [value, expected] : cases) {
    EXPECT_EQ(CInt(value), expected) << value;
    EXPECT_EQ(CLng(value), expected) << value;
  }
  EXPECT_EQ(CLng(2147483646.5), 2147483646);
  EXPECT_EQ(CLng(-2147483648.0), -2147483647 - 1);
  EXPECT_EQ(CLng(40000.5), 40000);
}

// A double just below FLT_MAX and half its last step still rounds into a single.
TEST(Checked, CSngTakesEveryValueThatRoundsIntoASingle) {
  EXPECT_EQ(CSng(std::nextafter(0x1.ffffffp+127, 0.0)), 0x1.fffffep+127f);
  EXPECT_EQ(CSng(-3.4e38), -3.4e38f);
  EXPECT_EQ(CSng(1e-50), 0.0f);
}

TEST(Checked, ModAndBackslashRoundTheirOperandsFirst) {
  // a, b, a Mod b, a \\ b
  const std::tuple<double, double, int32_t, int32_t> cases[] = {
      {-7, 3, -1, -2}, {7, -3, 1, -2}, {7, 3, 1, 2},   {5.5, 2, 0, 3},
      {2.5, 2, 0, 1},  {7.5, 2, 0, 4}, {5, 1.5, 1, 2}, {10, 2.5, 0, 5}};
  for (const auto& [a, b, mod, quotient] : cases) {
    EXPECT_EQ(VbMod(a, b), mod) << a << " Mod " << b;
    EXPECT_EQ(VbIntDiv(a, b), quotient) << a << " \\ " << b;
  }
  EXPECT_EQ(VbMod(-2147483648.0, -1), 0);
  EXPECT_EQ(AddI16(32766, 1), 32767);
  EXPECT_EQ(SubI16(-32767, 1), -32768);
  EXPECT_EQ(MulI16(-181, 181), -32761);
  EXPECT_DOUBLE_EQ(Divide(-1, 4), -0.25);
}

TEST(Checked, OverflowAndDivisionByZeroStopTheCommand) {
  constexpr auto kOverflow = FaultCode::Overflow, kByZero = FaultCode::DivisionByZero;
  for (double v : {32767.5, -32768.51, double(NAN), double(INFINITY)})
    EXPECT_EQ(FaultOf([&] { CInt(v); }), kOverflow) << "CInt " << v;
  for (double v : {2147483647.5, -2147483649.0})
    EXPECT_EQ(FaultOf([&] { CLng(v); }), kOverflow) << "CLng " << v;
  // Beyond FLT_MAX by half a step or more.
  for (double v : {3.4e39, -0x1.ffffffp+127, double(NAN), double(INFINITY)})
    EXPECT_EQ(FaultOf([&] { CSng(v); }), kOverflow) << "CSng " << v;
  EXPECT_EQ(FaultOf([] { AddI16(32767, 1); }), kOverflow);
  EXPECT_EQ(FaultOf([] { SubI16(-32768, 1); }), kOverflow);
  EXPECT_EQ(FaultOf([] { MulI16(200, 200); }), kOverflow);
  EXPECT_EQ(FaultOf([] { MulI16(2147483647, 2147483647); }), kOverflow);
  using Case = std::tuple<double, double, FaultCode>;
  for (const auto& [a, b, code] :
       {Case{1, 0, kByZero}, {1, -0.0, kByZero}, {1e308, 1e-10, kOverflow}})
    EXPECT_EQ(FaultOf([&] { Divide(a, b); }), code) << a << " / " << b;
  // Mod and \\ round their operands first: a divisor of 0.5 is 0.
  for (const auto& [a, b, code] : {Case{5, 0.4, kByZero}, {5, 0.5, kByZero}, {3e9, 2, kOverflow}})
    EXPECT_EQ(FaultOf([&] { VbMod(a, b); }), code) << a << " Mod " << b;
  for (const auto& [a, b, code] : {Case{5, -0.5, kByZero}, {-2147483648.0, -1, kOverflow}})
    EXPECT_EQ(FaultOf([&] { VbIntDiv(a, b); }), code) << a << " \\ " << b;
}

TEST(RuntimeFault, EveryCodeHasItsOwnGreekTextFollowedByTheDetail) {
  const RuntimeFault fault(FaultCode::FileNotFound, "RavoPipes.txt");
  EXPECT_EQ(std::string(fault.what()), "Το αρχείο δεν βρέθηκε: RavoPipes.txt");
  EXPECT_EQ(std::string(RuntimeFault(FaultCode::Overflow).what()), "Υπερχείλιση αριθμού");
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
