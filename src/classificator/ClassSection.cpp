#include "classificator/ClassSection.h"

#include <cstddef>
#include <optional>

#include "base/Text.h"
#include "textfile/Account.h"
#include "textfile/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// What the "." of a regular expression doesn't match.
constexpr std::wstring_view lineTerminators = L"\n\r\u2028\u2029";

// Returns what the first match of the expression `\((.*)\)` in the entry captures. If no bracket
// closes after the first opening one of a line, none closes after a later one: so each line is read
// once.
std::optional<std::wstring_view> FindInBrackets(std::wstring_view entry) {
  while (!entry.empty()) {
    const std::wstring_view line = entry.substr(0, entry.find_first_of(lineTerminators));
    const std::size_t open = line.find(L'(');
    const std::size_t close = line.rfind(L')');
    if (open != line.npos && close != line.npos && open < close) {
      return line.substr(open + 1, close - open - 1);
    }
    entry.remove_prefix(line.size() == entry.size() ? line.size() : line.size() + 1);
  }
  return std::nullopt;
}

}  // namespace

int ParseClassSection(std::wstring& classTitle, std::wstring& classFirstWord,
                      std::wstring& classSecondWord, std::wstring_view text, Account* account) {
  PieceReader entries = CutEntries(text, true, account);
  for (std::wstring_view entry; entries.Next(entry);) {
    if (!StartsWith(entry, L"@@@")) {
      Note(account, entry.empty() ? Outcome::blank : Outcome::comment, entry);
      continue;
    }
    Note(account, Outcome::classTitle, entry);
    classTitle = Trimmed(entry.substr(3));
    const std::optional<std::wstring_view> inBrackets = FindInBrackets(entry);
    if (!inBrackets) continue;
    PieceReader words(*inBrackets, L" ", true);
    std::wstring_view word;
    words.Next(word);
    classFirstWord = word;
    if (words.Next(word)) classSecondWord = word;
  }
  return 0;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
