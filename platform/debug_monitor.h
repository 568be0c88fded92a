// The listening end of OutputDebugStringA, for a viewer and for tests.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

// What one program wrote at once. Longer texts than the system passes in one piece (4091
// characters) come as several lines.
struct DebugLine {
    std::uint32_t processId = 0;
    std::string text;
    // Not 0: no text, but so many lines that were lost at this place because somebody was behind:
    // the program's, or with process 0 those that this monitor could not keep.
    std::uint32_t lost = 0;
    std::chrono::system_clock::time_point received = {};  // by the monitor
};

// Why a monitor listens, or doesn't.
enum class DebugMonitorState {
    kListens,
    kAnotherListens,    // somebody else's monitor, of this user
    kFolderNotPrivate,  // the place for it belongs to another user, or others may write there
    kSystemRefuses,
};

// Takes the debug output of all programs of this user, from its construction to its destruction.
// Writers don't wait for the owner: a thread of the monitor's own keeps the lines, up to some
// megabytes, until they are asked for. Only one monitor listens at a time.
//
// Threads: IsListening and Next may be called from any thread.
class DebugMonitor {
  public:
    DebugMonitor();
    ~DebugMonitor();
    DebugMonitor(const DebugMonitor&) = delete;
    DebugMonitor& operator=(const DebugMonitor&) = delete;

    // False when another monitor listens already or the system refuses; stays what it is.
    bool IsListening() const;
    DebugMonitorState State() const;

    // Where it listens or would: a file or folder, or a name of the system's.
    std::string Place() const;

    // Tells programs that ask by IsDebugMonitorPaused that nobody looks at the lines now. They are
    // taken and kept as ever. Not paused at first; to be called by one thread at a time.
    void SetPaused(bool isPaused);

    // The oldest line that nobody took yet. Waits for one at most as long as the timeout says, then
    // gives nothing; gives nothing at once when the monitor doesn't listen.
    std::optional<DebugLine> Next(std::chrono::milliseconds timeout);

  private:
    struct Listening;
    DebugMonitorState state_ = DebugMonitorState::kSystemRefuses;
    std::unique_ptr<Listening> listening_;
};

// Whether the monitor of this user that listens is paused, in whichever process it is. False where
// none listens. Any thread.
bool IsDebugMonitorPaused();
