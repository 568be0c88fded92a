// The PCI bus as the driver asks the BIOS about it.
//
// Two devices are there: the board's bridge (vendor 0x1061, device 0x0001) as device 0 of bus 0,
// and behind it the board (vendor 0x1061, device 0x0002, class code 0) as device 9 of bus 1.
// Finding what is not there answers VXD_ERR_BIOS; reading where nothing is gives all ones, as a bus
// without an answer does. An access to a register that is not a multiple of its width, or of
// another width than 8, 9 or 10 stand for, answers VXD_INVALID_PARAMETER. The driver can have an
// access of its own (State::pciAccess), which it uses whatever it is asked for; the block tells
// afterwards which one was used.
//
// An interrupt can be simulated while the VPIC, which makes it, is up, else VXD_IRQ_ERROR.
#pragma once

#include "driver/parameter_block.h"
#include "driver/result_code.h"

namespace board {

struct State;

ResultCode FindPciBios(State& state, const PciBiosPresentBlock& block);
ResultCode FindPciDevice(State& state, const PciFindDeviceBlock& block);
ResultCode FindPciClass(State& state, const PciFindClassCodeBlock& block);
ResultCode ReadPciConfig(State& state, PciReadConfigBlock& block);
ResultCode SimulatePciInterrupt(State& state);

}  // namespace board
