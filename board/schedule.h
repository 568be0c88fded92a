// What the board is going to do by itself.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <utility>

namespace board {

struct State;

// Part of the board's state and guarded by the board's lock. A job that is due is done by the
// board's own thread (board/worker.h), under the lock too, so it may use the state, schedule more
// and leave messages in the outbox. What is still waiting when a library closes, when the driver
// restarts or when the board powers on is dropped: it will touch no memory any more.
class Schedule {
  public:
    using Clock = std::chrono::steady_clock;
    using Job = std::function<void(State&)>;

    // Jobs that are due at the same time are done in the order in which they came.
    void After(std::chrono::milliseconds delay, Job job) {
        At(Clock::now() + delay, std::move(job));
    }
    void At(Clock::time_point time, Job job) { jobs_.emplace(time, std::move(job)); }

    bool IsEmpty() const { return jobs_.empty(); }

    // When the next job is due. There must be one.
    Clock::time_point NextTime() const { return jobs_.begin()->first; }

    // Takes the next job out. There must be one.
    Job TakeNext() { return std::move(jobs_.extract(jobs_.begin()).mapped()); }

  private:
    std::multimap<Clock::time_point, Job> jobs_;
};

}  // namespace board
