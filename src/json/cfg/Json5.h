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

// The members of an array or object, by their places in a `Json5Tree`.
struct Json5Members {
  std::size_t first;
  std::size_t count;
};

// The kind tells which of the others there is. All texts are as `Json5Text.h` has them.
struct Json5Value {
  enum class Kind : unsigned char { null, boolean, number, string, array, object };

  Json5Value() : number(0) {}

  Kind kind = Kind::null;
  bool boolean = false;
  union {
    double number;
    std::string_view text;
    Json5Members members;
  };
};

// An element of an array, which has an empty key, or a member of an object.
struct Json5Member {
  std::string_view key;
  Json5Value value;
};

// A whole document. The tree refers to the text that it was parsed from, which must outlive it, and
// to its own parts, so that it is neither copied nor moved.
struct Json5Tree {
  Json5Tree() = default;
  Json5Tree(const Json5Tree&) = delete;
  Json5Tree& operator=(const Json5Tree&) = delete;

  // The elements of an array in their order, or the members of an object in the order of the keys'
  // bytes, each key once, with the last value that the text has for it. Of any other value there
  // are none.
  std::span<const Json5Member> Members(const Json5Value& value) const;

  // The value of a member, or null if `object` is no object or has no such key.
  const Json5Value* Find(const Json5Value& object, std::string_view key) const;

  // The same, the sooner the nearer the member stands to the `place` that the last search in this
  // object left there; 0 at first.
  const Json5Value* FindNear(const Json5Value& object, std::string_view key,
                             std::size_t& place) const;

  Json5Value root;
  std::vector<Json5Member> members;  // those of one value side by side
  std::deque<std::string> decoded;   // strings and keys that were written with escapes
};

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
