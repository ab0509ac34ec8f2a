#include "mapping/MapTextSection.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "editor/Text.h"
#include "mapping/ParamSection.h"
#include "mapping/ToUpper.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

std::wstring FirstWord(std::wstring_view text) {
  PieceReader words(text, L" ", true);
  std::wstring_view word;
  words.Next(word);
  return std::wstring(word);
}

// What the statements of one section build on.
class MapTextParser {
 public:
  explicit MapTextParser(MapTextSection& target) : section(target) {}

  void ParseStatement(std::wstring_view statement) {
    if (statement.empty() || statement.front() == L'/' || statement.front() == L'!') return;
    if (StartsWith(statement, L"@@")) return SetDomenIds(Trimmed(statement.substr(2)));
    if (StartsWith(statement, L"@$")) return SetMarks(statement.substr(2));
    if (StartsWith(statement, L"@")) return SetHeader(Trimmed(statement.substr(1)));
    if (StartsWith(statement, L"$")) return SetDefaultCode(Trimmed(statement.substr(1)));
    AddPattern(statement);
  }

 private:
  void SetDomenIds(std::wstring_view list) {
    const std::size_t open = list.find(L'(');
    const std::size_t close = list.find(L')');
    if (open == list.npos || close == list.npos) return;
    // A closing bracket ahead of the opening one closes nothing, and the list runs to the end.
    const std::size_t end = close > open ? close : list.size();
    section.domenIds = SplitTrimmed(list.substr(open + 1, end - open - 1), L" ", false);
  }

  void SetMarks(std::wstring_view marks) {
    std::vector<std::wstring> pieces = SplitTrimmed(marks, L" ", false);
    if (pieces.size() < 2) return;
    openMark = std::move(pieces[0]);
    closeMark = std::move(pieces[1]);
  }

  void SetDefaultCode(std::wstring_view text) { section.defaultCode = FirstWord(text); }

  void SetHeader(std::wstring_view header) {
    std::vector<ParamItemList> lists;
    const std::size_t firstOpen = header.find(openMark);
    for (std::size_t open = firstOpen; open != header.npos;) {
      const std::size_t close = header.find(closeMark, open + openMark.size());
      if (close == header.npos) break;
      // From one unit behind the mark's start: the rest of a longer mark stays in the block, and
      // has to.
      std::vector<std::wstring> tokens =
          SplitTrimmed(header.substr(open + 1, close - open - 1), L" ", false);
      lists.push_back(ParseParamItems(tokens, false));
      open = header.find(openMark, close + closeMark.size());
    }
    currentLists = std::move(lists);
    currentCode = FirstWord(header.substr(0, firstOpen));
  }

  void AddPattern(std::wstring_view pattern) {
    MapTextRecord record;
    record.code = currentCode;
    record.itemLists = currentLists;
    record.text = pattern;
    record.tokens = SplitTrimmed(ToUpper(pattern), L" ", true);
    section.records.push_back(std::move(record));
  }

  MapTextSection& section;
  std::wstring openMark = L"{";
  std::wstring closeMark = L"}";
  std::wstring currentCode;
  ItemLists currentLists;
};

}  // namespace

void ParseMapTextSection(MapTextSection& section, std::wstring_view text) {
  section.records.clear();
  section.defaultCode = L"N00";
  MapTextParser parser(section);
  for (const std::wstring_view statement : SplitStatements(text)) parser.ParseStatement(statement);
  std::stable_sort(section.records.begin(), section.records.end(),
                   [](const MapTextRecord& left, const MapTextRecord& right) {
                     return left.tokens.size() < right.tokens.size();
                   });
}

}  // namespace TolvenLibs::RevitMappingEditorDll
