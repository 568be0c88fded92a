// The ISACs' registers and bits. A board carries up to three of these chips, chosen with radio
// buttons.
#include "regs/isac_browsers.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "driver/debug_command.h"
#include "driver/low_memory.h"
#include "driver/papi.h"
#include "driver/parameter_block.h"
#include "driver/result_code.h"
#include "regs/isac_catalogue.h"
#include "regs/register_browser.h"
#include "services/application.h"
#include "services/diagnostics.h"
#include "services/number_field.h"

namespace {

// The driver's codes of the chips, in the radio buttons' order.
constexpr std::array<uint16_t, 3> kChipCodes{1, 6, 9};

// The boards that can carry more than one chip, by the low byte of their revision.
constexpr auto kTwoChipBoards = std::to_array<uint8_t>({0x05, 0x07});
constexpr auto kThreeChipBoards = std::to_array<uint8_t>({0x1D, 0x2D, 0x3D, 0x6D, 0x7D, 0x8D});

// The auxiliary device's field that tells whether they do.
constexpr uint32_t kSeveralChipsField = 10;

// A browser's radio buttons, whose ids follow one another, and the chip that it shows.
struct ChipChoice {
    const int firstButton;
    uint16_t code;
};
ChipChoice registersChip{IDC_ISAC_REGISTERS_CHIP_1, kChipCodes.front()};
ChipChoice bitsChip{IDC_ISAC_BITS_CHIP_1, kChipCodes.front()};

template <std::size_t kBoards>
bool IsOneOf(const std::array<uint8_t, kBoards>& boards) {
    return std::ranges::find(boards, BoardRevision & 0xFF) != boards.end();
}

void OpenChipChoice(HWND dialog, ChipChoice& choice) {
    const bool three = IsOneOf(kThreeChipBoards);
    uint16_t several = 0;
    if (three || IsOneOf(kTwoChipBoards))
        vdapi_AUXDEV_GetField(kSeveralChipsField, &several);
    const int first = choice.firstButton;
    EnableWindow(GetDlgItem(dialog, first + 1), several != 0);
    EnableWindow(GetDlgItem(dialog, first + 2), several != 0 && three);
    CheckRadioButton(dialog, first, first + 2, first);
    choice.code = kChipCodes.front();
}

bool ChooseChip(HWND dialog, ChipChoice& choice, int id) {
    const auto chip = static_cast<std::size_t>(id - choice.firstButton);
    if (chip >= kChipCodes.size())
        return false;
    choice.code = kChipCodes[chip];
    ShowCurrentRow(dialog);
    return true;
}

std::optional<std::string> ReadRegister(HWND /*dialog*/, std::size_t row) {
    const LowObject<uint8_t> value;
    IsacRegisterReadBlock block{.chip = registersChip.code,
                                .registerId = isac::kRegisters[row].id,
                                .value = value.Address()};
    if (CodeOf(vdapi_Debug(TALVERO_DBG_ISAC_TR_REG_RD, sizeof block, &block)) != VXD_SUCCESS)
        return std::nullopt;
    return HexText(*value, 2);
}

void WriteRegister(HWND dialog, std::size_t row, const std::string& text) {
    IsacRegisterWriteBlock block{.chip = registersChip.code,
                                 .registerId = isac::kRegisters[row].id,
                                 .value = static_cast<uint8_t>(ParseHexShortAfterPrefix(text))};
    ReportFailure(dialog, CodeOf(vdapi_Debug(TALVERO_DBG_ISAC_TR_REG_WR, sizeof block, &block)),
                  "vdapi_Debug: TALVERO_DBG_ISAC_TR_REG_WR");
}

// The command's own result is the bit; a failure cannot be told from it.
std::optional<std::string> ReadBit(HWND /*dialog*/, std::size_t row) {
    BitBlock block{.chip = bitsChip.code, .bit = isac::kBits[row].id};
    return std::to_string(CodeOf(vdapi_Debug(TALVERO_DBG_ISAC_OP_BIT_ST, sizeof block, &block)));
}

// Nobody is told of a failure here; the bit that is shown next tells.
void WriteBit(HWND /*dialog*/, std::size_t row, const std::string& text) {
    BitBlock block{.chip = bitsChip.code, .bit = isac::kBits[row].id};
    vdapi_Debug(
        ParseHexShort(text) != 0 ? TALVERO_DBG_ISAC_OP_BIT_SET : TALVERO_DBG_ISAC_OP_BIT_CLR,
        sizeof block, &block);
}

constexpr RegisterBrowser kRegisterBrowser{
    .dialog = IDD_ISAC_REGISTERS,
    .list = IDC_BROWSER_LIST,
    .value = IDC_BROWSER_VALUE,
    .name = IDC_BROWSER_NAME,
    .catalogue = kCatalogueOf<isac::kRegisters>,
    .read = ReadRegister,
    .failureText = "Failure !!",
    .write = WriteRegister,
    .open = [](HWND dialog) { OpenChipChoice(dialog, registersChip); },
    .command = [](HWND dialog, int id) { return ChooseChip(dialog, registersChip, id); },
};

constexpr RegisterBrowser kBitBrowser{
    .dialog = IDD_ISAC_BITS,
    .list = IDC_BROWSER_LIST,
    .value = IDC_BROWSER_VALUE,
    .name = IDC_BROWSER_NAME,
    .catalogue = kCatalogueOf<isac::kBits>,
    .read = ReadBit,
    .failureText = "",
    .write = WriteBit,
    .open = [](HWND dialog) { OpenChipChoice(dialog, bitsChip); },
    .command = [](HWND dialog, int id) { return ChooseChip(dialog, bitsChip, id); },
};

}  // namespace

INT_PTR OpenIsacRegisters(HINSTANCE instance, HWND owner) {
    return RunBrowser(instance, owner, kRegisterBrowser);
}

INT_PTR OpenIsacBits(HINSTANCE instance, HWND owner) {
    return RunBrowser(instance, owner, kBitBrowser);
}
