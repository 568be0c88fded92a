// What the viewer needs of the system beside its debug output: the terminal, being ended, and a
// program to start. One thread, but for what says otherwise.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dbwin {

bool IsInputTerminal();
// Whether standard output is a terminal that shows colours, as its user wants them.
bool ShowsColours();

// Writes all of it to standard output. Empty when it did, else why nobody takes it any more. Once
// the end is asked for it waits no longer than a second for somebody to take some more of it.
std::string WriteOut(std::string_view text);

// From its construction on the user's wish to end the viewer, Ctrl+C, a signal or the closing of
// the terminal, is answered by EndIsAskedFor in place of ending the process at once. A system that
// ends the process all the same, as Windows does behind a closed terminal, is kept from it until
// the destruction, as long as it waits. One at a time.
class EndWatch {
  public:
    EndWatch();
    ~EndWatch();
    EndWatch(const EndWatch&) = delete;
    EndWatch& operator=(const EndWatch&) = delete;
};
bool EndIsAskedFor();

// The keys of the terminal, taken as they are pressed and not shown. The terminal is as before when
// the keys are given back.
class Keys {
  public:
    explicit Keys(bool areTaken);
    ~Keys();
    Keys(const Keys&) = delete;
    Keys& operator=(const Keys&) = delete;

    // The next one that was pressed, without waiting.
    std::optional<char> Next();

  private:
    struct Terminal;
    std::unique_ptr<Terminal> terminal_;
};

// How programs find that a viewer runs, where that takes more than listening.
class Presence {
  public:
    Presence();
    ~Presence();
    Presence(const Presence&) = delete;
    Presence& operator=(const Presence&) = delete;

  private:
    struct Window;
    std::unique_ptr<Window> window_;
};

// A program that was started. It goes on when this ends.
class Child {
  public:
    // Starts it; without input where `hasInput` is false. On failure `error` says why.
    Child(const std::vector<std::string>& command, bool hasInput, std::string& error);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    // Its exit code once it has ended; 128 and the signal's number where a signal ended it.
    std::optional<int> ExitCode();

  private:
    struct Process;
    std::unique_ptr<Process> process_;
    std::optional<int> exitCode_;
};

}  // namespace dbwin
