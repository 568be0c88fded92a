// What the PCI bus tells of the board. The answers go to the trace, as zeros where the query
// failed; failures are reported by name. User-interface thread.
#pragma once

#include "platform/win32.h"

void QueryPciBios(HWND window);
void FindPciDevice(HWND window);
void FindPciClassCode(HWND window);
// Reads the first byte of the first device's configuration space.
void ReadPciConfigSpace(HWND window);
