#include "Json5Record.h"

#include <algorithm>
#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

Json5RecordItem& Json5Record::Item(std::wstring_view sectionName, std::wstring_view itemName) {
  auto section = std::find_if(
      sections.begin(), sections.end(),
      [sectionName](const Json5RecordSection& one) { return one.name == sectionName; });
  if (section == sections.end()) {
    section = sections.insert(section, {Keep(sectionName), {}, {}});
  }
  const auto found = section->itemsByName.find(itemName);
  if (found != section->itemsByName.end()) return *found->second;
  Json5RecordItem& item = section->items.emplace_back();
  item.name = Keep(itemName);
  section->itemsByName.emplace(item.name, &item);
  return item;
}

void Json5Record::Set(Json5RecordItem& item, std::wstring_view key, Json5RecordValue value,
                      std::wstring_view comment) {
  const std::size_t keyPlace = PlaceOf(key);
  const std::size_t commentPlace = PlaceOf(comment);
  const auto found =
      std::find_if(item.params.begin(), item.params.end(),
                   [keyPlace](const Json5RecordParam& param) { return param.key == keyPlace; });
  if (found == item.params.end()) {
    item.params.push_back({keyPlace, std::move(value), commentPlace});
    return;
  }
  found->value = std::move(value);
  found->comment = commentPlace;
}

std::wstring_view Json5Record::Keep(std::wstring_view text) {
  constexpr std::size_t usualSize = 4096;
  if (blockSize - blockFilled <= text.size()) {
    const std::size_t size = std::max(usualSize, text.size() + 1);
    kept.push_back(std::make_unique_for_overwrite<wchar_t[]>(size));
    blockSize = size;
    blockFilled = 0;
  }
  wchar_t* copy = kept.back().get() + blockFilled;
  text.copy(copy, text.size());
  copy[text.size()] = L'\0';
  blockFilled += text.size() + 1;
  return {copy, text.size()};
}

void Json5Record::Adopt(const wchar_t** texts, std::size_t count) {
  std::vector<std::unique_ptr<const wchar_t[]>>& owners = adopted;
  try {
    if (owners.capacity() - owners.size() < count) {
      owners.reserve(std::max(2 * owners.capacity(), owners.size() + count));
    }
  } catch (...) {
    for (std::size_t i = 0; i < count; ++i) delete[] texts[i];
    throw;
  }
  for (std::size_t i = 0; i < count; ++i) owners.emplace_back(texts[i]);
}

std::size_t Json5Record::RepeatedHash::operator()(std::wstring_view text) const {
  if (text.empty()) return 0;
  const auto first = static_cast<std::size_t>(text.front());
  const auto middle = static_cast<std::size_t>(text[text.size() / 2]);
  const auto last = static_cast<std::size_t>(text.back());
  return ((text.size() * 31 + first) * 31 + middle) * 31 + last;
}

std::size_t Json5Record::PlaceOf(std::wstring_view repeatedText) {
  const auto found = placesInRepeated.find(repeatedText);
  if (found != placesInRepeated.end()) return found->second;
  repeated.push_back(Keep(repeatedText));
  placesInRepeated.emplace(repeated.back(), repeated.size() - 1);
  return repeated.size() - 1;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
