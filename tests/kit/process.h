// Programs that a test starts.
#pragma once

#include "tests/kit/test.h"

namespace kit {

// Asks again and again until the condition holds, for ten seconds at most; whether it does.
template <typename Condition>
bool WaitFor(Condition condition) {
    for (int i = 0; i < 1000 && !condition(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return condition();
}

// Where the program of this name lies, beside the test's.
std::string ProgramBeside(const std::string& name);

// The files that are a program's input, output and messages; no input where it is empty.
struct Streams {
    std::string input;
    std::string output;
    std::string messages;
};

class Process {
  public:
    // Starts a program by its path. The test fails where it can't be started.
    Process(const std::string& program, const std::vector<std::string>& arguments,
            const Streams& streams);
    // Ends the program if it still runs.
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    std::uint32_t Id() const;
    bool HasEnded();
    // Waits for its end; its exit code, 128 and the signal's number where a signal ended it.
    int ExitCode();

    // As the system does at the end of a session; on Windows it ends a program that has answered.
    void AskForEnd() const;
    // As the system does, in the middle of whatever it does; with all of its group where there are
    // such.
    void Kill() const;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace kit
