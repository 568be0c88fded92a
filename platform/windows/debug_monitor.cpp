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

constexpr char kPaused[] = "DBWIN_PAUSED";

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

struct DebugMonitor::Listening {
    // Writers find the buffer and both events by name; only a viewer creates them.
    Listening() {
        bufferReady = CreateAutoResetEvent("DBWIN_BUFFER_READY");
        if (bufferReady != nullptr && GetLastError() == ERROR_ALREADY_EXISTS) {
            anotherListens = true;
            return;
        }
        dataReady = CreateAutoResetEvent("DBWIN_DATA_READY");
        stop = CreateAutoResetEvent(nullptr);
        mapping.reset(CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                         sizeof(Buffer), "DBWIN_BUFFER"));
        if (bufferReady == nullptr || dataReady == nullptr || stop == nullptr || mapping == nullptr)
            return;
        buffer.reset(
            static_cast<const Buffer*>(MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0)));
        if (buffer != nullptr)
            receiver = std::thread([this] { Receive(); });
    }

    ~Listening() {
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
            lines.Add({buffer->processId, {std::begin(buffer->text), end}, 0, {}});
        }
    }

    bool anotherListens = false;
    KernelHandle paused;  // exists while the monitor is paused
    KernelHandle bufferReady;
    KernelHandle dataReady;
    KernelHandle stop;
    KernelHandle mapping;
    std::unique_ptr<const Buffer, UnmapBuffer> buffer;
    DebugLineQueue lines;
    std::thread receiver;
};

DebugMonitor::DebugMonitor() : listening_(std::make_unique<Listening>()) {
    if (listening_->receiver.joinable()) {
        state_ = DebugMonitorState::kListens;
    } else if (listening_->anotherListens) {
        state_ = DebugMonitorState::kAnotherListens;
    }
}

DebugMonitor::~DebugMonitor() = default;

bool DebugMonitor::IsListening() const {
    return state_ == DebugMonitorState::kListens;
}

DebugMonitorState DebugMonitor::State() const {
    return state_;
}

std::string DebugMonitor::Place() const {
    return "DBWIN_BUFFER";
}

void DebugMonitor::SetPaused(bool isPaused) {
    if (IsListening()) {
        listening_->paused = isPaused ? CreateAutoResetEvent(kPaused) : nullptr;
    }
}

std::optional<DebugLine> DebugMonitor::Next(std::chrono::milliseconds timeout) {
    return IsListening() ? listening_->lines.Take(timeout) : std::nullopt;
}

bool IsDebugMonitorPaused() {
    return KernelHandle(OpenEventA(SYNCHRONIZE, FALSE, kPaused)) != nullptr;
}
