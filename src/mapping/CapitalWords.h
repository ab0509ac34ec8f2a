// The words of a description, as its capitals are cut at blanks.

#pragma once

#include <cstddef>
#include <string_view>

#include "editor/Text.h"
#include "mapping/UpperTable.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Gives the words one by one, in the text's own case. No more of the text is looked at than the
// words that are asked for.
class CapitalWords {
 public:
  CapitalWords(std::wstring_view wholeText, const UpperTable& capitals)
      : rest(wholeText), upper(capitals) {}

  // Puts the next word into `word`, or gives false.
  bool Next(std::wstring_view& word) {
    if (atEnd) return false;
    std::size_t end = 0;
    while (end < rest.size() && upper.Upper(rest[end]) != L' ') ++end;
    word = rest.substr(0, end);
    while (!word.empty() && IsSpace(upper.Upper(word.back()))) word.remove_suffix(1);
    while (!word.empty() && IsSpace(upper.Upper(word.front()))) word.remove_prefix(1);
    atEnd = end == rest.size();
    if (!atEnd) rest.remove_prefix(end + 1);
    return true;
  }

 private:
  std::wstring_view rest;
  const UpperTable& upper;
  bool atEnd = false;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
