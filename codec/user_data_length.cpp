#include "codec/user_data_length.h"

#include <array>
#include <cstddef>

#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"
#include "services/settings.h"

namespace {

// Characters of the field that count, with the terminator: no number is cut to a smaller one.
constexpr std::size_t kLengthField = 256;

constexpr uint32_t kMostBytes = 64;

// Kept for the whole run.
uint16_t confirmedLength = 2;

void ShowLength(HWND dialog) {
    const int last = ReadSetting(setting::kUserDataLength);
    ShowField(dialog, IDC_USER_DATA_LENGTH, "%u", unsigned{static_cast<uint16_t>(last)});
}

// Refuses a length that is too large and lets another one be typed in its place.
void RefuseLength(HWND dialog) {
    ShowBox(dialog, "Illegal size", "Send User Data", MB_ICONHAND);
    FocusOn(dialog, IDC_USER_DATA_LENGTH);
}

void ConfirmLength(HWND dialog) {
    const uint32_t length =
        ParseUnsignedDecimal(FieldText(dialog, IDC_USER_DATA_LENGTH, kLengthField));
    if (length > kMostBytes) {
        RefuseLength(dialog);
        return;
    }
    WriteSetting(setting::kUserDataLength, static_cast<int>(length));
    confirmedLength = static_cast<uint16_t>(length);
    EndDialog(dialog, 1);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDOK, ConfirmLength},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenUserDataLength(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_USER_DATA_LENGTH, owner, {ShowLength, kActions});
}

uint16_t SelectedUserDataLength() {
    return confirmedLength;
}
