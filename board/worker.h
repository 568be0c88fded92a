// The board's own thread: does what is in the board's schedule (board/schedule.h) when it is due.
#pragma once

#include <condition_variable>
#include <stop_token>
#include <thread>

namespace board {

class Worker {
  public:
    // Sees to it that what is scheduled will be done; starts the thread where there is something
    // to do. With the board's lock held.
    void Attend();

    // Drops what is scheduled, waits for the job at work and ends the thread. When it returns, the
    // board does nothing by itself until something is scheduled anew. Without the board's lock.
    void Stop();

  private:
    void Run(const std::stop_token& stop);

    // The board's lock guards the thread's object.
    std::jthread thread_;
    std::condition_variable_any changed_;
};

}  // namespace board
