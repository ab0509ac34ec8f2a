#pragma once

#include "support/GlobalLocale.h"

// Deliberately not derived from `std::exception`.
struct UpperCasingFailed {};

// Whether the library shares the tests' C++ runtime, and with it the global locale. If each has its
// own runtime linked in, a locale of the tests doesn't affect the library.
constexpr bool oneRuntime = !OWN_RUNTIMES;

// Makes a `GlobalLocale` in which no letter can be converted to a capital. The library converts
// patterns and texts, so this makes parsing and lookup fail.
[[noreturn]] inline wchar_t UpperFails(wchar_t) {
  throw UpperCasingFailed();
}
