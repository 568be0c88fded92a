// Statements that are known not to hold on one of the systems.
#pragma once

#include <gtest/gtest.h>

#include "platform/window_system.h"

namespace kit {

// For EXPECT_TRUE: a statement that holds everywhere but on `exception`. The reason says what that
// system does instead and why it may. Where the statement has come to hold there too, the mark has
// to go, and the test fails until it does.
testing::AssertionResult HoldsExceptOn(WindowSystem exception, const char* reason, bool holds);

}  // namespace kit
