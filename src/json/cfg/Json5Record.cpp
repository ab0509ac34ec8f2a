#include "Json5Record.h"

#include <algorithm>
#include <cwchar>
#include <functional>
#include <utility>

#include "Json5Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

std::uint32_t RepeatedTexts::PlaceOf(const wchar_t* text) {
  Seen& last = SeenAt(text);
  // What stands at the pointer may be another text than before.
  if (last.pointer == text && std::wcscmp(texts[last.place]->c_str(), text) == 0) return last.place;
  last = {text, Add(text)};
  return last.place;
}

RepeatedTexts::Seen& RepeatedTexts::SeenAt(const wchar_t* text) {
  constexpr std::size_t tries = 8;
  const std::size_t home = std::hash<const wchar_t*>()(text) / sizeof(wchar_t);
  for (std::size_t i = 0; i < tries; ++i) {
    Seen& one = seen[(home + i) % seen.size()];
    if (one.pointer == text || one.pointer == nullptr) return one;
  }
  return seen[home % seen.size()];
}

std::uint32_t RepeatedTexts::Add(const wchar_t* text) {
  const auto [entry, added] = places.try_emplace(text, static_cast<std::uint32_t>(texts.size()));
  if (!added) return entry->second;
  try {
    bytes.push_back(ToJson5Text(entry->first));
    texts.push_back(&entry->first);
  } catch (...) {
    bytes.resize(texts.size());
    places.erase(entry);
    throw;
  }
  return entry->second;
}

std::size_t Json5Record::Open(const wchar_t* sectionName, std::wstring_view itemName) {
  const std::uint32_t section = repeated.PlaceOf(sectionName);
  items.push_back({section, Keep(itemName)});
  return items.size() - 1;
}

void Json5Record::Set(std::size_t item, std::uint32_t key, std::uint32_t comment,
                      const Json5RecordValue& value) {
  params.push_back({item, key, comment, value});
}

std::wstring_view Json5Record::Keep(std::wstring_view text) {
  wchar_t* copy = Room(text.size() + 1);
  text.copy(copy, text.size());
  copy[text.size()] = L'\0';
  blockFilled += text.size() + 1;
  return {copy, text.size()};
}

std::wstring_view Json5Record::KeepWide(std::string_view bytes) {
  wchar_t* copy = Room(bytes.size() + 1);
  const auto size = static_cast<std::size_t>(PutWideText(bytes, copy) - copy);
  copy[size] = L'\0';
  blockFilled += size + 1;
  return {copy, size};
}

// Room for so many units at the end of the last block.
wchar_t* Json5Record::Room(std::size_t units) {
  constexpr std::size_t usualSize = 16384;
  if (blockSize - blockFilled < units) {
    const std::size_t size = std::max(usualSize, units);
    kept.push_back(std::make_unique_for_overwrite<wchar_t[]>(size));
    blockSize = size;
    blockFilled = 0;
  }
  return kept.back().get() + blockFilled;
}

void Json5Record::Adopt(const wchar_t** strings, std::size_t count) {
  std::vector<std::unique_ptr<const wchar_t[]>>& owners = adopted;
  try {
    if (owners.capacity() - owners.size() < count) {
      owners.reserve(std::max(2 * owners.capacity(), owners.size() + count));
    }
  } catch (...) {
    for (std::size_t i = 0; i < count; ++i) delete[] strings[i];
    throw;
  }
  for (std::size_t i = 0; i < count; ++i) owners.emplace_back(strings[i]);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
