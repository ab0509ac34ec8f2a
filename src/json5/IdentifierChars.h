#pragma once

#include <cstdint>

namespace TolvenLibs::RevitMappingEditorDll {

// Whether a code point may begin an ECMAScript 5.1 identifier, or stand in it, by the general
// categories of Unicode 10.0.
bool IsIdentifierStart(std::uint32_t code);
bool IsIdentifierPart(std::uint32_t code);

}  // namespace TolvenLibs::RevitMappingEditorDll
