// A parsed document of JSON5.

#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

// The members of an array or object, as a range of `Json5Tree::members`.
struct Json5Members {
  std::size_t first;
  std::size_t count;
};

// `kind` tells which of the other members is valid. Texts are in the form of Json5Text.h.
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

// A member of an object, or an element of an array, whose key is empty.
struct Json5Member {
  std::string_view key;
  Json5Value value;
};

// Compares keys by their bytes. A loop, since most keys differ early.
inline bool IsKeyBefore(std::string_view left, std::string_view right) {
  const std::size_t shorter = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < shorter; ++i) {
    if (left[i] != right[i]) {
      return static_cast<unsigned char>(left[i]) < static_cast<unsigned char>(right[i]);
    }
  }
  return left.size() < right.size();
}

// A whole document. Neither copied nor moved, since it refers to its own parts. REQUIRES: the text
// that it was parsed from outlives it.
struct Json5Tree {
  Json5Tree() = default;
  Json5Tree(const Json5Tree&) = delete;
  Json5Tree& operator=(const Json5Tree&) = delete;

  // Returns the elements of an array in order, or the members of an object sorted by the keys'
  // bytes, each key once, with its last value in the text. Empty for any other value.
  std::span<const Json5Member> Members(const Json5Value& value) const;

  // Returns the value of a member, or null if `object` isn't an object or has no such key.
  const Json5Value* Find(const Json5Value& object, std::string_view key) const;

  // The same by galloping search from `place`, in time logarithmic in the member's distance.
  // `place` is 0 at first, and what the last search in this object set it to afterwards.
  const Json5Value* FindNear(const Json5Value& object, std::string_view key,
                             std::size_t& place) const;

  Json5Value root;
  std::vector<Json5Member> members;  // those of one value are contiguous
  std::deque<std::string> decoded;   // strings and keys that were written with escapes
};

}  // namespace TolvenLibs::RevitMappingEditorDll
