// The words that the generated files and descriptions are made of.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/Random.h"

// 20,000 made-up words of small Latin letters. Some are the beginning of others, as in a language.
class Vocabulary {
 public:
  Vocabulary();

  // A word as often as it occurs in a text: the n-th of the vocabulary with a weight of 1/n.
  const std::wstring& Frequent(Random& random) const;

  // Any word as often as any other.
  const std::wstring& Any(Random& random) const { return words[random.Below(words.size())]; }

 private:
  std::vector<std::wstring> words;
  std::vector<std::uint64_t> weightSums;  // of each word and all ahead of it
};
