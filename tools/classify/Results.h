// Copies results of the library and frees their buffers.

#pragma once

#include <memory>
#include <string>
#include <vector>

inline std::wstring Take(const wchar_t* result) {
  const std::unique_ptr<const wchar_t[]> owner(result);
  return result;
}

// With a count of 0 the library writes no array, and `results` may point to anything.
inline std::vector<std::wstring> TakeAll(int count, const wchar_t** results) {
  std::vector<std::wstring> texts;
  if (count == 0) return texts;
  const std::unique_ptr<const wchar_t*[]> owner(results);
  for (int i = 0; i < count; ++i) texts.push_back(Take(results[i]));
  return texts;
}
