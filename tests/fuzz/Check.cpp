#include "fuzz/Check.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace {

// Returns the text around the place, with characters escaped that a terminal can't show.
std::string Around(const std::wstring& text, std::size_t place) {
  const std::size_t start = place - std::min<std::size_t>(place, 200);
  std::string shown;
  for (const wchar_t unit : text.substr(start, 400)) {
    const bool plain = unit == L'\n' || (unit >= L' ' && unit < 0x7F);
    char escape[16];
    std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(unit));
    shown += plain ? std::string(1, static_cast<char>(unit)) : escape;
  }
  return shown;
}

}  // namespace

void Check(bool holds, const char* message) {
  if (holds) return;
  std::fprintf(stderr, "CHECK FAILED: %s\n", message);
  std::abort();
}

void CheckSame(const char* what, const std::wstring& actual, const std::wstring& expected) {
  if (actual == expected) return;
  const auto ends = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
  const auto place = static_cast<std::size_t>(ends.first - actual.begin());
  std::fprintf(stderr, "DIFFERENT: %s, at unit %zu\n--- is:\n%s\n--- has to be:\n%s\n", what, place,
               Around(actual, place).c_str(), Around(expected, place).c_str());
  std::abort();
}
