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
  const auto found =
      std::find_if(item.params.begin(), item.params.end(),
                   [key](const Json5RecordParam& param) { return param.key == key; });
  if (found == item.params.end()) {
    item.params.push_back({Intern(key), std::move(value), Intern(comment)});
    return;
  }
  found->value = std::move(value);
  found->comment = Intern(comment);
}

std::wstring_view Json5Record::Keep(std::wstring_view text) {
  return kept.emplace_back(text);
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

std::wstring_view Json5Record::Intern(std::wstring_view text) {
  const auto found = interned.find(text);
  return found == interned.end() ? *interned.insert(Keep(text)).first : *found;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
