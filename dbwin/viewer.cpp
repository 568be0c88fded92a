#include "dbwin/viewer.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>

namespace dbwin {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLook{50};        // how long keys and the child wait at most
constexpr milliseconds kLastWords{200};  // in which the lines of a child that has ended arrive
constexpr std::size_t kBatch = std::size_t{64} << 10;
constexpr int kLinesBetweenLooks = 256;

Form OutputForm(const Options& options) {
    if (options.json) {
        return Form::kJson;
    }
    const bool colours = options.colours == Colours::kAlways ||
                         (options.colours == Colours::kOnTerminal && ShowsColours());
    return colours ? Form::kColouredText : Form::kText;
}

// What the viewer says itself goes beside the lines.
void Tell(const std::string& text) {
    std::fprintf(stderr, "dbwin: %s\n", text.c_str());
}

}  // namespace

std::string Counts::Text() const {
    std::string text = std::to_string(shown) + (shown == 1 ? " line" : " lines") + " shown, " +
                       std::to_string(leftOut) + " left out, " + std::to_string(lost) + " lost";
    if (notTaken != 0) {
        text += ", " + std::to_string(notTaken) + " not taken by the output";
    }
    if (notWritten != 0) {
        text += ", " + std::to_string(notWritten) + " not in the file";
    }
    return text;
}

Viewer::Viewer(const Options& options, const Filter& filter, DebugMonitor& monitor, LogFile* file)
    : monitor_(monitor),
      filter_(filter),
      file_(file),
      fileForm_(options.json ? Form::kJson : Form::kText),
      outputForm_(OutputForm(options)),
      isQuiet_(options.isQuiet) {
    if (options.isPaused) {
        SetPaused(true);
    }
}

void Viewer::Run(Child* child, Keys& keys) {
    auto end = std::chrono::steady_clock::time_point::max();
    while (!EndIsAskedFor() && !outputIsClosed_ && std::chrono::steady_clock::now() < end) {
        if (!HandleKeys(keys)) {
            break;
        }
        if (isPaused_) {
            std::this_thread::sleep_for(kLook);
        } else {
            TakeWhatIsThere();
        }
        if (child != nullptr && child->ExitCode() &&
            end == std::chrono::steady_clock::time_point::max()) {
            end = std::chrono::steady_clock::now() + kLastWords;
        }
    }
    // What had come by then: a program that goes on writing must not keep the viewer from its end.
    const auto asked = std::chrono::system_clock::now();
    while (const auto line = monitor_.Next(milliseconds(0))) {
        if (line->lost == 0 && line->received > asked) {
            break;
        }
        Take(*line);
    }
    Flush();
    if (const std::string failure = file_ != nullptr ? file_->Finish() : ""; !failure.empty()) {
        TellFileFailure(failure);
    }
}

// False when the viewer is to end.
bool Viewer::HandleKeys(Keys& keys) {
    while (const auto key = keys.Next()) {
        switch (*key) {
            case 'p':
            case 'P':
            case ' ':
                SetPaused(!isPaused_);
                break;
            case 'c':
            case 'C':
                Tell(counts_.Text());
                break;
            case 'q':
            case 'Q':
                return false;
            default:
                Tell("keys: p pause, c counts, q end");
                break;
        }
    }
    return true;
}

void Viewer::SetPaused(bool isPaused) {
    isPaused_ = isPaused;
    monitor_.SetPaused(isPaused);
    Tell(isPaused ? "paused; p goes on" : "goes on");
}

// Waits for a line, then takes what else has come, in batches.
void Viewer::TakeWhatIsThere() {
    auto line = monitor_.Next(kLook);
    for (int taken = 0; line; ++taken) {
        Take(*line);
        line = taken < kLinesBetweenLooks ? monitor_.Next(milliseconds(0)) : std::nullopt;
    }
    Flush();
    if (file_ != nullptr) {
        file_->SyncNowAndThen();
    }
}

void Viewer::Take(const DebugLine& line) {
    const auto prefix = line.lost == 0 ? ReadPrefix(line.text) : std::nullopt;
    if (line.lost != 0) {
        counts_.lost += line.lost;
    } else if (filter_.Takes(line, prefix)) {
        ++counts_.shown;
    } else {
        ++counts_.leftOut;
        return;
    }
    if (!isQuiet_) {
        AppendLine(forOutput_.text, outputForm_, line, prefix);
        ++forOutput_.lines;
    }
    if (file_ != nullptr) {
        AppendLine(forFile_.text, fileForm_, line, prefix);
        ++forFile_.lines;
    }
    if (std::max(forOutput_.text.size(), forFile_.text.size()) >= kBatch) {
        Flush();
    }
}

void Viewer::Flush() {
    if (forFile_.lines != 0) {
        FlushFile();
        forFile_ = {};
    }
    if (forOutput_.lines != 0) {
        FlushOutput();
        forOutput_ = {};
    }
}

// Lines that the file did not take are told of in their place.
void Viewer::FlushFile() {
    std::string text;
    if (missingInFile_ != 0) {
        AppendLine(text, fileForm_, {0, {}, missingInFile_, std::chrono::system_clock::now()},
                   std::nullopt);
    }
    const std::string failure = file_->Write(text + forFile_.text);
    if (failure.empty()) {
        missingInFile_ = 0;
        return;
    }
    missingInFile_ += forFile_.lines;
    counts_.notWritten += forFile_.lines;
    TellFileFailure(failure);
}

void Viewer::FlushOutput() {
    if (!outputIsClosed_) {
        const std::string failure = WriteOut(forOutput_.text);
        if (failure.empty()) {
            return;
        }
        outputIsClosed_ = hasFailed_ = true;
        Tell("the output takes no more lines: " + failure);
    }
    counts_.shown -= std::min<std::uint64_t>(counts_.shown, forOutput_.lines);
    counts_.notTaken += forOutput_.lines;
}

void Viewer::TellFileFailure(const std::string& failure) {
    hasFailed_ = true;
    if (failure != fileFailure_) {
        Tell(failure + "; lines that the file does not take are counted");
        fileFailure_ = failure;
    }
}

}  // namespace dbwin
