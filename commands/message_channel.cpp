#include "commands/message_channel.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "driver/papi.h"
#include "services/diagnostics.h"

namespace {

constexpr uint32_t kChannel = 0;
constexpr uint32_t kMostMessageBytes = 1020;
constexpr std::size_t kBufferBytes = 100;

}  // namespace

void InitializeMessages(HWND window) {
    ReportFailure(window, CodeOf(vdapi_MBE_Initialize(kChannel, kMostMessageBytes)),
                  "MainWndProc: vdapi_MBE_Initialize()");
}

void ReceiveMessage(HWND window) {
    std::array<char, kBufferBytes> text{};
    uint16_t length = 0;
    uint32_t reserved = 0;
    ReportFailure(window, CodeOf(vdapi_MBE_Read(text.data(), &length, &reserved)),
                  "MainWndProc: vdapi_MBE_Read()");
    // The text comes without an end mark, with the line's own end perhaps behind it, and of a
    // longer message only what the buffer holds.
    text[std::min<std::size_t>(length, text.size() - 1)] = '\0';
    ShowBox(window, text.data(), "Got MSE Message !", MB_ICONEXCLAMATION);
}
