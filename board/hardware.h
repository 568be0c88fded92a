// The board's chips, as they are at power-on.
#pragma once

#include <array>

#include "board/address_space.h"
#include "board/aec.h"
#include "board/akm.h"
#include "board/arcofi.h"
#include "board/codec_software.h"
#include "board/codec_variables.h"
#include "board/i2c_bus.h"
#include "board/isac.h"
#include "board/jade.h"
#include "board/registers.h"
#include "board/saec.h"
#include "board/video_encoder.h"
#include "board/vpic.h"

namespace board {

struct Hardware {
    AddressSpace memory{0xFFFFFFFF, 4};
    AddressSpace ports{0xFFFF, 2};
    Vpic vpic;
    std::array<Registers, kIsacChips> isacs{IsacAtPowerOn(), IsacAtPowerOn(), IsacAtPowerOn()};
    Arcofi arcofi;
    Saec saec;
    Aec aec;
    Akm akm;
    I2cBus i2cBus;
    VideoEncoder videoEncoder;
    Registers jade = JadeAtPowerOn();
    CodecVariables codecVariables = CodecVariablesAtPowerOn();
    CodecSoftware codecSoftware;
};

}  // namespace board
