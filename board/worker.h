// The board's own thread: does what is in the board's schedule (board/schedule.h) when it is due.
#pragma once

#include <condition_variable>
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
    void Run(unsigned turn);

    // The board's lock guards the thread's object and whose turn it is; a thread whose turn is over
    // ends. Waiting for a stop token would be shorter, but MinGW's runtime loses such wake-ups.
    std::thread thread_;
    unsigned turn_ = 0;
    std::condition_variable changed_;
};

}  // namespace board
