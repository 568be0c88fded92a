// What a test expects where one system is known to do otherwise.
#pragma once

#include <cstdio>
#include <type_traits>

#include "platform/window_system.h"

namespace kit {

// The value to expect: `there` on the system `exception`, `elsewhere` on all others. The reason
// says what that system does instead and why it may. A difference that has gone or become another
// one fails the test's comparison on that system, and the mark has to go with it.
template <typename Value>
Value ExceptOn(WindowSystem exception, const std::type_identity_t<Value>& there, const char* reason,
               const Value& elsewhere) {
    if (CurrentWindowSystem() != exception)
        return elsewhere;
    std::printf("marked difference: %s\n", reason);
    return there;
}

}  // namespace kit
