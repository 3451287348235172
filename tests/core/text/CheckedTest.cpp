// Checked arithmetic of the old run-time's integer types and the fault texts.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <optional>
#include <set>
#include <string>

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
  const struct {
    double A, B;
    int32_t Mod, Quotient;
  } cases[] = {{-7, 3, -1, -2}, {7, -3, 1, -2}, {7, 3, 1, 2},   {5.5, 2, 0, 3},
               {2.5, 2, 0, 1},  {7.5, 2, 0, 4}, {5, 1.5, 1, 2}, {10, 2.5, 0, 5}};
  for (const auto& c : cases) {
    EXPECT_EQ(VbMod(c.A, c.B), c.Mod) << c.A << " Mod " << c.B;
    EXPECT_EQ(VbIntDiv(c.A, c.B), c.Quotient) << c.A << " \\ " << c.B;
  }
  EXPECT_EQ(VbMod(-2147483648.0, -1), 0);
  EXPECT_EQ(AddI16(32766, 1), 32767);
  EXPECT_EQ(SubI16(-32767, 1), -32768);
  EXPECT_EQ(MulI16(-181, 181), -32761);
  EXPECT_DOUBLE_EQ(Divide(-1, 4), -0.25);
}

TEST(Checked, OverflowAndDivisionByZeroStopTheCommand) {
  const struct {
    const char* What;
    std::function<void()> Call;
    FaultCode Code;
  } cases[] = {
      {"CInt(32767.5)", [] { CInt(32767.5); }, FaultCode::Overflow},
      {"CInt(-32768.51)", [] { CInt(-32768.51); }, FaultCode::Overflow},
      {"CInt(NaN)", [] { CInt(NAN); }, FaultCode::Overflow},
      {"CInt(inf)", [] { CInt(INFINITY); }, FaultCode::Overflow},
      {"CLng(2147483647.5)", [] { CLng(2147483647.5); }, FaultCode::Overflow},
      {"CLng(-2147483649)", [] { CLng(-2147483649.0); }, FaultCode::Overflow},
      {"AddI16", [] { AddI16(32767, 1); }, FaultCode::Overflow},
      {"SubI16", [] { SubI16(-32768, 1); }, FaultCode::Overflow},
      {"MulI16", [] { MulI16(200, 200); }, FaultCode::Overflow},
      {"MulI16 wide", [] { MulI16(2147483647, 2147483647); }, FaultCode::Overflow},
      {"1 / 0", [] { Divide(1, 0); }, FaultCode::DivisionByZero},
      {"1 / -0", [] { Divide(1, -0.0); }, FaultCode::DivisionByZero},
      {"1e308 / 1e-10", [] { Divide(1e308, 1e-10); }, FaultCode::Overflow},
      {"5 Mod 0.4", [] { VbMod(5, 0.4); }, FaultCode::DivisionByZero},
      {"5 Mod 0.5", [] { VbMod(5, 0.5); }, FaultCode::DivisionByZero},
      {"5 \\ -0.5", [] { VbIntDiv(5, -0.5); }, FaultCode::DivisionByZero},
      {"3e9 Mod 2", [] { VbMod(3e9, 2); }, FaultCode::Overflow},
      {"-2^31 \\ -1", [] { VbIntDiv(-2147483648.0, -1); }, FaultCode::Overflow},
      {"CSng(3.4e39)", [] { CSng(3.4e39); }, FaultCode::Overflow},
      {"CSng(-FLT_MAX - half a step)", [] { CSng(-0x1.ffffffp+127); }, FaultCode::Overflow},
      {"CSng(NaN)", [] { CSng(NAN); }, FaultCode::Overflow},
      {"CSng(inf)", [] { CSng(INFINITY); }, FaultCode::Overflow},
  };
  for (const auto& c : cases) EXPECT_EQ(FaultOf(c.Call), c.Code) << c.What;
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
