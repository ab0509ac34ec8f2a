#include "json5/Json5Record.h"

#include <cwchar>
#include <functional>

#include "json5/Json5Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

std::uint32_t RepeatedTexts::PlaceOf(const wchar_t* text) {
  Seen& last = SeenAt(text);
  // The memory may contain another text than before.
  if (last.pointer == text && std::wcscmp(texts_[last.place]->c_str(), text) == 0)
    return last.place;
  last = {text, Add(text)};
  return last.place;
}

RepeatedTexts::Seen& RepeatedTexts::SeenAt(const wchar_t* text) {
  constexpr std::size_t tries = 8;
  const std::size_t home = std::hash<const wchar_t*>()(text) / sizeof(wchar_t);
  for (std::size_t i = 0; i < tries; ++i) {
    Seen& one = seen_[(home + i) % seen_.size()];
    if (one.pointer == text || one.pointer == nullptr) return one;
  }
  return seen_[home % seen_.size()];
}

std::uint32_t RepeatedTexts::Add(const wchar_t* text) {
  const auto [entry, added] = places_.try_emplace(text, static_cast<std::uint32_t>(texts_.size()));
  if (!added) return entry->second;
  try {
    bytes_.push_back(ToJson5Text(entry->first));
    texts_.push_back(&entry->first);
  } catch (...) {
    bytes_.resize(texts_.size());
    places_.erase(entry);
    throw;
  }
  return entry->second;
}

std::size_t Json5Record::Open(const wchar_t* sectionName, std::wstring_view itemName) {
  const std::uint32_t section = repeated.PlaceOf(sectionName);
  items_.push_back({section, Keep(itemName), params_.size()});
  current_ = items_.size() - 1;
  return current_;
}

void Json5Record::Set(std::size_t item, std::uint32_t key, std::uint32_t comment,
                      const Json5RecordValue& value) {
  if (item != current_) {
    items_.push_back({items_[item].section, items_[item].name, params_.size()});
    current_ = item;
  }
  params_.push_back({key, comment, value});
}

std::string_view Json5Record::Keep(std::wstring_view text) {
  ToJson5Text(text, bytes_);
  auto* copy = Allocate<char>(bytes_.size());
  bytes_.copy(copy, bytes_.size());
  return {copy, bytes_.size()};
}

std::wstring_view Json5Record::KeepWide(std::string_view text) {
  const std::size_t size = WideSize(text);
  auto* copy = Allocate<wchar_t>(size + 1);
  *PutWideText(text, copy) = L'\0';
  return {copy, size};
}

std::span<std::wstring_view> Json5Record::List(std::size_t count) {
  auto* texts = Allocate<std::wstring_view>(count);
  std::uninitialized_default_construct_n(texts, count);
  return {texts, count};
}

void Json5Record::Adopt(const wchar_t** strings, std::size_t count) {
  std::size_t done = 0;
  try {
    for (; done < count; ++done) adopted_.emplace_back(strings[done]);
  } catch (...) {
    for (; done < count; ++done) delete[] strings[done];
    throw;
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
