// A parser of JSON5 1.0.0.

#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "json5/Json5Tree.h"

namespace TolvenLibs::RevitMappingEditorDll {

// The maximum depth of nested arrays and objects. Deeper text is malformed.
constexpr std::size_t maxJson5Depth = 1000;

struct Json5Error {
  std::size_t line;    // from 1
  std::size_t column;  // from 1, in units of `wchar_t`
  const char* message;
  std::size_t position;  // in the text
};

// A value and where it is in the text. Those that a later member of the same key replaces, which
// the tree lacks, are parts too.
struct Json5Part {
  std::size_t parent;      // the array or object that it is in, among the parts
  std::string_view key;    // of a member
  std::size_t begin;       // of the member's key, or of the value where there is no key
  std::size_t valueBegin;  // these are positions in the text
  std::size_t end;
  Json5Value value;
};

// The parts of a text, in the order in which they begin. The first is the outermost value, which is
// its own parent.
using Json5Parts = std::vector<Json5Part>;

// Parses a text in UTF-8 into `tree`, in one pass and without recursion. Returns an error, and
// leaves `tree` unusable, if the text is malformed or can't be decoded. Numbers out of the range of
// a double are infinite or 0. Adds the parts of the text to `parts` if that isn't null; they refer
// to the text and the tree. REQUIRES: `tree` and `parts` are empty.
std::optional<Json5Error> ParseJson5(std::string_view text, Json5Tree& tree,
                                     Json5Parts* parts = nullptr);

}  // namespace TolvenLibs::RevitMappingEditorDll
