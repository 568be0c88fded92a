// The lines that a debug monitor has received and its owner has not asked for yet. Any thread.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

#include "platform/debug_monitor.h"

class DebugLineQueue {
  public:
    void Add(DebugLine line) {
        std::lock_guard lock(mutex_);
        lines_.push_back(std::move(line));
        added_.notify_one();
    }

    // The oldest line; nothing when none comes within the timeout.
    std::optional<DebugLine> Take(std::chrono::milliseconds timeout) {
        std::unique_lock lock(mutex_);
        if (!added_.wait_for(lock, timeout, [this] { return !lines_.empty(); }))
            return std::nullopt;
        DebugLine line = std::move(lines_.front());
        lines_.pop_front();
        return line;
    }

  private:
    std::mutex mutex_;
    std::condition_variable added_;
    std::deque<DebugLine> lines_;
};
