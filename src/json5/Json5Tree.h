// What a document of JSON5 says.

#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

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

// The order of the members' keys, by their bytes. Most differ in one of the first.
inline bool IsKeyBefore(std::string_view left, std::string_view right) {
  const std::size_t shorter = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < shorter; ++i) {
    if (left[i] != right[i]) {
      return static_cast<unsigned char>(left[i]) < static_cast<unsigned char>(right[i]);
    }
  }
  return left.size() < right.size();
}

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

}  // namespace TolvenLibs::RevitMappingEditorDll
