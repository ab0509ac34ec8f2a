#include "naive/MapTextSection.h"

#include <algorithm>
#include <cstddef>

#include "naive/ParamSection.h"
#include "naive/Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {
namespace {

// The state between statements.
struct Context {
  std::wstring openMark = L"{";
  std::wstring closeMark = L"}";
  std::wstring currentCode;
  ItemLists currentLists;
};

void TakeDomainList(MapTextSection& section, std::wstring rest) {
  rest = Trim(rest);
  const std::size_t open = rest.find(L'(');
  const std::size_t close = rest.find(L')');
  if (open == rest.npos || close == rest.npos) return;
  const std::wstring inner =
      close < open ? rest.substr(open + 1) : rest.substr(open + 1, close - open - 1);
  section.domenIds = SplitTrimmed(inner, L" ", false);
}

void TakeMarks(Context& context, std::wstring rest) {
  const Texts pieces = SplitTrimmed(Trim(rest), L" ", false);
  if (pieces.size() < 2) return;
  context.openMark = pieces[0];
  context.closeMark = pieces[1];
}

void TakeHeader(Context& context, std::wstring header) {
  context.currentLists.clear();
  header = Trim(header);
  std::size_t open = header.find(context.openMark);
  while (open != header.npos) {
    const std::size_t close = header.find(context.closeMark, open + context.openMark.size());
    if (close == header.npos) break;
    // Only one unit of the opening mark is skipped, however long it is.
    Texts tokens = SplitTrimmed(header.substr(open + 1, close - open - 1), L" ", false);
    context.currentLists.push_back(ParseParamItems(tokens, false));
    open = header.find(context.openMark, close + context.closeMark.size());
  }
  header = header.substr(0, header.find(context.openMark));
  context.currentCode = Trim(SplitTrimmed(header, L" ", true)[0]);
}

void TakePattern(MapTextSection& section, const Context& context, std::wstring statement) {
  MapTextRecord record;
  record.code = context.currentCode;
  record.itemLists = context.currentLists;
  record.text = statement;
  record.tokens = SplitTrimmed(ToUpper(statement), L" ", true);
  section.records.push_back(record);
}

void TakeStatement(MapTextSection& section, Context& context, std::wstring statement) {
  if (statement.empty()) return;
  if (statement[0] == L'/' || statement[0] == L'!') return;
  if (StartsWith(statement, L"@@")) {
    TakeDomainList(section, statement.substr(2));
  } else if (StartsWith(statement, L"@$")) {
    TakeMarks(context, statement.substr(2));
  } else if (statement[0] == L'@') {
    TakeHeader(context, statement.substr(1));
  } else if (statement[0] == L'$') {
    section.defaultCode = SplitTrimmed(Trim(statement.substr(1)), L" ", true)[0];
  } else {
    TakePattern(section, context, statement);
  }
}

bool HasFewerTokens(const MapTextRecord& left, const MapTextRecord& right) {
  return left.tokens.size() < right.tokens.size();
}

}  // namespace

void ParseMapTextSection(MapTextSection& section, std::wstring text) {
  section.records.clear();
  section.defaultCode = L"N00";
  Context context;
  for (const std::wstring& statement : SplitStatements(text)) {
    TakeStatement(section, context, Trim(statement));
  }
  std::stable_sort(section.records.begin(), section.records.end(), HasFewerTokens);
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
