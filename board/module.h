// The driver's modules, by the numbers with which a GDS dump asks for them.
#pragma once

#include <cstdint>

namespace board {

enum class Module : uint32_t {
    kValidity,
    kCore,
    kDebug,
    kPmapi,
    kVpic,
    kSeq,
    kIsac,
    kIom2,
    kArcofi,
    kJade,
    kAuxdev,
    kVcpxi,
    kI2c,
    kCamera,
    kEprom,
    kAcif,
    kVidinlay,
    kStream,
    kLsd,
    kHsd,
    kMlp,
    kBt85x,
    kVcpRegs,
    kVpp,
    kAnnexD,
    kMbe,
};

}  // namespace board
