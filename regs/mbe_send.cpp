// "MBE SEND DEMO": sends what is typed over the MBE data channel, as it is, also nothing.
#include "regs/mbe_send.h"

#include <array>
#include <cstdint>
#include <string>

#include "driver/papi.h"
#include "res/resource.h"
#include "services/dialog_kit.h"

namespace {

// Characters of the message field that count, with the terminator.
constexpr std::size_t kMessageField = 200;

constexpr uint32_t kChannel = 1;
constexpr uint32_t kTerminator = 0xFE;

void SendText(HWND dialog) {
    const std::string text = FieldText(dialog, IDC_MBE_MESSAGE, kMessageField);
    vdapi_MBE_Write(text.c_str(), kChannel, static_cast<uint32_t>(text.size()), kTerminator);
}

// Escape is left unanswered: it must not end a demonstration.
constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_MBE_SEND, SendText},
    {IDC_MBE_EXIT, EndWith<0>},
});

}  // namespace

INT_PTR OpenMbeSend(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_MBE_SEND, owner, {nullptr, kActions});
}
