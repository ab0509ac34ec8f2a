#include "support/Words.h"

#include <algorithm>
#include <cstddef>
#include <locale>

#include "base/Text.h"

using TolvenLibs::RevitMappingEditorDll::Trimmed;

const std::vector<std::wstring_view>& UpperWords::Cut(std::wstring_view text) {
  const std::locale global;
  const auto& facet = std::use_facet<std::ctype<wchar_t>>(global);
  upper_ = text;
  facet.toupper(upper_.data(), upper_.data() + upper_.size());
  words_.clear();
  std::wstring_view rest = upper_;
  for (std::size_t blank = rest.find(L' '); blank != rest.npos; blank = rest.find(L' ')) {
    words_.push_back(rest.substr(0, blank));
    rest.remove_prefix(blank + 1);
  }
  words_.push_back(rest);
  return words_;
}

Tokens MakeTokens(std::wstring_view pattern) {
  UpperWords words;
  Tokens tokens;
  for (const std::wstring_view word : words.Cut(Trimmed(pattern))) {
    tokens.emplace_back(Trimmed(word));
  }
  return tokens;
}

int Walk(const std::vector<Tokens>& records, std::wstring_view text) {
  UpperWords buffers;
  std::vector<std::wstring_view> words = buffers.Cut(text);
  for (std::wstring_view& word : words) word = Trimmed(word);
  const auto found = std::find_if(records.begin(), records.end(), [&words](const Tokens& tokens) {
    return tokens.size() <= words.size() &&
           std::equal(tokens.begin(), tokens.end(), words.begin(),
                      [](std::wstring_view token, std::wstring_view word) {
                        return word.starts_with(token);
                      });
  });
  return found == records.end() ? -1 : static_cast<int>(found - records.begin());
}
