// What the exports hand out, as values: the buffers are freed here as a caller frees them.

#pragma once

#include <string>
#include <vector>

inline std::wstring Take(const wchar_t* text) {
  std::wstring taken = text;
  delete[] text;
  return taken;
}

inline std::vector<std::wstring> TakeAll(int count, const wchar_t** texts) {
  std::vector<std::wstring> taken;
  if (count == 0) return taken;
  for (int i = 0; i < count; ++i) taken.push_back(Take(texts[i]));
  delete[] texts;
  return taken;
}
