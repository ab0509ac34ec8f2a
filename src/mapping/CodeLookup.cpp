#include "mapping/CodeLookup.h"

#include <algorithm>
#include <optional>

#include "base/Checked.h"
#include "mapping/CapitalWords.h"
#include "mapping/CodeIndex.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// Tokens were upper-cased when they were loaded, perhaps in another locale. So they are upper-cased
// once more, and the word twice: a capital can have a capital of its own.
bool Begins(std::wstring_view token, std::wstring_view word, const UpperTable& upper) {
  return token.size() <= word.size() &&
         std::equal(token.begin(), token.end(), word.begin(),
                    [&upper](wchar_t left, wchar_t right) {
                      return upper.Upper(left) == upper.UpperTwice(right);
                    });
}

// Returns what the index finds, or nothing if only the walk can answer. The index may upper-case
// letters that the walk doesn't reach: what the locale raises for one leaves the answer to the
// walk.
std::optional<int> FindByIndex(const MapTextRecords& records, std::wstring_view text) {
  const CodeIndex* const index = records.Index();
  if (!index || !index->CanAnswer()) return std::nullopt;
  try {
    return index->Find(text);
  } catch (...) {
    return std::nullopt;
  }
}

}  // namespace

bool Matches(const MapTextRecord& record, std::wstring_view text) {
  return Matches(record, text, UpperTable());
}

bool Matches(const MapTextRecord& record, std::wstring_view text, const UpperTable& upper) {
  CapitalWords words(text, upper);
  for (std::wstring_view tokens = record.tokens;;) {
    const std::wstring_view token = tokens.substr(0, tokens.find(L' '));
    std::wstring_view word;
    if (!words.Next(word) || !Begins(token, word, upper)) return false;
    if (token.size() == tokens.size()) return true;
    tokens.remove_prefix(token.size() + 1);
  }
}

int FindCodeId(const MapTextSection& section, std::wstring_view text) {
  const MapTextRecords& records = section.records;
  if (records.empty()) return noCodeId;
  if (const auto found = FindByIndex(records, text)) return *found;
  const UpperTable upper;
  const auto found = std::find_if(records.begin(), records.end(), [&](const MapTextRecord& record) {
    return Matches(record, text, upper);
  });
  return found == records.end() ? noCodeId : static_cast<int>(found - records.begin());
}

std::wstring_view CodeOf(const MapTextSection& section, int codeId) {
  if (codeId == noCodeId) return section.defaultCode;
  return CheckedAt(section.records, codeId).code;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
