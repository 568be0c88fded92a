// "USS Reg": a register that the newer board's firmware reads and writes by its address.
#include "regs/uss_registers.h"

#include <array>
#include <cstdint>

#include "driver/firmware_command.h"
#include "driver/papi.h"
#include "regs/hex_entry.h"
#include "res/resource.h"
#include "services/dialog_kit.h"

namespace {

// Gives the command's second response; 0 where it fails.
uint32_t SendRegisterCommand(uint32_t command, uint32_t address, uint32_t value) {
    uint32_t response1 = 0;
    uint32_t response2 = 0;
    uint16_t response3 = 0;
    vdapi_SendCommand(command, address, value, 0, &response1, &response2, &response3);
    return response2;
}

void Get(HWND dialog) {
    const auto address = ReadHexField(dialog, IDC_USS_ADDRESS);
    if (address) {
        ShowField(dialog, IDC_USS_VALUE, "0x%x",
                  SendRegisterCommand(PELLAN_COMMAND_GET_USS_REG, *address, 0));
    }
}

void Set(HWND dialog) {
    const auto address = ReadHexField(dialog, IDC_USS_ADDRESS);
    const auto value = ReadHexField(dialog, IDC_USS_VALUE);
    if (address && value)
        SendRegisterCommand(PELLAN_COMMAND_SET_USS_REG, *address, *value);
}

// Nothing but "CLOSE" ends the dialog, neither Escape nor the close box.
constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_USS_GET, Get},
    {IDC_USS_SET, Set},
    {IDOK, EndWith<0>},
});

}  // namespace

INT_PTR OpenUssRegisters(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_USS_REGISTERS, owner, {nullptr, kActions});
}
