#include "Wide.h"

#include <optional>
#include <utility>

#include "Failure.h"
#include "base/Utf8.h"

using namespace TolvenLibs::RevitMappingEditorDll;

bool IsUtf8(std::string_view bytes) {
  std::wstring units(bytes.size(), L'\0');
  TakeUtf8(bytes, units.data());
  return bytes.empty();
}

std::wstring ToWide(std::string_view bytes) {
  return DecodeUtf8(bytes);
}

std::string ToUtf8(std::wstring_view text) {
  std::optional<std::string> bytes = EncodeUtf8(text);
  if (!bytes) throw Failure{failedOtherwise, "A text contains a lone surrogate."};
  return *std::move(bytes);
}

std::string ToField(std::wstring_view text) {
  std::string field = ToUtf8(text);
  for (char& character : field) {
    if (character == '\t' || character == '\n' || character == '\r') character = ' ';
  }
  return field;
}
