#include "regs/hex_entry.h"

#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"

namespace {

// Characters of a field that count, with the terminator.
constexpr std::size_t kNumberField = 20;
constexpr uint32_t kNoNumber = 0xFFFFFFFF;

}  // namespace

std::optional<uint32_t> ReadHexField(HWND dialog, int id) {
    const auto number = ParseHexBehindMark(FieldText(dialog, id, kNumberField));
    if (!number) {
        ShowBox(dialog, "Invalid Param #1.\nPlease enter number of the form: 0xXXXXXXXX.",
                "Mem/IO Access", MB_ICONEXCLAMATION);
        return std::nullopt;
    }
    return *number == kNoNumber ? std::nullopt : number;
}
