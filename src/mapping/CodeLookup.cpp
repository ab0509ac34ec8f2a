#include "mapping/CodeLookup.h"

#include <algorithm>
#include <locale>
#include <optional>
#include <string>
#include <vector>

#include "classificator/Classificator.h"
#include "editor/Checked.h"
#include "editor/Text.h"
#include "mapping/CodeIndex.h"
#include "mapping/ToUpper.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// A description in capitals, cut into its words, with the facet that made the capitals: a pattern's
// letters go through the same one, since the locale may have changed after it was loaded.
class InputWords {
 public:
  explicit InputWords(std::wstring_view text)
      : upper(ToUpper(text)),
        words(SplitViews(upper, L" ", true)),
        facet(std::use_facet<std::ctype<wchar_t>>(global)) {
    // The words go through the facet once more, as the tokens of a pattern do that were put into
    // capitals when it was loaded. A capital can have a capital of its own.
    for (wchar_t& unit : upper) unit = facet.toupper(unit);
  }
  InputWords(const InputWords&) = delete;
  InputWords& operator=(const InputWords&) = delete;

  bool BeginWith(const Tokens& tokens) const {
    if (tokens.size() > words.size()) return false;
    return std::equal(
        tokens.begin(), tokens.end(), words.begin(),
        [this](std::wstring_view token, std::wstring_view word) { return Begins(token, word); });
  }

 private:
  bool Begins(std::wstring_view token, std::wstring_view word) const {
    if (token.size() > word.size()) return false;
    return std::equal(token.begin(), token.end(), word.begin(),
                      [this](wchar_t left, wchar_t right) { return facet.toupper(left) == right; });
  }

  std::wstring upper;
  std::vector<std::wstring_view> words;
  std::locale global;
  const std::ctype<wchar_t>& facet;
};

}  // namespace

bool Matches(const MapTextRecord& record, std::wstring_view text) {
  return InputWords(text).BeginWith(record.tokens);
}

int FindCodeId(const Classificator& classificator, std::wstring_view text) {
  const MapTextRecords& records = classificator.mapTextSection.records;
  if (records.empty()) return noCodeId;
  if (const CodeIndex* index = records.Index()) {
    if (const std::optional<int> codeId = index->Find(text)) return *codeId;
  }
  const InputWords words(text);
  const auto found = std::find_if(
      records.begin(), records.end(),
      [&words](const MapTextRecord& record) { return words.BeginWith(record.tokens); });
  return found == records.end() ? noCodeId : static_cast<int>(found - records.begin());
}

std::wstring_view CodeOf(const MapTextSection& section, int codeId) {
  if (codeId == noCodeId) return section.defaultCode;
  return CheckedAt(section.records, codeId).code;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
