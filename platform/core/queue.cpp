#include "platform/core/queue.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "platform/core/menu.h"
#include "platform/core/paint.h"
#include "platform/core/timers.h"
#include "platform/core/window.h"

namespace vxd {
namespace {

constexpr std::size_t kMostPostedMessages = 10000;
// So many posted messages may be retrieved in a row before the desktop gets a turn.
constexpr int kMostInARow = 64;

// A message that another thread sends and waits for.
struct SentMessage {
    HWND window = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    LRESULT result = 0;
    bool answered = false;
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
        TheTimers().Forget(window);
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
            CurrentScreen().Wait(TheTimers().MillisecondsToNext());
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

    static std::optional<MSG> NextTimer(const Filter& filter, bool remove) {
        const auto timer = TheTimers().Due(
            [&filter](HWND window) { return filter.Takes(window, WM_TIMER); }, remove);
        if (!timer)
            return std::nullopt;
        return Stamped(timer->window, WM_TIMER, timer->id,
                       reinterpret_cast<LPARAM>(timer->callback));
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
};

// Never destroyed: other threads may still post, or wait for an answer, while the process ends.
MessageQueue& TheQueue() {
    static MessageQueue& queue = *new MessageQueue;
    return queue;
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
