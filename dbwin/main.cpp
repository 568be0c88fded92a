// dbwin: shows the debug output of programs on the terminal.
#include <cstdio>
#include <memory>
#include <span>

#include "dbwin/viewer.h"

namespace {

enum ExitCode {
    kFine = 0,
    kNotWritten = 1,
    kMistake = 2,
    kAnotherListens = 3,
    kNoPlace = 4,
    kNotStarted = 127,
};

int Complain(const std::string& text, int exitCode) {
    std::fprintf(stderr, "dbwin: %s\n", text.c_str());
    return exitCode;
}

int ComplainOf(const DebugMonitor& monitor) {
    switch (monitor.State()) {
        case DebugMonitorState::kAnotherListens:
            return Complain("another viewer takes the debug output already", kAnotherListens);
        case DebugMonitorState::kFolderNotPrivate:
            return Complain(monitor.Place() +
                                " is not a folder of this user's alone: another user may have made "
                                "it. Remove it, or set XDG_RUNTIME_DIR to a folder of your own",
                            kNoPlace);
        default:
            return Complain("the system refuses to listen at " + monitor.Place(), kNoPlace);
    }
}

int View(const dbwin::Options& options, const dbwin::Filter& filter, dbwin::LogFile* file) {
    // Ends last: its window may be waiting for the watch.
    std::unique_ptr<dbwin::Presence> presence;
    const dbwin::EndWatch watch;
    DebugMonitor monitor;
    if (!monitor.IsListening()) {
        return ComplainOf(monitor);
    }
    presence = std::make_unique<dbwin::Presence>();
    dbwin::Viewer viewer(options, filter, monitor, file);
    std::unique_ptr<dbwin::Child> child;
    if (!options.command.empty()) {
        std::string error;
        child = std::make_unique<dbwin::Child>(options.command, !dbwin::IsInputTerminal(), error);
        if (!error.empty()) {
            return Complain(options.command.front() + " can't be started: " + error, kNotStarted);
        }
    }
    {
        dbwin::Keys keys(dbwin::IsInputTerminal());
        viewer.Run(child.get(), keys);
    }
    std::fprintf(stderr, "dbwin: %s\n", viewer.TheCounts().Text().c_str());
    if (viewer.HasFailed()) {
        return kNotWritten;
    }
    return child != nullptr ? child->ExitCode().value_or(kFine) : kFine;
}

}  // namespace

int main(int count, char** arguments) {
    std::string error;
    const dbwin::Options options = dbwin::ReadOptions(
        std::span<const char* const>(arguments, static_cast<std::size_t>(count)).subspan(1), error);
    if (!error.empty()) {
        return Complain(error + "; see dbwin --help", kMistake);
    }
    if (options.help) {
        return dbwin::WriteOut(dbwin::HelpText()).empty() ? kFine : kNotWritten;
    }
    const dbwin::Filter filter(options.selection, options.ignoresCase, error);
    if (!error.empty()) {
        return Complain(error, kMistake);
    }
    if (options.isQuiet && !options.file) {
        return Complain("--quiet shows nothing without --output", kMistake);
    }
    std::unique_ptr<dbwin::LogFile> file;
    if (options.file) {
        file = std::make_unique<dbwin::LogFile>(*options.file, error);
        if (!error.empty()) {
            return Complain(error, kNotWritten);
        }
    }
    return View(options, filter, file.get());
}
