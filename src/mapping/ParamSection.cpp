#include "mapping/ParamSection.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/Text.h"
#include "textfile/Account.h"
#include "textfile/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

bool IsParamComment(std::wstring_view statement) {
  return std::wstring_view(L"/!@").find(statement.front()) != std::wstring_view::npos;
}

// The first token is the code. Unless it contains "=", it also opens the first item.
ParamRecord ParseParamRecord(std::wstring_view statement) {
  std::vector<std::wstring> tokens = SplitTrimmed(statement, L" ", false);
  ParamRecord record;
  record.itemLists.push_back(ParseParamItems(tokens, true));
  record.code = std::move(tokens.front());
  return record;
}

const ParamRecord* FindRecord(const ParamSection& section, std::wstring_view code) {
  if (code.empty()) return nullptr;
  const auto found =
      std::find_if(section.records.begin(), section.records.end(),
                   [code](const ParamRecord& record) { return record.code == code; });
  return found == section.records.end() ? nullptr : &*found;
}

}  // namespace

std::vector<std::wstring_view> SplitStatements(std::wstring_view text, Account* account) {
  PieceReader reader = CutEntries(text, true, account);
  std::vector<std::wstring_view> statements;
  constexpr std::size_t shortLine = 16;  // shorter lines make the vector grow
  statements.reserve(text.size() / shortLine + 1);
  for (std::wstring_view statement; reader.Next(statement);) statements.push_back(statement);
  return statements;
}

void ParseParamSection(ParamSection& section, std::wstring_view text, Account* account) {
  section.records.clear();
  for (const std::wstring_view statement : SplitStatements(text, account)) {
    if (statement.empty()) {
      Note(account, Outcome::blank, statement);
    } else if (IsParamComment(statement)) {
      Note(account, Outcome::comment, statement);
    } else {
      section.records.push_back(ParseParamRecord(statement));
      Note(account, Outcome::paramStatement, statement, {section.records.back().code});
    }
  }
}

std::vector<ParamItemList> FindItemLists(const ParamSection& section, std::wstring_view code) {
  const ParamRecord* record = FindRecord(section, code);
  return record ? record->itemLists : std::vector<ParamItemList>();
}

std::vector<std::wstring> GetPropertyIds(const ParamSection& section, std::wstring_view code) {
  const ParamRecord* record = FindRecord(section, code);
  return record ? SortedPropertyIds(record->itemLists) : std::vector<std::wstring>();
}

std::vector<std::wstring> SortedPropertyIds(const std::vector<ParamItemList>& itemLists) {
  std::vector<std::wstring> ids;
  for (const ParamItemList& items : itemLists) {
    for (const ParamItem& item : items) ids.push_back(item.propertyId);
  }
  std::sort(ids.begin(), ids.end());
  ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
  return ids;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
