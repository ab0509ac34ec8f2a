// Cuts texts into upper-cased words. Patterns and descriptions both go through it.

#pragma once

#include <cstddef>
#include <string_view>

#include "base/Text.h"
#include "mapping/UpperTable.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Returns the words of a text one by one: what is between the blanks of its upper-cased form,
// trimmed. A word is a view into the text, in the text's own case. Words are cut lazily: the text
// after the last word asked for isn't read.
class CapitalWords {
 public:
  CapitalWords(std::wstring_view text, const UpperTable& upper) : rest_(text), upper_(upper) {}

  // Sets `word` to the next word, or returns false after the last. An empty text has one word.
  bool Next(std::wstring_view& word) {
    if (atEnd_) return false;
    std::size_t end = 0;
    while (end < rest_.size() && upper_.Upper(rest_[end]) != L' ') ++end;
    word = rest_.substr(0, end);
    while (!word.empty() && IsSpace(upper_.Upper(word.back()))) word.remove_suffix(1);
    while (!word.empty() && IsSpace(upper_.Upper(word.front()))) word.remove_prefix(1);
    atEnd_ = end == rest_.size();
    if (!atEnd_) rest_.remove_prefix(end + 1);
    return true;
  }

 private:
  std::wstring_view rest_;
  const UpperTable& upper_;
  bool atEnd_ = false;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
