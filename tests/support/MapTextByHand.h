// Makes records of ==MAPTEXT by hand.

#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mapping/MapTextSection.h"

// Returns a view of a text that is never freed.
inline std::wstring_view KeptText(std::wstring text) {
  static std::deque<std::wstring> kept;
  return kept.emplace_back(std::move(text));
}

// Returns the tokens in the form of a record.
inline std::wstring_view KeptTokens(const std::vector<std::wstring>& tokens) {
  std::wstring joined;
  for (const std::wstring& token : tokens) {
    if (&token != &tokens.front()) joined += L' ';
    joined += token;
  }
  return KeptText(std::move(joined));
}

inline std::vector<std::wstring> SplitTokens(std::wstring_view tokens) {
  std::vector<std::wstring> words(1);
  for (const wchar_t unit : tokens) {
    if (unit == L' ') {
      words.emplace_back();
    } else {
      words.back() += unit;
    }
  }
  return words;
}

inline TolvenLibs::RevitMappingEditorDll::MapTextRecord RecordOf(
    const std::vector<std::wstring>& tokens) {
  TolvenLibs::RevitMappingEditorDll::MapTextRecord record;
  record.tokens = KeptTokens(tokens);
  return record;
}

// Returns a header with these item blocks, in braces.
inline std::shared_ptr<const TolvenLibs::RevitMappingEditorDll::CodeHeader> HeaderOf(
    std::wstring blocks) {
  const auto texts = std::make_shared<const std::wstring>(std::move(blocks));
  return std::make_shared<const TolvenLibs::RevitMappingEditorDll::CodeHeader>(
      TolvenLibs::RevitMappingEditorDll::CodeHeader{texts, {}, *texts, L"{", L"}"});
}

// Changes a copy of a section's records by the function and replaces them by it.
template <class Change>
void EditRecords(TolvenLibs::RevitMappingEditorDll::MapTextSection& section, Change change) {
  std::vector<TolvenLibs::RevitMappingEditorDll::MapTextRecord> records(section.records.begin(),
                                                                        section.records.end());
  change(records);
  section.records.Swap(records);
}
