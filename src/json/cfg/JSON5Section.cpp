#include "JSON5Section.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <vector>

using namespace TolvenLibs::RevitMappingEditorDll;

using Kind = Json5Value::Kind;

JSON5Section::JSON5Section(const Json5Tree& fileTree, const Json5Value* fileSection,
                           Json5Record& requests, std::size_t requestedItem)
    : tree(fileTree), section(fileSection), record(requests), item(requestedItem) {}

const wchar_t* JSON5Section::ParamString(const wchar_t* key, const wchar_t* defaultValue,
                                         bool& found, const wchar_t* comment, bool overriding) {
  const std::uint32_t keyPlace = record.repeated.PlaceOf(key);
  const Json5Value* value = FindValue(keyPlace, overriding);
  found = value && value->kind == Kind::string;
  const std::wstring_view result = found ? record.KeepWide(value->text) : record.Keep(defaultValue);
  record.Set(item, keyPlace, record.repeated.PlaceOf(comment), result);
  return result.data();
}

int JSON5Section::ParamInt(const wchar_t* key, int defaultValue, bool& found,
                           const wchar_t* comment, bool overriding) {
  using Limits = std::numeric_limits<int>;
  const std::uint32_t keyPlace = record.repeated.PlaceOf(key);
  const Json5Value* value = FindValue(keyPlace, overriding);
  found = value && value->kind == Kind::number && value->number >= Limits::min() &&
          value->number <= Limits::max() && std::trunc(value->number) == value->number;
  const int result = found ? static_cast<int>(value->number) : defaultValue;
  record.Set(item, keyPlace, record.repeated.PlaceOf(comment), result);
  return result;
}

double JSON5Section::ParamDouble(const wchar_t* key, double defaultValue, bool& found,
                                 const wchar_t* comment, bool overriding) {
  const std::uint32_t keyPlace = record.repeated.PlaceOf(key);
  const Json5Value* value = FindValue(keyPlace, overriding);
  found = value && value->kind == Kind::number;
  const double result = found ? value->number : defaultValue;
  record.Set(item, keyPlace, record.repeated.PlaceOf(comment), result);
  return result;
}

const wchar_t** JSON5Section::ParamStringArray(const wchar_t* key, int& count,
                                               const wchar_t** defaultValues, int defaultCount,
                                               bool& found, const wchar_t* comment,
                                               bool overriding) {
  const auto defaultSize = static_cast<std::size_t>(defaultCount);
  record.Adopt(defaultValues, defaultSize);
  const std::uint32_t keyPlace = record.repeated.PlaceOf(key);
  const Json5Value* value = FindValue(keyPlace, overriding);
  found = value && value->kind == Kind::array;
  if (!found) {
    record.Set(item, keyPlace, record.repeated.PlaceOf(comment),
               record.List(std::span(defaultValues, defaultSize)));
    count = defaultCount;
    return defaultValues;
  }

  std::vector<std::wstring_view> texts;
  texts.reserve(value->members.count);
  for (const Json5Member& element : tree.Members(*value)) {
    if (element.value.kind != Kind::string) continue;
    texts.push_back(record.KeepWide(element.value.text));
  }
  count = static_cast<int>(texts.size());
  record.Set(item, keyPlace, record.repeated.PlaceOf(comment), record.List(texts));
  // A caller releases no array of no strings.
  if (texts.empty()) return nullptr;
  auto* result = new const wchar_t*[texts.size()];
  for (std::size_t i = 0; i < texts.size(); ++i) result[i] = texts[i].data();
  return result;
}

const Json5Value* JSON5Section::FindValue(std::uint32_t key, bool overriding) const {
  if (!section || overriding) return nullptr;
  return tree.Find(*section, record.repeated.Bytes(key));
}
