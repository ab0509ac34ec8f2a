#include "base/Buffers.h"

namespace TolvenLibs::RevitMappingEditorDll {

const wchar_t* NewString(std::wstring_view text) {
  text = text.substr(0, text.find(L'\0'));
  auto* buffer = new wchar_t[text.size() + 1];
  text.copy(buffer, text.size());
  buffer[text.size()] = L'\0';
  return buffer;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
