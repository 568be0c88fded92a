// How fast the program runs in this build.
#pragma once

namespace kit {

// Limits of time hold for the program as its users have it; under a sanitizer, or not optimised, it
// takes so many times longer.
#ifdef VXD_SANITIZED
constexpr int kSlowdown = 20;
#elif !defined(__OPTIMIZE__)
constexpr int kSlowdown = 5;
#else
constexpr int kSlowdown = 1;
#endif

}  // namespace kit
