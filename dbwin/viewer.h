// The viewer at work: takes lines from the monitor, chooses, writes and counts them.
#pragma once

#include <cstdint>
#include <string>

#include "dbwin/filter.h"
#include "dbwin/form.h"
#include "dbwin/log_file.h"
#include "dbwin/options.h"
#include "dbwin/system.h"
#include "platform/debug_monitor.h"

namespace dbwin {

struct Counts {
    std::uint64_t shown = 0;
    std::uint64_t leftOut = 0;
    std::uint64_t lost = 0;        // before the viewer had them
    std::uint64_t notTaken = 0;    // by the output
    std::uint64_t notWritten = 0;  // to the file

    // "3 lines shown, 1 left out, 0 lost"
    std::string Text() const;
};

class Viewer {
  public:
    // What it is given must outlive it. `file` and `child` may be null.
    Viewer(const Options& options, const Filter& filter, DebugMonitor& monitor, LogFile* file);

    // Shows lines until the user ends it, nobody takes its output any more, or the child has ended
    // and its lines are shown.
    void Run(Child* child, Keys& keys);

    const Counts& TheCounts() const { return counts_; }
    // Whether lines that were chosen are neither shown nor in the file, or may not be.
    bool HasFailed() const { return hasFailed_; }

  private:
    // Lines in the form in which they are to be written.
    struct Batch {
        std::string text;
        std::uint32_t lines = 0;
    };

    bool HandleKeys(Keys& keys);
    void SetPaused(bool isPaused);
    void Take(const DebugLine& line);
    void TakeWhatIsThere();
    void Flush();
    void FlushOutput();
    void FlushFile();
    void TellFileFailure(const std::string& failure);

    DebugMonitor& monitor_;
    const Filter& filter_;
    LogFile* const file_;
    const Form fileForm_;
    const Form outputForm_;
    const bool isQuiet_;
    bool isPaused_ = false;
    bool outputIsClosed_ = false;
    bool hasFailed_ = false;
    Batch forOutput_;
    Batch forFile_;
    std::uint32_t missingInFile_ = 0;  // behind its last line
    std::string fileFailure_;          // the one that the user was told of last
    Counts counts_;
};

}  // namespace dbwin
