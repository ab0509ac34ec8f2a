// JSON5 1.0.0, from text to tree.

#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "json5/Json5Tree.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Arrays and objects may stand this deep in each other. Deeper text is malformed.
constexpr std::size_t maxJson5Depth = 1000;

struct Json5Error {
  std::size_t line;    // from 1
  std::size_t column;  // from 1, in units of `wchar_t`
  const char* message;
};

// Parses a whole text in UTF-8 into an empty tree, in one pass and without recursion. Bytes that
// can't be decoded make a text malformed. A number beyond the range of a double is infinite. Gives
// the error of malformed text, whose tree is of no use.
std::optional<Json5Error> ParseJson5(std::string_view text, Json5Tree& tree);

}  // namespace TolvenLibs::RevitMappingEditorDll
