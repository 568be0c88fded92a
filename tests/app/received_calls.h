// What the board received from the utility, as texts that a test can write out by hand.
#pragma once

#include "board/control.h"
#include "tests/kit/test.h"

// "vdapi_Debug(45, 4, address) 01000000": the operation, its arguments in hexadecimal ("null" for
// an address that is absent) and the bytes behind the addresses, four by four.
std::string Written(const board::Call& call);

// A word as it stands in a block: "0D000000" for 13.
std::string WordText(uint32_t value);

// The calls since the last board::ForgetCalls.
std::vector<std::string> ReceivedCalls();

// Compares calls with those expected; "*" stands for any four bytes that are not all 0.
void ExpectCalls(const std::vector<std::string>& expected,
                 const std::vector<std::string>& received);
