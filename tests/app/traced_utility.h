// The utility with a debug viewer beside it.
#pragma once

#include "platform/debug_monitor.h"
#include "res/resource.h"
#include "tests/kit/utility.h"

// Starts the utility on fresh settings with its trace on.
class TracedUtility {
  public:
    TracedUtility() { utility_.Command(IDM_DEBUG_KORA_ERROR); }

    const kit::Utility* operator->() const { return &utility_; }
    kit::Utility* operator->() { return &utility_; }

    // The text of the next trace line behind its prefix; a text that says so where none comes.
    std::string NextTrace() {
        const std::string prefixEnd = "KORATST:\t ";
        while (const auto line = monitor_.Next(kLineIsComing)) {
            const std::size_t found = line->text.find(prefixEnd);
            if (found != std::string::npos)
                return line->text.substr(found + prefixEnd.size());
        }
        return "no line comes";
    }

  private:
    static constexpr std::chrono::milliseconds kLineIsComing{5000};

    kit::SettingsFolder settings_;
    DebugMonitor monitor_;
    kit::Utility utility_{settings_};
};
