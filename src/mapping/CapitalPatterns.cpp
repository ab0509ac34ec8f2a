#include "mapping/CapitalPatterns.h"

#include "editor/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

std::uint32_t TakeNumber(const std::uint8_t*& bytes) {
  std::uint32_t number = *bytes++;
  if (number < 0x80) return number;
  number &= 0x7F;
  for (int shift = 7;; shift += 7) {
    const std::uint32_t byte = *bytes++;
    number |= (byte & 0x7F) << shift;
    if (byte < 0x80) return number;
  }
}

// Reads a text against a pattern's words, as `CapitalWords` cuts it, but no farther than they
// reach.
class WordReader {
 public:
  WordReader(std::wstring_view wholeText, const UpperTable& capitals)
      : rest(wholeText), upper(capitals) {}

  // Takes the units of the pattern's word. False if the text's word begins otherwise.
  bool TakeBeginning(const std::uint8_t*& expected) {
    std::uint32_t length = TakeNumber(expected);
    if (length == 0) return true;
    SkipSpace();
    if (length > rest.size()) return false;
    for (; length > 1; --length) {
      if (!Take(TakeNumber(expected))) return false;
    }
    return !IsAtTrailingSpace() && Take(TakeNumber(expected));
  }

  // Goes behind the next blank. False if there is none.
  bool NextWord() {
    while (!rest.empty()) {
      const bool isBlank = upper.Upper(rest.front()) == L' ';
      rest.remove_prefix(1);
      if (isBlank) return true;
    }
    return false;
  }

 private:
  bool Take(std::uint32_t expected) {
    const wchar_t unit = rest.front();
    rest.remove_prefix(1);
    return static_cast<std::uint32_t>(upper.UpperTwice(unit)) == expected &&
           upper.Upper(unit) != L' ';
  }

  void SkipSpace() {
    while (!rest.empty() && IsSpaceOfWord(rest.front())) rest.remove_prefix(1);
  }

  bool IsSpaceOfWord(wchar_t unit) const {
    const wchar_t capital = upper.Upper(unit);
    return capital != L' ' && IsSpace(capital);
  }

  // Whether the word has nothing but white space from here on, which doesn't belong to it.
  bool IsAtTrailingSpace() const {
    for (const wchar_t unit : rest) {
      const wchar_t capital = upper.Upper(unit);
      if (!IsSpace(capital)) return false;
      if (capital == L' ') return true;
    }
    return true;
  }

  std::wstring_view rest;
  const UpperTable& upper;
};

}  // namespace

CapitalPatterns::Place CapitalPatterns::Add(const MapTextRecord& record, std::uint32_t position,
                                            Place list, const UpperTable& upper) {
  if (bytes.size() >= none) return none;
  const auto place = static_cast<Place>(bytes.size());
  Append(position);
  Append(static_cast<std::uint32_t>(record.tokens.size()));
  Append(list + 1);  // 0 for none
  for (const std::wstring_view token : record.tokens) {
    Append(static_cast<std::uint32_t>(token.size()));
    for (const wchar_t unit : token) Append(static_cast<std::uint32_t>(upper.Upper(unit)));
  }
  return place;
}

CapitalPatterns::Pattern CapitalPatterns::operator[](Place place) const {
  Pattern pattern;
  pattern.words = bytes.data() + place;
  pattern.position = TakeNumber(pattern.words);
  pattern.wordCount = TakeNumber(pattern.words);
  pattern.next = TakeNumber(pattern.words) - 1;
  return pattern;
}

void CapitalPatterns::Append(std::uint32_t number) {
  for (; number >= 0x80; number >>= 7) bytes.push_back(static_cast<std::uint8_t>(number | 0x80));
  bytes.push_back(static_cast<std::uint8_t>(number));
}

bool Fits(const CapitalPatterns::Pattern& pattern, std::wstring_view text,
          const UpperTable& upper) {
  WordReader reader(text, upper);
  const std::uint8_t* rest = pattern.words;
  for (std::uint32_t word = 0; word < pattern.wordCount; ++word) {
    if (word > 0 && !reader.NextWord()) return false;
    if (!reader.TakeBeginning(rest)) return false;
  }
  return true;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
