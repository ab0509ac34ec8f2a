#include "json5/Json5Text.h"

#include <cstddef>

#include "base/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr char noCodeByte = '\xFF';

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
  bytes.resize(text.size());
  std::size_t size = 0;
  for (; size < text.size() && static_cast<char32_t>(text[size]) < 0x80; ++size) {
    bytes[size] = static_cast<char>(text[size]);
  }
  bytes.resize(size);
  text.remove_prefix(size);
  while (!text.empty()) {
    const char32_t code = TakeUnits(text);
    if (code > 0x10FFFF) {
      bytes.push_back(noCodeByte);
    } else {
      AppendJson5Code(bytes, code);
    }
  }
}

char32_t TakeJson5Code(std::string_view& bytes) {
  if (bytes.front() == noCodeByte) {
    bytes.remove_prefix(1);
    return 0xFFFD;
  }
  const auto lead = static_cast<unsigned char>(bytes.front());
  const std::size_t length = 2U + (lead >= 0xE0 ? 1 : 0) + (lead >= 0xF0 ? 1 : 0);
  char32_t code = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    code = (code << 6) | (static_cast<unsigned char>(bytes[i]) & 0x3FU);
  }
  bytes.remove_prefix(length);
  return code;
}

std::size_t WideSize(std::string_view bytes) {
  std::size_t size = 0;
  for (const char byte : bytes) {
    const auto lead = static_cast<unsigned char>(byte);
    size += (lead & 0xC0) == 0x80 ? 0 : 1;
    if constexpr (sizeof(wchar_t) == 2) {
      size += lead >= 0xF0 ? 1 : 0;
    }
  }
  return size;
}

wchar_t* PutWideText(std::string_view bytes, wchar_t* out) {
  while (!bytes.empty()) {
    while (!bytes.empty() && static_cast<unsigned char>(bytes.front()) < 0x80) {
      *out++ = static_cast<wchar_t>(bytes.front());
      bytes.remove_prefix(1);
    }
    if (bytes.empty()) break;
    out = PutUnits(TakeJson5Code(bytes), out);
  }
  return out;
}

std::wstring ToWideText(std::string_view bytes) {
  std::wstring text(bytes.size(), L'\0');
  text.resize(static_cast<std::size_t>(PutWideText(bytes, text.data()) - text.data()));
  return text;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
