// A parser of JSON5 1.0.0.

#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "json5/Json5Tree.h"

namespace TolvenLibs::RevitMappingEditorDll {

// The maximum depth of nested arrays and objects. Deeper text is malformed.
constexpr std::size_t maxJson5Depth = 1000;

struct Json5Error {
  std::size_t line;    // from 1
  std::size_t column;  // from 1, in units of `wchar_t`
  const char* message;
};

// Parses a text in UTF-8 into `tree`, in one pass and without recursion. Returns an error, and
// leaves `tree` unusable, if the text is malformed or can't be decoded. Numbers out of the range of
// a double are infinite or 0. REQUIRES: `tree` is empty.
std::optional<Json5Error> ParseJson5(std::string_view text, Json5Tree& tree);

}  // namespace TolvenLibs::RevitMappingEditorDll
