#include "platform/core/queue.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "platform/core/activation.h"
#include "platform/core/key_message.h"
#include "platform/core/menu.h"
#include "platform/core/paint.h"
#include "platform/core/window.h"

namespace vxd {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kMostPostedMessages = 10000;
constexpr UINT kShortestPeriod = 10;
// So many posted messages may be retrieved in a row before the desktop gets a turn.
constexpr int kMostInARow = 64;
constexpr UINT_PTR kFirstOwnTimerId = 0x7000;

// A message that another thread sends and waits for.
struct SentMessage {
    HWND window = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    LRESULT result = 0;
    bool answered = false;
};

struct Timer {
    HWND window = nullptr;
    UINT_PTR id = 0;
    std::chrono::milliseconds period{0};
    Clock::time_point due;
    TIMERPROC callback = nullptr;
};

// What a person did: something to run, or a message to hand out.
struct Input {
    std::function<void()> run;
    MSG message{};
    bool isKey = false;  // goes to whoever has the focus

    HWND Target() const {
        if (!isKey)
            return message.hwnd;
        return FocusedWindow() != nullptr ? FocusedWindow() : GetActiveWindow();
    }

    // Whether there is still somebody to hear of it.
    bool Counts() const {
        if (run)
            return true;
        Window* window = FindWindowOf(Target());
        return window != nullptr && TopLevelOf(*window).IsEnabled();
    }
};

struct Filter {
    HWND window = nullptr;
    UINT first = 0;
    UINT last = 0;

    bool TakesAll() const { return window == nullptr && first == 0 && last == 0; }

    bool Takes(HWND target, UINT message) const {
        if (window != nullptr && window != target) {
            const Window* inner = FindWindowOf(target);
            const Window* outer = FindWindowOf(window);
            if (inner == nullptr || outer == nullptr || !IsInside(*inner, *outer))
                return false;
        }
        return (first == 0 && last == 0) || (message >= first && message <= last);
    }
};

class MessageQueue {
  public:
    bool Claim() {
        std::thread::id nobody;
        return owner_.compare_exchange_strong(nobody, std::this_thread::get_id()) ||
               nobody == std::this_thread::get_id();
    }

    bool IsMine() const { return owner_.load() == std::this_thread::get_id(); }

    bool Post(const MSG& message) {
        {
            std::lock_guard lock(mutex_);
            if (posted_.size() >= kMostPostedMessages)
                return false;
            posted_.push_back(message);
        }
        if (!IsMine())
            CurrentScreen().Wake();
        return true;
    }

    LRESULT Send(SentMessage& message) {
        std::unique_lock lock(mutex_);
        sent_.push_back(&message);
        CurrentScreen().Wake();
        answered_.wait(lock, [&message] { return message.answered; });
        return message.result;
    }

    void Quit(int exitCode) { quit_ = exitCode; }

    void AddInput(Input entry) { input_.push_back(std::move(entry)); }
    bool InputWaits() const { return !input_.empty(); }

    UINT_PTR Start(Timer timer) {
        // Without a window only a number that the queue gave can be set again.
        if (!Stop(timer.window, timer.id) && timer.window == nullptr)
            timer.id = nextOwnTimerId_++;
        timer.due = Clock::now() + timer.period;
        timers_.push_back(timer);
        return timer.id;
    }

    bool Stop(HWND window, UINT_PTR id) {
        return std::erase_if(timers_, [&](const Timer& timer) {
                   return timer.window == window && timer.id == id;
               }) != 0;
    }

    void Forget(HWND window) {
        {
            std::lock_guard lock(mutex_);
            std::erase_if(posted_, [window](const MSG& m) { return m.hwnd == window; });
            for (SentMessage* message : sent_)
                message->answered = message->answered || message->window == window;
            std::erase_if(sent_, [](const SentMessage* m) { return m->answered; });
        }
        answered_.notify_all();
        std::erase_if(input_, [window](const Input& i) {
            return !i.run && !i.isKey && i.message.hwnd == window;
        });
        std::erase_if(timers_, [window](const Timer& t) { return t.window == window; });
    }

    // The next message in Win32's order; waits for one unless `wait` is false.
    std::optional<MSG> Next(const Filter& filter, bool remove, bool wait) {
        for (bool looked = false;;) {
            AnswerSent();
            if (inARow_ >= kMostInARow)
                LookAtDesktop();
            if (auto message = NextPosted(filter, remove)) {
                ++inARow_;
                return message;
            }
            if (quit_)
                return TakeQuit(remove);
            if (auto message = NextInput(filter, remove))
                return message;
            if (!looked) {
                // What a person did comes before painting and timers.
                LookAtDesktop();
                looked = true;
                continue;
            }
            if (auto message = NextPaint(filter))
                return message;
            if (auto message = NextTimer(filter, remove))
                return message;
            if (!wait)
                return std::nullopt;
            CurrentScreen().Wait(MillisecondsToTimer());
        }
    }

  private:
    // Shows what is due and takes in what the desktop has to tell, without waiting.
    void LookAtDesktop() {
        inARow_ = 0;
        RefreshMenuBars();
        CurrentScreen().Wait(0);
    }

    void AnswerSent() {
        for (;;) {
            SentMessage* message = nullptr;
            {
                std::lock_guard lock(mutex_);
                if (sent_.empty())
                    return;
                message = sent_.front();
                sent_.pop_front();
            }
            Window* window = FindWindowOf(message->window);
            const LRESULT result = window != nullptr ? Call(*window, message->message,
                                                            message->wParam, message->lParam)
                                                     : 0;
            {
                std::lock_guard lock(mutex_);
                message->result = result;
                message->answered = true;
            }
            answered_.notify_all();
        }
    }

    std::optional<MSG> NextPosted(const Filter& filter, bool remove) {
        std::lock_guard lock(mutex_);
        const auto found = std::find_if(posted_.begin(), posted_.end(), [&](const MSG& m) {
            return filter.Takes(m.hwnd, m.message);
        });
        if (found == posted_.end())
            return std::nullopt;
        const MSG message = *found;
        if (remove)
            posted_.erase(found);
        return message;
    }

    MSG TakeQuit(bool remove) {
        MSG message = Stamped(nullptr, WM_QUIT, static_cast<WPARAM>(*quit_), 0);
        if (remove)
            quit_.reset();
        return message;
    }

    // Runs what waits to be run only for a caller who takes whatever comes; it may have changed
    // anything, so such a caller then looks round by getting a message that says nothing.
    std::optional<MSG> NextInput(const Filter& filter, bool remove) {
        const bool runs = remove && filter.TakesAll();
        while (!input_.empty() && !input_.front().Counts())
            input_.pop_front();
        const auto found = std::find_if(input_.begin(), input_.end(), [&](const Input& i) {
            return i.run ? runs : i.Counts() && filter.Takes(i.Target(), i.message.message);
        });
        if (found == input_.end())
            return std::nullopt;
        if (!found->run) {
            MSG message = found->message;
            message.hwnd = found->Target();
            if (remove)
                input_.erase(found);
            return message;
        }
        const std::function<void()> run = std::move(found->run);
        input_.erase(found);
        run();
        return Stamped(nullptr, WM_NULL, 0, 0);
    }

    std::optional<MSG> NextPaint(const Filter& filter) {
        const Window* window = NextWindowToPaint([&filter](const Window& candidate) {
            return filter.Takes(candidate.handle, WM_PAINT);
        });
        if (window == nullptr)
            return std::nullopt;
        return Stamped(window->handle, WM_PAINT, 0, 0);
    }

    // The timer that has waited longest goes first.
    std::optional<MSG> NextTimer(const Filter& filter, bool remove) {
        const auto now = Clock::now();
        Timer* next = nullptr;
        for (Timer& timer : timers_) {
            if (timer.due <= now && filter.Takes(timer.window, WM_TIMER) &&
                (next == nullptr || timer.due < next->due))
                next = &timer;
        }
        if (next == nullptr)
            return std::nullopt;
        if (remove)
            next->due = now + next->period;
        return Stamped(next->window, WM_TIMER, next->id, reinterpret_cast<LPARAM>(next->callback));
    }

    // -1 without a timer.
    int MillisecondsToTimer() const {
        if (timers_.empty())
            return -1;
        const auto due =
            std::min_element(timers_.begin(), timers_.end(), [](const Timer& a, const Timer& b) {
                return a.due < b.due;
            })->due;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(due - Clock::now());
        return std::max(0, static_cast<int>(left.count()));
    }

  public:
    static MSG Stamped(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        MSG stamped{};
        stamped.hwnd = window;
        stamped.message = message;
        stamped.wParam = wParam;
        stamped.lParam = lParam;
        stamped.time = GetTickCount();
        return stamped;
    }

  private:
    std::atomic<std::thread::id> owner_{};
    std::mutex mutex_;  // guards posted_, sent_ and the answers
    std::condition_variable answered_;
    std::deque<MSG> posted_;
    std::deque<SentMessage*> sent_;
    std::optional<int> quit_;
    int inARow_ = 0;  // posted messages retrieved since the desktop had a turn
    std::deque<Input> input_;
    std::vector<Timer> timers_;
    UINT_PTR nextOwnTimerId_ = kFirstOwnTimerId;
};

// Never destroyed: other threads may still post, or wait for an answer, while the process ends.
MessageQueue& TheQueue() {
    static MessageQueue& queue = *new MessageQueue;
    return queue;
}

struct Modifiers {
    bool shift = false;
    bool control = false;
    bool alt = false;
};

Modifiers& TheModifiers() {
    static Modifiers modifiers;
    return modifiers;
}

// The character that a key makes on a keyboard without a layout of its own.
WPARAM CharacterOf(const MSG& message) {
    if (const WPARAM given = CharacterIn(message.lParam); given != 0)
        return given;
    const WPARAM key = message.wParam;
    switch (key) {
        case VK_BACK:
        case VK_TAB:
        case VK_RETURN:
        case VK_ESCAPE:
        case VK_SPACE:
            return key;
        default:
            break;
    }
    if (key >= 'A' && key <= 'Z')
        return TheModifiers().shift ? key : key + ('a' - 'A');
    return key >= '0' && key <= '9' ? key : 0;
}

}  // namespace

bool ClaimUserInterfaceThread() {
    return TheQueue().Claim();
}

bool OnUserInterfaceThread() {
    return TheQueue().IsMine();
}

void QueueInput(std::function<void()> input) {
    TheQueue().AddInput({std::move(input), {}});
}

void QueueInputMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    TheQueue().AddInput({nullptr, MessageQueue::Stamped(window, message, wParam, lParam)});
}

void QueueKeyMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    TheQueue().AddInput({nullptr, MessageQueue::Stamped(nullptr, message, wParam, lParam), true});
}

bool InputWaits() {
    return TheQueue().InputWaits();
}

void ForgetMessagesOf(HWND window) {
    TheQueue().Forget(window);
}

bool IsShiftDown() {
    return TheModifiers().shift;
}
bool IsControlDown() {
    return TheModifiers().control;
}
bool IsAltDown() {
    return TheModifiers().alt;
}

void SetModifiers(bool shift, bool control, bool alt) {
    TheModifiers() = {shift, control, alt};
}

}  // namespace vxd

using vxd::TheQueue;

// The queue grows as it needs, so every size that is asked for is granted.
BOOL WINAPI SetMessageQueue(int messages) {
    return messages > 0;
}

BOOL WINAPI GetMessageA(LPMSG message, HWND window, UINT first, UINT last) {
    if (message == nullptr || !vxd::ClaimUserInterfaceThread())
        return -1;
    *message = *TheQueue().Next({window, first, last}, true, true);
    return message->message != WM_QUIT;
}

BOOL WINAPI PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
    if (message == nullptr || !vxd::ClaimUserInterfaceThread())
        return FALSE;
    const auto next = TheQueue().Next({window, first, last}, (remove & PM_REMOVE) != 0, false);
    if (!next)
        return FALSE;
    *message = *next;
    return TRUE;
}

BOOL WINAPI TranslateMessage(const MSG* message) {
    if (message->message != WM_KEYDOWN && message->message != WM_SYSKEYDOWN)
        return FALSE;
    const WPARAM character = vxd::CharacterOf(*message);
    if (character != 0)
        PostMessageA(message->hwnd, message->message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR,
                     character, message->lParam);
    return TRUE;
}

LRESULT WINAPI DispatchMessageA(const MSG* message) {
    if (message->message == WM_TIMER && message->lParam != 0) {
        const auto callback = reinterpret_cast<TIMERPROC>(message->lParam);
        callback(message->hwnd, WM_TIMER, message->wParam, GetTickCount());
        return 0;
    }
    vxd::Window* window = vxd::FindWindowOf(message->hwnd);
    return window != nullptr
               ? vxd::Call(*window, message->message, message->wParam, message->lParam)
               : 0;
}

BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window != nullptr && !vxd::IsLiveWindow(window))
        return FALSE;
    return TheQueue().Post(vxd::MessageQueue::Stamped(window, message, wParam, lParam));
}

LRESULT WINAPI SendMessageA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!vxd::OnUserInterfaceThread()) {
        if (!vxd::IsLiveWindow(handle))
            return 0;
        vxd::SentMessage sent{handle, message, wParam, lParam};
        return TheQueue().Send(sent);
    }
    vxd::Window* window = vxd::FindWindowOf(handle);
    return window != nullptr ? vxd::Call(*window, message, wParam, lParam) : 0;
}

void WINAPI PostQuitMessage(int exitCode) {
    TheQueue().Quit(exitCode);
}

UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC callback) {
    if (window != nullptr && !vxd::IsLiveWindow(window))
        return 0;
    vxd::Timer timer;
    timer.window = window;
    timer.id = id;
    timer.period = std::chrono::milliseconds(std::max(milliseconds, vxd::kShortestPeriod));
    timer.callback = callback;
    return TheQueue().Start(timer);
}

BOOL WINAPI KillTimer(HWND window, UINT_PTR id) {
    return TheQueue().Stop(window, id);
}
