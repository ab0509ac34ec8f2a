#include "mapping/ParamSection.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "classificator/TextFile.h"
#include "editor/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

bool IsParamComment(std::wstring_view statement) {
  return std::wstring_view(L"/!@").find(statement.front()) != std::wstring_view::npos;
}

// A statement that its record's items are read out of.
struct KeptStatement {
  std::wstring text;
  ItemSource source;
};

std::vector<ParamItemList> ReadStatementItems(const ItemSource& source) {
  std::vector<std::wstring> tokens = SplitTrimmed(source.text, L" ", false);
  return {ParseParamItems(tokens, true)};
}

// The first token is the code, and unless it holds an "=" it opens the first item as well.
ParamRecord ParseParamRecord(std::wstring_view statement) {
  const auto kept = std::make_shared<KeptStatement>();
  kept->text = statement;
  kept->source.read = ReadStatementItems;
  kept->source.text = kept->text;
  std::wstring code(Trimmed(statement.substr(0, statement.find(L' '))));
  Trim(TrimChars(code, L"{}"));
  return {std::move(code), ItemLists(std::shared_ptr<const ItemSource>(kept, &kept->source))};
}

const ParamRecord* FindRecord(const ParamSection& section, std::wstring_view code) {
  if (code.empty()) return nullptr;
  const auto found =
      std::find_if(section.records.begin(), section.records.end(),
                   [code](const ParamRecord& record) { return record.code == code; });
  return found == section.records.end() ? nullptr : &*found;
}

}  // namespace

PieceReader SplitStatements(std::wstring_view text) {
  return CutEntries(text, true);
}

void ParseParamSection(ParamSection& section, std::wstring_view text) {
  section.records.clear();
  PieceReader statements = SplitStatements(text);
  for (std::wstring_view statement; statements.Next(statement);) {
    if (statement.empty() || IsParamComment(statement)) continue;
    section.records.push_back(ParseParamRecord(statement));
  }
}

ItemLists FindItemLists(const ParamSection& section, std::wstring_view code) {
  const ParamRecord* record = FindRecord(section, code);
  return record ? record->itemLists : ItemLists();
}

std::vector<std::wstring> GetPropertyIds(const ParamSection& section, std::wstring_view code) {
  const ParamRecord* record = FindRecord(section, code);
  return record ? SortedPropertyIds(record->itemLists) : std::vector<std::wstring>();
}

std::vector<std::wstring> SortedPropertyIds(const ItemLists& itemLists) {
  std::vector<std::wstring> ids;
  for (const ParamItemList& items : itemLists.Lists()) {
    for (const ParamItem& item : items) ids.push_back(item.propertyId);
  }
  std::sort(ids.begin(), ids.end());
  ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
  return ids;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
