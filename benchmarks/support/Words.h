// What a lookup does by rule, in its plainest form: the floor of every lookup, and the walk that
// others are held against.

#pragma once

#include <string>
#include <string_view>
#include <vector>

// The text in capitals by the facet of the global locale, cut at blanks. Buffers that live longer
// than a call make it the least work that a lookup of whole texts can begin with.
class UpperWords {
 public:
  const std::vector<std::wstring_view>& Cut(std::wstring_view text);

 private:
  std::wstring upper;
  std::vector<std::wstring_view> words;
};

using Tokens = std::vector<std::wstring>;  // the words of a pattern, in capitals

Tokens MakeTokens(std::wstring_view pattern);

// The position of the first pattern whose tokens begin the words of the text, or -1. Patterns are
// in capitals already, and the text is put into them once for all patterns.
int Walk(const std::vector<Tokens>& records, std::wstring_view text);
