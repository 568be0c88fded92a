// "EPROM DLG": up to eight bytes of the board's EEPROM, read or written at an address. Fields and
// operation are remembered.
#include "regs/eprom.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>

#include "driver/papi.h"
#include "driver/shared_words.h"
#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"
#include "services/remembered_fields.h"

namespace {

// The last argument of both transfers.
constexpr uint32_t kTransferConstant = 30;
constexpr DWORD kLongestTransfer = 4096;  // milliseconds

constexpr std::array kDataFields = {IDC_EPROM_DATA_1, IDC_EPROM_DATA_2, IDC_EPROM_DATA_3,
                                    IDC_EPROM_DATA_4, IDC_EPROM_DATA_5, IDC_EPROM_DATA_6,
                                    IDC_EPROM_DATA_7, IDC_EPROM_DATA_8};

constexpr auto kRemembered = std::to_array<RememberedHexField>({
    {IDC_EPROM_ADDRESS, setting::kEpromAddress},
    {IDC_EPROM_DATA_1, setting::kEpromData[1]},
    {IDC_EPROM_DATA_2, setting::kEpromData[2]},
    {IDC_EPROM_DATA_3, setting::kEpromData[3]},
    {IDC_EPROM_DATA_4, setting::kEpromData[4]},
    {IDC_EPROM_DATA_5, setting::kEpromData[5]},
    {IDC_EPROM_DATA_6, setting::kEpromData[6]},
    {IDC_EPROM_DATA_7, setting::kEpromData[7]},
    {IDC_EPROM_DATA_8, setting::kEpromData[8]},
    {IDC_EPROM_LENGTH, setting::kEpromLength},
});

// The bytes under way. Static because the driver may still fill them after a transfer that was
// given up.
std::array<uint8_t, kDataFields.size()> transferBytes;

// The driver clears the flag from a context of its own.
std::atomic_ref<uint16_t> PendingFlag() {
    return std::atomic_ref(const_cast<uint16_t&>(GetSharedWords().EpromPendingFlag));
}

// Looks at the flag again and again, without taking messages, until the driver has cleared it;
// false when it takes too long.
bool TransferEnds() {
    const DWORD start = GetTickCount();
    while (PendingFlag() != 0) {
        if (GetTickCount() - start >= kLongestTransfer)
            return PendingFlag() == 0;
    }
    return true;
}

void ShowBytes(HWND dialog, uint32_t length) {
    for (std::size_t i = 0; i < kDataFields.size(); ++i) {
        ShowField(dialog, kDataFields[i], "0x%02hX",
                  static_cast<uint16_t>(i < length ? transferBytes[i] : 0));
    }
}

// What the operation itself answers is not looked at: one that was refused never ends.
void ReadBytes(HWND dialog, uint32_t address, uint32_t length) {
    transferBytes.fill(0);
    PendingFlag() = 1;
    vdapi_EPROM_Read(address, transferBytes.data(), length, kTransferConstant);
    if (TransferEnds()) {
        ShowBytes(dialog, length);
    } else {
        ReportFailure(dialog, VXD_TIMEOUT_FAILURE, "vdapi_Debug: TALVERO_DBG_EPROM_READ");
    }
}

void WriteBytes(HWND dialog, uint32_t address, uint32_t length) {
    std::ranges::transform(kDataFields, transferBytes.begin(), [dialog](int id) {
        return static_cast<uint8_t>(ReadHexShort(dialog, id));
    });
    PendingFlag() = 1;
    vdapi_EPROM_Write(address, transferBytes.data(), length, kTransferConstant);
    if (!TransferEnds())
        ReportFailure(dialog, VXD_TIMEOUT_FAILURE, "vdapi_Debug: TALVERO_DBG_EPROM_WRITE");
}

// The chosen operation's button; reading counts as chosen where none is.
int Operation(HWND dialog) {
    return CheckedButton(dialog, IDC_EPROM_READ, IDC_EPROM_WRITE);
}

void Apply(HWND dialog) {
    const uint32_t address = ReadHexShort(dialog, IDC_EPROM_ADDRESS);
    const uint32_t length = ReadHexShort(dialog, IDC_EPROM_LENGTH);
    if (Operation(dialog) == IDC_EPROM_WRITE) {
        WriteBytes(dialog, address, length);
    } else {
        ReadBytes(dialog, address, length);
    }
}

void Open(HWND dialog) {
    RecallHexFields(dialog, kRemembered);
    CheckRadioButton(dialog, IDC_EPROM_READ, IDC_EPROM_WRITE,
                     ReadSetting(setting::kEpromOperation));
}

void Close(HWND dialog) {
    RememberHexFields(dialog, kRemembered, {TextOf(setting::kEpromOperation, Operation(dialog))});
    EndDialog(dialog, 0);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_EPROM_APPLY, Apply},
    {IDC_EPROM_CLOSE, Close},
    {IDCANCEL, Close},
});

}  // namespace

INT_PTR OpenEprom(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_EPROM, owner, {Open, kActions});
}
