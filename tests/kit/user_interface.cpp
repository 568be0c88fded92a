#include "tests/kit/user_interface.h"

#include <condition_variable>
#include <cstdio>
#include <mutex>

namespace kit {
namespace {

constexpr char kStepClass[] = "VxDTestKitStep";
constexpr UINT kStepMessage = WM_APP + 1;
constexpr UINT kBeginMessage = WM_APP + 2;
constexpr std::chrono::seconds kLongestStep{60};
constexpr std::chrono::milliseconds kLookAgain{1};

struct Step {
    const std::function<void()>* run = nullptr;
    std::promise<void> done;
};

LRESULT CALLBACK StepProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kBeginMessage) {
        const std::unique_ptr<std::function<void()>> run(
            reinterpret_cast<std::function<void()>*>(lParam));
        (*run)();
        return 0;
    }
    if (message != kStepMessage)
        return DefWindowProcA(window, message, wParam, lParam);
    auto& step = *reinterpret_cast<Step*>(lParam);
    (*step.run)();
    step.done.set_value();
    return 0;
}

// What the engineer asks of the main thread.
struct Desk {
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<std::packaged_task<int()>> program;
    bool testsDone = false;
    std::atomic<HWND> stepWindow{nullptr};
    std::atomic<bool> ended{false};
    std::thread::id userInterface;
};

Desk& TheDesk() {
    static Desk desk;
    return desk;
}

// The window that takes the steps. Never shown, never active.
HWND MakeStepWindow() {
    RegisterWindowClass(kStepClass, StepProcedure);
    return CreateWindowExA(0, kStepClass, "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                           GetModuleHandleA(nullptr), nullptr);
}

void ServePrograms() {
    Desk& desk = TheDesk();
    for (;;) {
        std::unique_lock lock(desk.mutex);
        desk.changed.wait(lock, [&desk] { return desk.program || desk.testsDone; });
        if (!desk.program)
            return;
        auto program = std::move(*desk.program);
        desk.program.reset();
        lock.unlock();
        desk.stepWindow = MakeStepWindow();
        program();
        desk.ended = true;
    }
}

}  // namespace

int RunTests() {
    Desk& desk = TheDesk();
    desk.userInterface = std::this_thread::get_id();
    int result = 0;
    std::thread engineer([&] {
        result = RUN_ALL_TESTS();
        std::lock_guard lock(desk.mutex);
        desk.testsDone = true;
        desk.changed.notify_one();
    });
    ServePrograms();
    engineer.join();
    return result;
}

std::future<int> StartProgram(std::function<int()> program) {
    Desk& desk = TheDesk();
    std::lock_guard lock(desk.mutex);
    desk.program.emplace(std::move(program));
    desk.changed.notify_one();
    return desk.program->get_future();
}

void RunAsProgram(const std::function<void()>& body) {
    StartProgram([&body] {
        body();
        return 0;
    }).get();
}

ATOM RegisterWindowClass(const char* name, WNDPROC procedure) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = name;
    return RegisterClassA(&windowClass);
}

bool TryStep(const std::function<void()>& run) {
    if (std::this_thread::get_id() == TheDesk().userInterface) {
        run();  // a step inside a step
        return true;
    }
    Step step;
    step.run = &run;
    auto done = step.done.get_future();
    const auto start = std::chrono::steady_clock::now();
    for (bool posted = false; !TheDesk().ended;) {
        // The window may be a moment in coming.
        if (!posted && TheDesk().stepWindow != nullptr) {
            posted = PostMessageA(TheDesk().stepWindow, kStepMessage, 0,
                                  reinterpret_cast<LPARAM>(&step)) != 0;
        }
        if (done.wait_for(kLookAgain) == std::future_status::ready)
            return true;
        if (std::chrono::steady_clock::now() - start > kLongestStep) {
            std::fprintf(stderr, "the program takes no messages\n");
            std::abort();
        }
    }
    return false;
}

void RunStep(const std::function<void()>& run) {
    if (!TryStep(run))
        ADD_FAILURE() << "the program has ended before it could take this step";
}

void Settle() {
    constexpr int kLongestChain = 3;
    for (int round = 0; round < kLongestChain; ++round)
        TryStep([] {});
}

void BeginStep(std::function<void()> step) {
    RunStep([] {});  // the program runs
    PostMessageA(TheDesk().stepWindow, kBeginMessage, 0,
                 reinterpret_cast<LPARAM>(new std::function<void()>(std::move(step))));
    TryStep([] {});
}

}  // namespace kit
