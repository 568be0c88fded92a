// The two threads of a test: the engineer, who runs the test's body, and the user interface, which
// is the process's main thread and runs the program. The engineer acts on the program only by
// steps that the user interface takes between two messages, as a person's actions arrive.
//
// Written in Win32 terms alone, so that the same tests run on every window system.
#pragma once

#include <type_traits>

#include "platform/win32.h"
#include "tests/kit/test.h"

namespace kit {

// Runs all tests on a thread of their own, the engineer's, and the user interface on the calling
// one. Gives the process's exit code.
int RunTests();

// Engineer's thread: has the user-interface thread run a program. One program a process.
std::future<int> StartProgram(std::function<int()> program);

// Engineer's thread: runs a body as the program and waits for its end. One a process.
void RunAsProgram(const std::function<void()>& body);

// User-interface thread: registers a class that has nothing but its procedure; 0 for one that is
// registered already.
ATOM RegisterWindowClass(const char* name, WNDPROC procedure);

// Engineer's thread: runs a step on the user-interface thread behind everything posted so far, and
// waits for it. A program that has ended takes no steps, which fails the test; one that takes no
// messages for long ends the process with a complaint.
void RunStep(const std::function<void()>& step);

// The same where the program may have ended; whether it took the step.
bool TryStep(const std::function<void()>& step);

// Lets the program deal with everything posted so far and what that posts in its turn: a key may
// ask a dialog to close, which posts its cancel button's command, and may end the program by it.
void Settle();

// Begins a step that may open a dialog, and does not wait for its end.
void BeginStep(std::function<void()> step);

// RunStep for a step with a result.
template <typename Step>
std::invoke_result_t<Step> OnUserInterface(Step step) {
    if constexpr (std::is_void_v<std::invoke_result_t<Step>>) {
        RunStep(step);
    } else {
        std::invoke_result_t<Step> result{};
        RunStep([&] { result = step(); });
        return result;
    }
}

}  // namespace kit

// A test whose body is the program, on the user-interface thread.
#define PROGRAM_TEST(suite, name)                \
    static void suite##name##Program();          \
    TEST(suite, name) {                          \
        kit::RunAsProgram(suite##name##Program); \
    }                                            \
    static void suite##name##Program()
