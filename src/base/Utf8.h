// UTF-8 to and from wide text: UTF-32 where `wchar_t` has 32 bits, UTF-16 where it has 16.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Not a code point.
constexpr std::uint32_t noCodePoint = 0xFFFFFFFF;

// Removes a code point of several bytes from the front of `bytes` and returns it. If there is none,
// as before ASCII, leaves `bytes` and returns `noCodePoint`. REQUIRES: !bytes.empty().
std::uint32_t TakeCodePoint(std::string_view& bytes);

// Returns the wide form of `bytes` up to the first sequence that can't be decoded: one that is
// overlong or truncated, a surrogate, or above U+10FFFF. A byte order mark is a character.
std::wstring DecodeUtf8(std::string_view bytes);

// Decodes `bytes` to `out`, and returns the end of the output. `bytes` keeps what can't be decoded
// and all after it. REQUIRES: `out` has capacity for as many units as there are bytes.
wchar_t* TakeUtf8(std::string_view& bytes, wchar_t* out);

// Returns the UTF-8 form of `text`, or nothing for an unpaired surrogate or a unit above U+10FFFF.
std::optional<std::string> EncodeUtf8(std::wstring_view text);

// Removes a code point of one or two units from the front of `text` and returns it. A unit that is
// none is returned as it is. REQUIRES: !text.empty().
inline std::uint32_t TakeUnits(std::wstring_view& text) {
  const auto code = static_cast<std::uint32_t>(text.front());
  text.remove_prefix(1);
  if constexpr (sizeof(wchar_t) == 2) {
    const std::uint32_t low = text.empty() ? 0 : static_cast<std::uint32_t>(text.front());
    if (code >= 0xD800 && code < 0xDC00 && low >= 0xDC00 && low <= 0xDFFF) {
      text.remove_prefix(1);
      return ((code - 0xD7C0) << 10) + (low - 0xDC00);
    }
  }
  return code;
}

// Writes the one or two units of a code point, or a surrogate as it is, and returns their end.
inline wchar_t* PutUnits(std::uint32_t code, wchar_t* out) {
  if constexpr (sizeof(wchar_t) == 2) {
    if (code > 0xFFFF) {
      *out++ = static_cast<wchar_t>(0xD7C0 + (code >> 10));
      *out++ = static_cast<wchar_t>(0xDC00 + (code & 0x3FF));
      return out;
    }
  }
  *out++ = static_cast<wchar_t>(code);
  return out;
}

// Writes the two to four bytes of a number, and returns their end. A surrogate gets the three bytes
// of its number. REQUIRES: 0x80 <= code <= 0x10FFFF.
inline char* PutUtf8(std::uint32_t code, char* out) {
  const auto put = [&out](std::uint32_t byte) { *out++ = static_cast<char>(byte); };
  if (code < 0x800) {
    put(0xC0 | (code >> 6));
  } else if (code < 0x10000) {
    put(0xE0 | (code >> 12));
    put(0x80 | ((code >> 6) & 0x3F));
  } else {
    put(0xF0 | (code >> 18));
    put(0x80 | ((code >> 12) & 0x3F));
    put(0x80 | ((code >> 6) & 0x3F));
  }
  put(0x80 | (code & 0x3F));
  return out;
}

// Appends the UTF-8 form of `text` to `bytes`. Stops at the first unit that has none, and returns
// false.
bool AppendUtf8(std::string& bytes, std::wstring_view text);

}  // namespace TolvenLibs::RevitMappingEditorDll
