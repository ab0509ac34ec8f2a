// UTF-8 to and from wide text.
//
// A code point above U+FFFF is one unit where `wchar_t` has 32 bits, and a surrogate pair where it
// has 16.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// No code point has this number.
constexpr std::uint32_t noCodePoint = 0xFFFFFFFF;

// The code point of several bytes at the head of `bytes`, which loses them; or `noCodePoint`, and
// `bytes` stays. A byte of ASCII is no such code point.
std::uint32_t TakeCodePoint(std::string_view& bytes);

// The wide form of `bytes`, up to the first byte that cannot be decoded: only the shortest form of
// a code point counts, surrogates do not, nor does anything above U+10FFFF. A sequence that the end
// of the bytes cuts short cannot be decoded either. A byte order mark is the character U+FEFF like
// any other.
std::wstring DecodeUtf8(std::string_view bytes);

// Decodes into the units at `out`, of which there are as many as bytes, and gives the end of what
// it put there. `bytes` keeps what cannot be decoded and all behind it.
wchar_t* TakeUtf8(std::string_view& bytes, wchar_t* out);

// The UTF-8 form of `text`, or nothing if it holds a unit that stands for no code point: a
// surrogate without its partner, or a number above U+10FFFF.
std::optional<std::string> EncodeUtf8(std::wstring_view text);

// The code point at the head of `text`, which loses the unit or the two that it has; a unit that
// stands for none is the result as it is.
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

// Writes the units of a code point, one or two, or a surrogate as it is, and gives the place behind
// them.
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

// Writes the bytes of a number from 0x80 to 0x10FFFF, two to four of them, and gives the place
// behind them. A surrogate gets the three that its number would have.
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

// Adds the UTF-8 form of `text` to `bytes`, or gives false at the first unit that has none, with
// the form of those ahead of it added.
bool AppendUtf8(std::string& bytes, std::wstring_view text);

}  // namespace TolvenLibs::RevitMappingEditorDll
