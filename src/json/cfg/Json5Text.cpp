#include "Json5Text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "editor/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr char noText = '\xFF';

// The code above ASCII at the head of `bytes`, which loses it. Its form has been checked.
char32_t TakeCode(std::string_view& bytes) {
  const auto lead = static_cast<unsigned char>(bytes.front());
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t code = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    code = (code << 6) | (static_cast<unsigned char>(bytes[i]) & 0x3FU);
  }
  bytes.remove_prefix(length);
  return code;
}

// Whether two units at the head of `text` make one code point. Where units have 32 bits none do.
bool IsPair(std::wstring_view text) {
  return sizeof(wchar_t) == 2 && text.size() >= 2 && text[0] >= 0xD800 && text[0] <= 0xDBFF &&
         text[1] >= 0xDC00 && text[1] <= 0xDFFF;
}

}  // namespace

void AppendJson5Code(std::string& bytes, char32_t code) {
  if (code < 0x80) {
    bytes.push_back(static_cast<char>(code));
    return;
  }
  char form[4];
  bytes.append(form, PutUtf8(code, form));
}

std::string ToJson5Text(std::wstring_view text) {
  std::string bytes;
  ToJson5Text(text, bytes);
  return bytes;
}

void ToJson5Text(std::wstring_view text, std::string& bytes) {
  const auto firstLong = std::find_if(
      text.begin(), text.end(), [](wchar_t unit) { return static_cast<char32_t>(unit) >= 0x80; });
  bytes.resize(static_cast<std::size_t>(firstLong - text.begin()));
  std::transform(text.begin(), firstLong, bytes.begin(),
                 [](wchar_t unit) { return static_cast<char>(unit); });
  text.remove_prefix(bytes.size());
  while (!text.empty()) {
    auto code = static_cast<char32_t>(text.front());
    if (IsPair(text)) {
      code = ((code - 0xD7C0) << 10) + (static_cast<char32_t>(text[1]) - 0xDC00);
      text.remove_prefix(1);
    }
    text.remove_prefix(1);
    if (code > 0x10FFFF) {
      bytes.push_back(noText);
    } else {
      AppendJson5Code(bytes, code);
    }
  }
}

wchar_t* PutWideText(std::string_view bytes, wchar_t* out) {
  while (!bytes.empty()) {
    while (!bytes.empty() && static_cast<unsigned char>(bytes.front()) < 0x80) {
      *out++ = static_cast<wchar_t>(bytes.front());
      bytes.remove_prefix(1);
    }
    if (bytes.empty()) break;
    const char32_t code = TakeCode(bytes);
    if (sizeof(wchar_t) == 2 && code > 0xFFFF) {
      *out++ = static_cast<wchar_t>(0xD7C0 + (code >> 10));
      *out++ = static_cast<wchar_t>(0xDC00 + (code & 0x3FF));
    } else {
      *out++ = static_cast<wchar_t>(code);
    }
  }
  return out;
}

std::wstring ToWideText(std::string_view bytes) {
  std::wstring text(bytes.size(), L'\0');
  text.resize(static_cast<std::size_t>(PutWideText(bytes, text.data()) - text.data()));
  return text;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
