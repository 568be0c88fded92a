// Which lines are shown.
#pragma once

#include <memory>
#include <string>

#include "dbwin/options.h"
#include "dbwin/trace_line.h"
#include "platform/debug_monitor.h"

namespace dbwin {

class Filter {
  public:
    // `error` names an expression that makes no sense, and why; the filter is of no use then.
    Filter(const Selection& selection, bool ignoresCase, std::string& error);
    ~Filter();

    // Whether the line is to be shown: taken in by each kind of what is asked for, and left out by
    // none. Regular expressions see it as it was written, without the line break at its end. An
    // expression that is too much for a line is not found in it.
    bool Takes(const DebugLine& line, const std::optional<TracePrefix>& prefix) const;

  private:
    struct Expressions;

    Selection selection_;
    std::unique_ptr<Expressions> expressions_;
};

}  // namespace dbwin
