// The words of the generated files and descriptions.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/Random.h"

// 20,000 random words of small Latin letters. Some are prefixes of others, as in a language.
class Vocabulary {
 public:
  Vocabulary();

  // Returns a word by its frequency in texts, Zipf's law: the n-th has the weight 1/n.
  const std::wstring& Frequent(Random& random) const;

  // Returns a word; all are equally likely.
  const std::wstring& Any(Random& random) const { return words[random.Below(words.size())]; }

 private:
  std::vector<std::wstring> words;
  std::vector<std::uint64_t> weightSums;  // of each word and all before it
};
