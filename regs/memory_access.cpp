// "Access Mem/IO Address": a unit of board memory or of an I/O port, read and written at a plain
// address.
#include "regs/memory_access.h"

#include <array>
#include <cstdint>
#include <span>

#include "driver/papi.h"
#include "regs/hex_entry.h"
#include "res/resource.h"
#include "services/dialog_kit.h"

namespace {

// Bytes of a unit by its name; ports have no double words.
constexpr auto kMemoryUnits = std::to_array<NamedNumber>({{"BYTE", 1}, {"WORD", 2}, {"DWORD", 4}});
constexpr auto kPortUnits = std::to_array<NamedNumber>({{"BYTE", 1}, {"WORD", 2}});

// One of the dialog's two halves: its fields and its operations.
struct Space {
    int address;
    int value;
    int unit;
    uint32_t(WINAPI* read)(uint32_t address, uint32_t unitSize, uint32_t* value);
    uint32_t(WINAPI* write)(uint32_t address, uint32_t unitSize, uint32_t value);
};

constexpr Space kMemory{IDC_MEMORY_ADDRESS, IDC_MEMORY_VALUE, IDC_MEMORY_UNIT, vdapi_MEM_Read,
                        vdapi_MEM_Write};
constexpr Space kPorts{IDC_PORT_ADDRESS, IDC_PORT_VALUE, IDC_PORT_UNIT, vdapi_IO_Read,
                       vdapi_IO_Write};

// A failed read shows 0.
template <const Space& kSpace>
void Get(HWND dialog) {
    const auto address = ReadHexField(dialog, kSpace.address);
    if (!address)
        return;
    uint32_t value = 0;
    kSpace.read(*address, SelectedNumber(dialog, kSpace.unit), &value);
    ShowField(dialog, kSpace.value, "0x%x", value);
}

template <const Space& kSpace>
void Set(HWND dialog) {
    const auto address = ReadHexField(dialog, kSpace.address);
    const auto value = ReadHexField(dialog, kSpace.value);
    if (address && value)
        kSpace.write(*address, SelectedNumber(dialog, kSpace.unit), *value);
}

// The widest unit, which comes last, is selected.
void FillUnits(HWND dialog, int id, std::span<const NamedNumber> units) {
    AddComboRows(dialog, id, units);
    SendDlgItemMessageA(dialog, id, CB_SETCURSEL, units.size() - 1, 0);
}

void Open(HWND dialog) {
    FillUnits(dialog, IDC_MEMORY_UNIT, kMemoryUnits);
    FillUnits(dialog, IDC_PORT_UNIT, kPortUnits);
}

// Nothing but "&Close" ends the dialog, neither Escape nor the close box.
constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_MEMORY_GET, Get<kMemory>},
    {IDC_MEMORY_SET, Set<kMemory>},
    {IDC_PORT_GET, Get<kPorts>},
    {IDC_PORT_SET, Set<kPorts>},
    {IDOK, EndWith<0>},
});

}  // namespace

INT_PTR OpenMemoryAccess(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_MEMORY_ACCESS, owner, {Open, kActions});
}
