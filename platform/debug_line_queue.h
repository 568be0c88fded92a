// The lines that a debug monitor has received and its owner has not asked for yet. Any thread.
//
// They take a bounded amount of memory. What comes beyond it is lost and counted: behind the lines
// that were kept stands one that says how many.
#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

#include "platform/debug_monitor.h"

class DebugLineQueue {
  public:
    void Add(DebugLine line) {
        line.received = std::chrono::system_clock::now();
        std::lock_guard lock(mutex_);
        if (bytes_ + CostOf(line) > kMostBytes) {
            lost_ += std::max<std::uint32_t>(line.lost, 1);
        } else {
            if (lost_ != 0)
                Push(TakeLost());
            Push(std::move(line));
        }
        added_.notify_one();
    }

    // The oldest line; nothing when none comes within the timeout.
    std::optional<DebugLine> Take(std::chrono::milliseconds timeout) {
        std::unique_lock lock(mutex_);
        if (!added_.wait_for(lock, timeout, [this] { return !lines_.empty() || lost_ != 0; }))
            return std::nullopt;
        if (lines_.empty())
            return TakeLost();
        DebugLine line = std::move(lines_.front());
        lines_.pop_front();
        bytes_ -= CostOf(line);
        return line;
    }

  private:
    static constexpr std::size_t kMostBytes = std::size_t{16} << 20;

    static std::size_t CostOf(const DebugLine& line) { return sizeof line + line.text.size(); }

    void Push(DebugLine line) {
        bytes_ += CostOf(line);
        lines_.push_back(std::move(line));
    }

    // The line that stands for those that were lost here, of whatever process.
    DebugLine TakeLost() {
        return {.processId = 0,
                .text = {},
                .lost = std::exchange(lost_, 0),
                .received = std::chrono::system_clock::now()};
    }

    std::mutex mutex_;
    std::condition_variable added_;
    std::deque<DebugLine> lines_;
    std::size_t bytes_ = 0;
    std::uint32_t lost_ = 0;
};
