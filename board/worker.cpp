#include "board/worker.h"

#include <mutex>
#include <utility>

#include "board/outbox.h"
#include "board/simulation.h"

namespace board {
namespace {

// The thread must not outlive what it uses of other libraries while the process ends.
struct StopAtProcessEnd {
    ~StopAtProcessEnd() { TheSimulation().worker.Stop(); }
};

}  // namespace

void Worker::Attend() {
    if (TheSimulation().state.schedule.IsEmpty()) {
        return;
    }
    static StopAtProcessEnd stopAtProcessEnd;
    if (!thread_.joinable()) {
        thread_ = std::thread([this, turn = turn_] { Run(turn); });
    }
    changed_.notify_all();
}

void Worker::Stop() {
    std::thread ending;
    {
        std::lock_guard lock(TheSimulation().lock);
        TheSimulation().state.schedule = {};
        ++turn_;
        std::swap(ending, thread_);
    }
    changed_.notify_all();
    if (ending.joinable()) {
        ending.join();
    }
}

void Worker::Run(unsigned turn) {
    Simulation& simulation = TheSimulation();
    State& state = simulation.state;
    std::unique_lock lock(simulation.lock);
    while (turn == turn_) {
        if (state.schedule.IsEmpty()) {
            changed_.wait(lock);
            continue;
        }
        const Schedule::Clock::time_point next = state.schedule.NextTime();
        if (Schedule::Clock::now() < next) {
            changed_.wait_until(lock, next);
            continue;
        }
        state.schedule.TakeNext()(state);
        const Outbox outbox = std::exchange(state.outbox, {});
        PostMessages(outbox);
        lock.unlock();
        WriteLines(outbox);
        lock.lock();
    }
}

}  // namespace board
