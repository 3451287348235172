#pragma once
// The code of the fault a call throws, or nothing when it returns; a fault whose detail does not
// name `named` fails the test. One line in a test for what is otherwise a try and a catch.
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "RuntimeFault.h"

template <class Call>
std::optional<FaultCode> FaultOf(Call&& call, const std::string& named = {}) {
  try {
    call();
  } catch (const RuntimeFault& fault) {
    EXPECT_NE(fault.Detail().find(named), std::string::npos) << fault.Detail();
    return fault.Code();
  }
  return std::nullopt;
}
