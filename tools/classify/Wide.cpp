#include "Wide.h"

#include <utf8.h>

#include <iterator>

bool IsUtf8(std::string_view bytes) {
  return utf8::is_valid(bytes.begin(), bytes.end());
}

std::wstring ToWide(std::string_view bytes) {
  std::wstring text;
  if constexpr (sizeof(wchar_t) == 2) {
    utf8::utf8to16(bytes.begin(), bytes.end(), std::back_inserter(text));
  } else {
    utf8::utf8to32(bytes.begin(), bytes.end(), std::back_inserter(text));
  }
  return text;
}

std::string ToUtf8(std::wstring_view text) {
  std::string bytes;
  if constexpr (sizeof(wchar_t) == 2) {
    utf8::utf16to8(text.begin(), text.end(), std::back_inserter(bytes));
  } else {
    utf8::utf32to8(text.begin(), text.end(), std::back_inserter(bytes));
  }
  return bytes;
}

std::string ToField(std::wstring_view text) {
  std::string field = ToUtf8(text);
  for (char& character : field) {
    if (character == '\t' || character == '\n' || character == '\r') character = ' ';
  }
  return field;
}
