// What an ISDN transceiver, ISAC, offers by name.
#pragma once

#include <array>
#include <cstdint>

#include "regs/catalogue.h"

namespace isac {

// The registers that hold the named bits.
enum Register : uint32_t {
    MODE = 0x622,
    SPCR = 0x630,
    STCR = 0x537,
    ADF1 = 0x538,
    ADF2 = 0x639,
    MOCR = 0x53A,
    SQXR = 0x53B,
    STAR = 0x221,
    RSTA = 0x227,
    RBCH = 0x22A,
    STAR2 = 0x62B,
    CIR1 = 0x233,
    SQRR = 0x23B,
};

// A bit of a register, by its mask.
constexpr RegisterRow Bit(RowName name, Register registerId, uint32_t mask) {
    return {name, mask << 16 | registerId};
}

inline constexpr auto kRegisters = std::to_array<RegisterRow>({
    {"RFIFO - Receive FIFO ", 0x200},
    {"ISTA  - Interrupt Status ", 0x220},
    {"STAR  - Status ", STAR},
    {"MODE  - Mode ", MODE},
    {"TIMR  - Timer ", 0x623},
    {"EXIR  - Extended Interrupt ", 0x224},
    {"RBCL  - Receive Byte Frame Low", 0x225},
    {"SAPR  - Received SAPI ", 0x226},
    {"RSTA  - Receive Status ", RSTA},
    {"RHCR  - Receive HDLC Control ", 0x229},
    {"RBCH  - Receive Byte Frame High", RBCH},
    {"STAR2 - Status 2 ", STAR2},
    {"SPCR  - Serial Port Control ", SPCR},
    {"CIR0  - C/I Receive 0 ", 0x231},
    {"MOR0  - Monitor Receive 0 ", 0x232},
    {"CIR1  - C/I Receive 1 ", CIR1},
    {"MOR1  - Monitor Receive 1 ", 0x234},
    {"C1R   - Channel 1 ", 0x635},
    {"C2R   - Channel 2 ", 0x636},
    {"B1CR  - B1 Channel ", 0x237},
    {"B2CR  - B2 Channel ", 0x238},
    {"ADF2  - Additional Feature 2", ADF2},
    {"MOSR  - Monitor Status ", 0x23A},
    {"SQRR  - S/Q Channel Receive ", SQRR},
    {"XFIFO - Transmit FIFO ", 0x400},
    {"MASK  - Interrupt Mask ", 0x520},
    {"CMDR  - Command ", 0x421},
    {"XAD1  - Transmit Address 1 ", 0x524},
    {"XAD2  - Transmit Address 2 ", 0x525},
    {"SAP1  - Individual SAPI 1 ", 0x526},
    {"SAP2  - Individual SAPI 2 ", 0x527},
    {"TEI1  - Individual TEI 1 ", 0x528},
    {"TEI2  - Individual TEI 2 ", 0x529},
    {"CIX0  - C/I Transmit 0 ", 0x531},
    {"MOX0  - Monitor Transmit 0 ", 0x532},
    {"CIX1  - C/I Transmit 1 ", 0x533},
    {"MOX1  - Monitor Transmit 1 ", 0x534},
    {"STCR  - Sync Transfer Control ", STCR},
    {"ADF1  - Additional Feature 1", ADF1},
    {"MOCR  - Monitor Control ", MOCR},
    {"SQXR  - S/Q Channel Transmit ", SQXR},
});

inline constexpr auto kBits = PadNames<22>(std::to_array<RegisterRow>({
    Bit("MODE_MDS2", MODE, 0x80),   Bit("MODE_MDS1", MODE, 0x40),   Bit("MODE_MDS0", MODE, 0x20),
    Bit("MODE_TMD", MODE, 0x10),    Bit("MODE_RAC", MODE, 0x08),    Bit("MODE_DIM2", MODE, 0x04),
    Bit("MODE_DIM1", MODE, 0x02),   Bit("MODE_DIM0", MODE, 0x01),   Bit("SPCR_SPU", SPCR, 0x80),
    Bit("SPCR_TLP", SPCR, 0x10),    Bit("SPCR_C1C1", SPCR, 0x08),   Bit("SPCR_C1C0", SPCR, 0x04),
    Bit("SPCR_C2C1", SPCR, 0x02),   Bit("SPCR_C2C0", SPCR, 0x01),   Bit("STCR_TSF", STCR, 0x80),
    Bit("STCR_TBA2", STCR, 0x40),   Bit("STCR_TBA1", STCR, 0x20),   Bit("STCR_TBA0", STCR, 0x10),
    Bit("STCR_ST1", STCR, 0x08),    Bit("STCR_ST0", STCR, 0x04),    Bit("STCR_SC1", STCR, 0x02),
    Bit("STCR_SC0", STCR, 0x01),    Bit("ADF1_WTC1", ADF1, 0x80),   Bit("ADF1_WTC2", ADF1, 0x40),
    Bit("ADF1_TEM", ADF1, 0x20),    Bit("ADF1_PFS", ADF1, 0x10),    Bit("ADF1_IOF", ADF1, 0x08),
    Bit("ADF1_ITF", ADF1, 0x01),    Bit("ADF2_IMS", ADF2, 0x80),    Bit("ADF2_ODS", ADF2, 0x08),
    Bit("ADF2_D1C2", ADF2, 0x04),   Bit("ADF2_D1C1", ADF2, 0x02),   Bit("ADF2_D1C0", ADF2, 0x01),
    Bit("MOCR_MRE1", MOCR, 0x80),   Bit("MOCR_MRC1", MOCR, 0x40),   Bit("MOCR_MXE1", MOCR, 0x20),
    Bit("MOCR_MXC1", MOCR, 0x10),   Bit("MOCR_MRE0", MOCR, 0x08),   Bit("MOCR_MRC0", MOCR, 0x04),
    Bit("MOCR_MXE0", MOCR, 0x02),   Bit("MOCR_MXC0", MOCR, 0x01),   Bit("SQXR_IDC", SQXR, 0x80),
    Bit("SQXR_CFS", SQXR, 0x40),    Bit("SQXR_CI1E", SQXR, 0x20),   Bit("SQXR_SQIE", SQXR, 0x10),
    Bit("SQXR_SQX1", SQXR, 0x08),   Bit("SQXR_SQX2", SQXR, 0x04),   Bit("SQXR_SQX3", SQXR, 0x02),
    Bit("SQXR_SQX4", SQXR, 0x01),   Bit("STAR_XDOV", STAR, 0x80),   Bit("STAR_XFW", STAR, 0x40),
    Bit("STAR_XRNR", STAR, 0x20),   Bit("STAR_RRNR", STAR, 0x10),   Bit("STAR_MBR", STAR, 0x08),
    Bit("STAR_MAC1", STAR, 0x04),   Bit("STAR_MAC0", STAR, 0x01),   Bit("RSTA_RDA", RSTA, 0x80),
    Bit("RSTA_RDO", RSTA, 0x40),    Bit("RSTA_CRC", RSTA, 0x20),    Bit("RSTA_RAB", RSTA, 0x10),
    Bit("RSTA_SA1", RSTA, 0x08),    Bit("RSTA_SA0", RSTA, 0x04),    Bit("RSTA_C_R", RSTA, 0x02),
    Bit("RSTA_TA", RSTA, 0x01),     Bit("RBCH_XAC", RBCH, 0x80),    Bit("RBCH_VN1", RBCH, 0x40),
    Bit("RBCH_VN0", RBCH, 0x20),    Bit("RBCH_OV", RBCH, 0x10),     Bit("STAR2_WFA", STAR2, 0x08),
    Bit("STAR2_MULT", STAR2, 0x04), Bit("STAR2_TREC", STAR2, 0x02), Bit("STAR2_SDET", STAR2, 0x01),
    Bit("CIR1_MR1", CIR1, 0x02),    Bit("CIR1_MX1", CIR1, 0x01),    Bit("SQRR_IDC", SQRR, 0x80),
    Bit("SQRR_CFC", SQRR, 0x40),    Bit("SQRR_CI1E", SQRR, 0x20),   Bit("SQRR_SYN", SQRR, 0x10),
    Bit("SQRR_SQR1", SQRR, 0x08),   Bit("SQRR_SQR2", SQRR, 0x04),   Bit("SQRR_SQR3", SQRR, 0x02),
    Bit("SQRR_SQR4", SQRR, 0x01),
}));

}  // namespace isac
