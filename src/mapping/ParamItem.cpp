#include "mapping/ParamItem.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "base/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

bool HasEqualsSign(std::wstring_view token) {
  return token.find(L'=') != token.npos;
}

// Parses an item in one token: its id, a colon or "=", its values.
ParamItem ParseWholeItem(std::wstring_view token, std::vector<std::wstring>* lostValues) {
  const std::wstring_view separator = token.find(L':') != token.npos ? L":" : L"=";
  std::vector<std::wstring> pieces = SplitTrimmed(token, separator, true);
  ParamItem item;
  item.propertyId = std::move(pieces[0]);
  if (pieces.size() == 2) {
    item.valueText = std::move(pieces[1]);
    std::replace(item.valueText.begin(), item.valueText.end(), L',', L' ');
  } else if (lostValues) {
    lostValues->emplace_back(token);
  }
  return item;
}

// A state machine over the tokens: an item of several tokens is pending until one ends it.
class ItemReader {
 public:
  explicit ItemReader(std::vector<std::wstring>* lostValues) : lostValues_(lostValues) {}

  // Reads the token and returns true; or completes an item with its head, leaves the rest in
  // `token` and returns false.
  bool Take(std::wstring& token) {
    if (pendingName_.empty()) {
      Open(token);
      return true;
    }
    if (mode_ == Mode::undecided) mode_ = HasEqualsSign(token) ? Mode::named : Mode::plain;
    return mode_ == Mode::plain ? TakePlain(token) : TakeNamed(token);
  }

  void CompletePending() {
    if (pendingName_.empty()) return;
    items.push_back({std::move(pendingValue_), std::move(pendingName_)});
    pendingValue_.clear();
    pendingName_.clear();
  }

  ParamItemList items;

 private:
  enum class Mode { undecided, plain, named };

  void Open(const std::wstring& token) {
    if (HasEqualsSign(token)) {
      items.push_back(ParseWholeItem(token, lostValues_));
      return;
    }
    pendingName_ = token;
    mode_ = Mode::undecided;
  }

  void AddWord(std::wstring_view word) { pendingValue_.append(L" ").append(word); }

  bool TakePlain(std::wstring& token) {
    const std::size_t semicolon = token.find(L';');
    const std::wstring_view word = Trimmed(std::wstring_view(token).substr(0, semicolon));
    AddWord(word);
    if (semicolon == token.npos) return true;
    CompletePending();
    token.erase(0, word.size() + 1);
    return false;
  }

  bool TakeNamed(const std::wstring& token) {
    if (std::count(token.begin(), token.end(), L'=') == 1) {
      AddWord(token);
      return true;
    }
    CompletePending();
    return false;
  }

  std::wstring pendingName_;
  std::wstring pendingValue_;
  Mode mode_ = Mode::undecided;
  std::vector<std::wstring>* lostValues_;
};

}  // namespace

ParamItemList ParseParamItems(std::vector<std::wstring>& tokens, bool stripBraces,
                              std::vector<std::wstring>* lostValues) {
  ItemReader reader(lostValues);
  for (std::size_t i = 0; i < tokens.size();) {
    std::wstring& token = tokens[i];
    if (stripBraces) TrimChars(token, L"{}");
    if (!Trim(token).empty()) {
      if (!reader.Take(token)) continue;
      if (i + 1 == tokens.size()) reader.CompletePending();
    }
    ++i;
  }
  return std::move(reader.items);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
