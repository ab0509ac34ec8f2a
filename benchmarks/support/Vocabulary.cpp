#include "support/Vocabulary.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace {

constexpr std::size_t wordCount = 20'000;

// Returns a word of two to four syllables, the last of which may be closed: 4 to 13 letters.
std::wstring MakeWord(Random& random) {
  constexpr std::wstring_view consonants = L"bcdfghklmnprstvz";
  constexpr std::wstring_view vowels = L"aeiou";
  std::wstring word;
  for (int syllables = random.Between(2, 4); syllables > 0; --syllables) {
    word += consonants[random.Below(consonants.size())];
    word += vowels[random.Below(vowels.size())];
    if (random.Below(3) == 0) word += consonants[random.Below(consonants.size())];
  }
  return word;
}

}  // namespace

Vocabulary::Vocabulary() {
  Random random(1);
  std::unordered_set<std::wstring> known;
  std::uint64_t sum = 0;
  while (words.size() < wordCount) {
    std::wstring word = MakeWord(random);
    if (!known.insert(word).second) continue;
    words.push_back(std::move(word));
    sum += (std::uint64_t{1} << 32) / words.size();
    weightSums.push_back(sum);
  }
}

const std::wstring& Vocabulary::Frequent(Random& random) const {
  const std::uint64_t drawn = random.Below(weightSums.back());
  const auto found = std::upper_bound(weightSums.begin(), weightSums.end(), drawn);
  return words[static_cast<std::size_t>(found - weightSums.begin())];
}
