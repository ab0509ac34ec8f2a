// JSON5 1.0.0, from text to tree.

#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

// Arrays and objects may stand this deep in each other. Deeper text is malformed.
constexpr std::size_t maxJson5Depth = 1000;

struct Json5Value {
  enum class Kind : unsigned char { null, boolean, number, string, array, object };

  Kind kind = Kind::null;
  bool boolean = false;
  double number = 0;
  std::wstring_view text;       // of a string
  std::size_t firstMember = 0;  // of an array or object, see `Json5Tree`
  std::size_t memberCount = 0;
};

// An element of an array, which has an empty key, or a member of an object.
struct Json5Member {
  std::wstring_view key;
  Json5Value value;
};

// A whole document. The tree refers to the text that it was parsed from, which must outlive it, and
// to its own parts, so that it is neither copied nor moved.
struct Json5Tree {
  Json5Tree() = default;
  Json5Tree(const Json5Tree&) = delete;
  Json5Tree& operator=(const Json5Tree&) = delete;

  // The elements of an array in their order, or the members of an object in the order of the keys'
  // code units, each key once, with the last value that the text has for it. Of any other value
  // there are none.
  std::span<const Json5Member> Members(const Json5Value& value) const;

  // The value of a member, or null if `object` is no object or has no such key.
  const Json5Value* Find(const Json5Value& object, std::wstring_view key) const;

  Json5Value root;
  std::vector<Json5Member> members;  // those of one value side by side
  std::deque<std::wstring> decoded;  // strings and keys that were written with escapes
};

struct Json5Error {
  std::size_t line;    // from 1
  std::size_t column;  // from 1, in code units
  const char* message;
};

// Parses a whole text into an empty tree, in one pass and without recursion. An escaped surrogate
// pair is one code point where `wchar_t` has 32 bits; a number beyond the range of a double is
// infinite. Gives the error of malformed text, whose tree is of no use.
std::optional<Json5Error> ParseJson5(std::wstring_view text, Json5Tree& tree);

}  // namespace TolvenLibs::RevitMappingEditorDll
