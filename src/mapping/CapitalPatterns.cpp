#include "mapping/CapitalPatterns.h"

#include <cstddef>

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
class TextWords {
 public:
  TextWords(std::wstring_view text, const UpperTable& capitals)
      : rest(text.data()),
        end(rest + text.size()),
        upper(capitals),
        capitalOfBlank(static_cast<std::uint32_t>(capitals.Upper(L' '))) {}

  // Takes the units of the pattern's word. False if the text's word begins otherwise.
  bool TakeBeginning(const std::uint8_t*& expected) {
    const std::uint32_t length = TakeNumber(expected);
    if (length == 0) return true;
    SkipSpace();
    if (length > static_cast<std::size_t>(end - rest)) return false;
    const wchar_t* const last = rest + (length - 1);
    for (; rest != last; ++rest) {
      if (!IsCapital(*rest, TakeNumber(expected))) return false;
    }
    return !IsAtTrailingSpace() && IsCapital(*rest++, TakeNumber(expected));
  }

  // Goes behind the next blank. False if there is none.
  bool NextWord() {
    while (rest != end) {
      if (upper.Upper(*rest++) == L' ') return true;
    }
    return false;
  }

 private:
  // No blank belongs to a word, even if a pattern has a unit with a blank's capital.
  bool IsCapital(wchar_t unit, std::uint32_t expected) const {
    if (static_cast<std::uint32_t>(upper.UpperTwice(unit)) != expected) return false;
    return expected != capitalOfBlank || upper.Upper(unit) != L' ';
  }

  void SkipSpace() {
    while (rest != end && IsSpaceOfWord(*rest)) ++rest;
  }

  bool IsSpaceOfWord(wchar_t unit) const {
    const wchar_t capital = upper.Upper(unit);
    return capital != L' ' && IsSpace(capital);
  }

  // Whether the word has nothing but white space from here on, which doesn't belong to it.
  bool IsAtTrailingSpace() const {
    const wchar_t* unit = rest;
    while (unit != end && IsSpaceOfWord(*unit)) ++unit;
    return unit == end || upper.Upper(*unit) == L' ';
  }

  const wchar_t* rest;
  const wchar_t* end;
  const UpperTable& upper;
  std::uint32_t capitalOfBlank;
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
  TextWords words(text, upper);
  const std::uint8_t* rest = pattern.words;
  for (std::uint32_t word = 0; word < pattern.wordCount; ++word) {
    if (word > 0 && !words.NextWord()) return false;
    if (!words.TakeBeginning(rest)) return false;
  }
  return true;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
