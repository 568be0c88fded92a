// The older board's commands that are one call each: a step in the life cycle of a chip or service,
// or a question to the engineer and then such a step.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// Runs such a command and reports its failure by name; any other command does nothing.
// User-interface thread.
void RunChipCommand(HWND window, uint32_t command);
