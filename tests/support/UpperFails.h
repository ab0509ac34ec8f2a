#pragma once

#include "support/GlobalLocale.h"

// No `std::exception`, on purpose.
struct UpperCasingFailed {};

// Whether the library has the tests' C++ runtime, and with it their global locale. Where each has
// one of its own linked in, a locale of the tests doesn't reach the library.
constexpr bool oneRuntime = !OWN_RUNTIMES;

// For a `GlobalLocale` in which nothing can be put in capitals. As the library does that with
// patterns and texts, it is a test's means to make parsing and lookup fail.
[[noreturn]] inline wchar_t UpperFails(wchar_t) {
  throw UpperCasingFailed();
}
