// The characters of unquoted keys.

#pragma once

#include <cstdint>

namespace TolvenLibs::RevitMappingEditorDll {

// Return whether a code point may begin or continue an ECMAScript 5.1 identifier, by the general
// categories of Unicode 10.0.
bool IsIdentifierStart(std::uint32_t code);
bool IsIdentifierPart(std::uint32_t code);

}  // namespace TolvenLibs::RevitMappingEditorDll
