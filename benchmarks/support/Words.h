// The rules of a lookup in their simplest form: the floor of every lookup, and a linear scan to
// compare with.

#pragma once

#include <string>
#include <string_view>
#include <vector>

// Converts a text to capitals by the facet of the global locale and splits it at blanks. The
// buffers are reused, so this is the least work for a lookup of whole texts.
class UpperWords {
 public:
  const std::vector<std::wstring_view>& Cut(std::wstring_view text);

 private:
  std::wstring upper;
  std::vector<std::wstring_view> words;
};

using Tokens = std::vector<std::wstring>;  // the words of a pattern, in capitals

Tokens MakeTokens(std::wstring_view pattern);

// Returns the position of the first pattern whose tokens are prefixes of the words of the text, or
// -1. The patterns are in capitals already; the text is converted once for all patterns.
int Walk(const std::vector<Tokens>& records, std::wstring_view text);
