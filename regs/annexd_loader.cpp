// The Annex-D loader: one download from the service, of which only the number of bytes is shown.
#include "regs/annexd_loader.h"

#include <array>
#include <cstdint>
#include <memory>
#include <new>

#include "driver/papi.h"
#include "res/resource.h"
#include "services/dialog_kit.h"

namespace {

constexpr uint32_t kChannel = 1;
constexpr uint32_t kMostBytes = 2048;
// The service wants two bytes more than it is asked for.
constexpr std::size_t kBufferBytes = kMostBytes + 2;

// Where the driver gives no number, 0 bytes are shown; without memory nothing is done.
void Download(HWND dialog) {
    const std::unique_ptr<uint8_t[]> buffer(new (std::nothrow) uint8_t[kBufferBytes]{});
    if (!buffer) {
        return;
    }
    uint32_t byteCount = 0;
    vdapi_ANNEXD_Download(kChannel, kMostBytes, buffer.get(), &byteCount);
    ShowField(dialog, IDC_ANNEXD_BYTES, "%d", static_cast<int32_t>(byteCount));
}

void Open(HWND dialog) {
    SetDlgItemTextA(dialog, IDC_ANNEXD_BYTES, "0");
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_ANNEXD_START, Download},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenAnnexdLoader(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_ANNEXD_LOADER, owner, {Open, kActions});
}
