#include "tests/platform/difference.h"

#include <cstdio>

namespace kit {

testing::AssertionResult HoldsExceptOn(WindowSystem exception, const char* reason, bool holds) {
    if (CurrentWindowSystem() != exception)
        return holds ? testing::AssertionSuccess() : testing::AssertionFailure() << "no mark here";
    if (holds)
        return testing::AssertionFailure() << "the marked difference is gone: " << reason;
    std::printf("marked difference: %s\n", reason);
    return testing::AssertionSuccess();
}

}  // namespace kit
