// The viewer's side of Windows' own debug output: a shared buffer and two events, by which one
// writer at a time hands over one line.
#include "platform/debug_monitor.h"

#include <algorithm>
#include <array>
#include <memory>
#include <thread>
#include <type_traits>
#include <utility>

#include "platform/debug_line_queue.h"
#include "platform/win32.h"

namespace {

struct Buffer {
    DWORD processId;
    char text[4096 - sizeof(DWORD)];
};

struct CloseKernelHandle {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using KernelHandle = std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseKernelHandle>;

struct UnmapBuffer {
    void operator()(const Buffer* buffer) const { UnmapViewOfFile(buffer); }
};

KernelHandle CreateAutoResetEvent(const char* name) {
    return KernelHandle(CreateEventA(nullptr, FALSE, FALSE, name));
}

}  // namespace

struct DebugMonitor::State {
    // Writers find the buffer and both events by name; only a viewer creates them.
    State() {
        bufferReady = CreateAutoResetEvent("DBWIN_BUFFER_READY");
        if (bufferReady == nullptr || GetLastError() == ERROR_ALREADY_EXISTS)
            return;
        dataReady = CreateAutoResetEvent("DBWIN_DATA_READY");
        stop = CreateAutoResetEvent(nullptr);
        mapping.reset(CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                         sizeof(Buffer), "DBWIN_BUFFER"));
        if (dataReady == nullptr || stop == nullptr || mapping == nullptr)
            return;
        buffer.reset(
            static_cast<const Buffer*>(MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0)));
        if (buffer != nullptr)
            receiver = std::thread([this] { Receive(); });
    }

    ~State() {
        if (receiver.joinable()) {
            SetEvent(stop.get());
            receiver.join();
        }
    }

    void Receive() {
        const std::array<HANDLE, 2> events = {stop.get(), dataReady.get()};
        for (;;) {
            SetEvent(bufferReady.get());
            if (WaitForMultipleObjects(static_cast<DWORD>(events.size()), events.data(), FALSE,
                                       INFINITE) != WAIT_OBJECT_0 + 1)
                return;
            const char* const end =
                std::find(std::begin(buffer->text), std::end(buffer->text), '\0');
            lines.Add({buffer->processId, {std::begin(buffer->text), end}});
        }
    }

    KernelHandle bufferReady;
    KernelHandle dataReady;
    KernelHandle stop;
    KernelHandle mapping;
    std::unique_ptr<const Buffer, UnmapBuffer> buffer;
    DebugLineQueue lines;
    std::thread receiver;
};

DebugMonitor::DebugMonitor() : state_(std::make_unique<State>()) {}

DebugMonitor::~DebugMonitor() = default;

bool DebugMonitor::IsListening() const {
    return state_->receiver.joinable();
}

std::optional<DebugLine> DebugMonitor::Next(std::chrono::milliseconds timeout) {
    return IsListening() ? state_->lines.Take(timeout) : std::nullopt;
}
