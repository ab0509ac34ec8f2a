#pragma once

#include <string>
#include <string_view>

#include "base/Files.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Calls `ReplaceWholeFile` with bytes in one piece.
inline void ReplaceBy(const std::wstring& path, std::string_view bytes) {
  ReplaceWholeFile(path, [bytes](const TakeBytes& take) { take(bytes); });
}

}  // namespace TolvenLibs::RevitMappingEditorDll
