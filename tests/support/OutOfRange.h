#pragma once

#include <stdexcept>
#include <string>

constexpr const char* badSubscript = "invalid vector subscript";
constexpr const char* badKey = "invalid map<K, T> key";

// Returns the message of the `out_of_range` that the call throws, or that it throws none.
template <class Call>
std::string OutOfRangeOf(Call call) {
  try {
    call();
  } catch (const std::out_of_range& error) {
    return error.what();
  }
  return "no out_of_range";
}
