// The chips and services that the driver brings through a life cycle, as they are at power-on, with
// the little that they are told by it. What chips hold in registers stands elsewhere.
#pragma once

#include <cstdint>

#include "board/bas.h"
#include "board/life_cycle.h"
#include "board/mbe.h"
#include "board/sequencer.h"
#include "board/user_data.h"
#include "board/video_inlay.h"
#include "board/vpp.h"

namespace board {

struct Services {
    LifeCycles lifeCycles;
    Sequencer sequencer;
    Mbe mbe;
    UserDataChannels userData{};
    Bas bas;
    VideoInlay videoInlay;
    Vpp vpp;
    bool codecProcessorRegistered = false;
    uint32_t codecVariableTests = 0;  // accesses of the repeated test
    uint32_t arcofiChannel = 0;       // channel code
    bool arcofiShadow = false;        // the driver's copy was initialised by command
    uint32_t displayType = 0;         // 0 NTSC, 1 PAL
    uint32_t boardInterrupts = 0;     // simulated over the PCI bus
};

// The commands and operations that tell a service something. They want it to be up, else
// VXD_CONFIGURATION_NOT_SET, and a value that it knows, else VXD_INVALID_PARAMETER.
ResultCode SelectArcofiChannel(State& state, uint32_t channelCode);  // 0 or 0x40
ResultCode SetDisplayType(State& state, uint32_t type);              // 0 or 1

// Makes the driver's copy of the ARCOFI's registers, while it is up.
ResultCode InitializeArcofiShadow(State& state);

// Registers a client of the codec processor (VCPXi), which takes place once.
ResultCode RegisterCodecProcessor(State& state, const VcpxiRegisterBlock& block);
ResultCode UnregisterCodecProcessor(State& state);

// Resets the JADE; the code that asks for it is 0x32.
ResultCode ResetJade(State& state, uint32_t code);

}  // namespace board
