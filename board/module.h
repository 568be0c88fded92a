// The driver's modules, by the numbers with which a GDS dump asks for them.
#pragma once

#include <cstdint>

namespace board {

enum class Module : uint32_t {
    Validity,
    Core,
    Debug,
    Pmapi,
    Vpic,
    Seq,
    Isac,
    Iom2,
    Arcofi,
    Jade,
    Auxdev,
    Vcpxi,
    I2c,
    Camera,
    Eprom,
    Acif,
    Vidinlay,
    Stream,
    Lsd,
    Hsd,
    Mlp,
    Bt85x,
    VcpRegs,
    Vpp,
    AnnexD,
    Mbe,
};

}  // namespace board
