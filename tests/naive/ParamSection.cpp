#include "naive/ParamSection.h"

#include <cstddef>
#include <set>

namespace TolvenLibs::RevitMappingEditorDll::Naive {
namespace {

enum class Mode { undecided, plain, named };

bool Holds(const std::wstring& text, wchar_t unit) {
  return text.find(unit) != text.npos;
}

ParamItem CompleteItem(std::wstring token) {
  const std::wstring separator = Holds(token, L':') ? L":" : L"=";
  const Texts pieces = SplitTrimmed(token, separator, true);
  ParamItem item;
  item.propertyId = pieces[0];
  if (pieces.size() != 2) return item;
  for (const wchar_t unit : pieces[1]) item.valueText += unit == L',' ? L' ' : unit;
  return item;
}

// The state between tokens.
struct Walk {
  void Close() {
    items.push_back({pendingValue, pendingName});
    pendingName.clear();
    pendingValue.clear();
  }

  // Processes the token and returns whether it must be processed again.
  bool Take(std::wstring& token) {
    if (pendingName.empty()) {
      Open(token);
      return false;
    }
    if (mode == Mode::undecided) mode = Holds(token, L'=') ? Mode::named : Mode::plain;
    return mode == Mode::plain ? TakePlain(token) : TakeNamed(token);
  }

  void Open(const std::wstring& token) {
    if (Holds(token, L'=')) {
      items.push_back(CompleteItem(token));
      return;
    }
    pendingName = token;
    mode = Mode::undecided;
  }

  bool TakePlain(std::wstring& token) {
    const Texts pieces = SplitTrimmed(token, L";", true);
    pendingValue += L" " + pieces[0];
    if (pieces.size() == 1) return false;
    Close();
    token = token.substr(pieces[0].size() + 1);
    return true;
  }

  bool TakeNamed(const std::wstring& token) {
    if (SplitTrimmed(token, L"=", true).size() != 2) {
      Close();
      return true;
    }
    pendingValue += L" " + token;
    return false;
  }

  ParamItemList items;
  std::wstring pendingName;
  std::wstring pendingValue;
  Mode mode = Mode::undecided;
};

}  // namespace

Texts SplitStatements(std::wstring text) {
  const Texts lines = SplitTrimmed(text, L"\n", true);
  const Texts semicolons = SplitTrimmed(text, L";", true);
  return lines.size() > semicolons.size() ? lines : semicolons;
}

ParamItemList ParseParamItems(Texts& tokens, bool stripBraces) {
  Walk walk;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    std::wstring& token = tokens[i];
    bool again = true;
    while (again) {
      if (stripBraces) token = TrimChars(token, L"{}");
      token = Trim(token);
      if (token.empty()) break;
      again = walk.Take(token);
    }
    if (token.empty()) continue;
    if (i + 1 == tokens.size() && !walk.pendingName.empty()) walk.Close();
  }
  return walk.items;
}

void ParseParamSection(ParamSection& section, std::wstring text) {
  section.records.clear();
  for (std::wstring statement : SplitStatements(text)) {
    statement = Trim(statement);
    if (statement.empty() || Holds(L"/!@", statement[0])) continue;
    Texts tokens = SplitTrimmed(statement, L" ", false);
    const ParamItemList list = ParseParamItems(tokens, true);
    section.records.push_back({Trim(tokens[0]), {list}});
  }
}

ItemLists FindItemLists(const ParamSection& section, std::wstring code) {
  if (code.empty()) return {};
  for (const ParamRecord& record : section.records) {
    if (record.code == code) return record.itemLists;
  }
  return {};
}

Texts GetPropertyIds(const ParamSection& section, std::wstring code) {
  return Naive::SortedPropertyIds(FindItemLists(section, code));
}

Texts SortedPropertyIds(const ItemLists& itemLists) {
  std::set<std::wstring> ids;
  for (const ParamItemList& list : itemLists) {
    for (const ParamItem& item : list) ids.insert(item.propertyId);
  }
  return {ids.begin(), ids.end()};
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
