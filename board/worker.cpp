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
        thread_ = std::jthread([this](const std::stop_token& stop) { Run(stop); });
    }
    changed_.notify_all();
}

void Worker::Stop() {
    std::jthread ending;
    std::lock_guard lock(TheSimulation().lock);
    TheSimulation().state.schedule = {};
    std::swap(ending, thread_);
    // The lock is given back first, then `ending` stops and joins the thread.
}

void Worker::Run(const std::stop_token& stop) {
    Simulation& simulation = TheSimulation();
    State& state = simulation.state;
    std::unique_lock lock(simulation.lock);
    while (!stop.stop_requested()) {
        if (state.schedule.IsEmpty()) {
            changed_.wait(lock, stop, [&] { return !state.schedule.IsEmpty(); });
            continue;
        }
        const Schedule::Clock::time_point next = state.schedule.NextTime();
        if (Schedule::Clock::now() < next) {
            changed_.wait_until(lock, stop, next, [&] {
                return state.schedule.IsEmpty() || state.schedule.NextTime() != next;
            });
            continue;
        }
        state.schedule.TakeNext()(state);
        const Outbox outbox = std::exchange(state.outbox, {});
        lock.unlock();
        Deliver(outbox);
        lock.lock();
    }
}

}  // namespace board
