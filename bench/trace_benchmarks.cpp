// What a trace line costs the program that writes it.
#include <benchmark/benchmark.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <string>

#include "platform/debug_monitor.h"
#include "platform/win32.h"
#include "services/diagnostics.h"

namespace {

// A line that the level does not let through.
void LineAboveTheLevel(benchmark::State& state) {
    ForceDebugOutputLevel(1);
    for (auto _ : state) {
        DbgMsg(2, "%d %s\n", 1, "text");
    }
}
BENCHMARK(LineAboveTheLevel);

// A viewer in a process and a place of its own.
class Viewer {
  public:
    Viewer() {
        folder_ =
            std::filesystem::temp_directory_path() / ("vxd-bench-" + std::to_string(getpid()));
        std::filesystem::create_directories(folder_);
        std::filesystem::permissions(folder_, std::filesystem::perms::owner_all);
        SetEnvironmentVariableA("XDG_RUNTIME_DIR", folder_.c_str());
        std::array<int, 2> ready{};
        if (pipe(ready.data()) != 0) {
            return;
        }
        process_ = fork();
        if (process_ == 0) {
            DebugMonitor monitor;
            isReady_ = monitor.IsListening() && write(ready[1], "", 1) == 1;
            while (isReady_) {
                monitor.Next(std::chrono::seconds(1));
            }
            _exit(1);
        }
        close(ready[1]);
        char byte = 0;
        isReady_ = read(ready[0], &byte, 1) == 1;
        close(ready[0]);
    }
    ~Viewer() {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
        std::filesystem::remove_all(folder_);
    }
    Viewer(const Viewer&) = delete;
    Viewer& operator=(const Viewer&) = delete;

    bool IsReady() const { return isReady_; }
    void Stop() const { kill(process_, SIGSTOP); }

  private:
    std::filesystem::path folder_;
    pid_t process_ = 0;
    bool isReady_ = false;
};

void Write(benchmark::State& state, bool stopped) {
    const Viewer viewer;
    if (!viewer.IsReady()) {
        state.SkipWithError("no viewer comes up");
        return;
    }
    if (stopped) {
        viewer.Stop();
    }
    const std::string line(100, 'x');
    for (auto _ : state) {
        OutputDebugStringA(line.c_str());
    }
}
// 200,000 a second leave 5 us for one; 100,000 within 10 ms leave 100 ns.
BENCHMARK_CAPTURE(Write, toAViewer, false)->Iterations(200'000);
BENCHMARK_CAPTURE(Write, toAStoppedViewer, true)->Iterations(100'000);

}  // namespace
