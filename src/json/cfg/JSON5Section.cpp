#include "JSON5Section.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

using namespace TolvenLibs::RevitMappingEditorDll;

using Kind = Json5Value::Kind;

JSON5Section::JSON5Section(const Json5Tree& fileTree, const Json5Value* fileSection,
                           Json5Record& requests, Json5RecordItem& requestedItem)
    : tree(fileTree), section(fileSection), record(requests), item(requestedItem) {}

const wchar_t* JSON5Section::ParamString(const wchar_t* key, const wchar_t* defaultValue,
                                         bool& found, const wchar_t* comment, bool overriding) {
  const Json5Value* value = FindValue(key, overriding);
  found = value && value->kind == Kind::string;
  const std::wstring_view result = record.Keep(found ? value->text : defaultValue);
  record.Set(item, key, result, comment);
  return result.data();
}

int JSON5Section::ParamInt(const wchar_t* key, int defaultValue, bool& found,
                           const wchar_t* comment, bool overriding) {
  using Limits = std::numeric_limits<int>;
  const Json5Value* value = FindValue(key, overriding);
  found = value && value->kind == Kind::number && value->number >= Limits::min() &&
          value->number <= Limits::max() && std::trunc(value->number) == value->number;
  const int result = found ? static_cast<int>(value->number) : defaultValue;
  record.Set(item, key, result, comment);
  return result;
}

double JSON5Section::ParamDouble(const wchar_t* key, double defaultValue, bool& found,
                                 const wchar_t* comment, bool overriding) {
  const Json5Value* value = FindValue(key, overriding);
  found = value && value->kind == Kind::number;
  const double result = found ? value->number : defaultValue;
  record.Set(item, key, result, comment);
  return result;
}

const wchar_t** JSON5Section::ParamStringArray(const wchar_t* key, int& count,
                                               const wchar_t** defaultValues, int defaultCount,
                                               bool& found, const wchar_t* comment,
                                               bool overriding) {
  record.Adopt(defaultValues, static_cast<std::size_t>(defaultCount));
  const Json5Value* value = FindValue(key, overriding);
  found = value && value->kind == Kind::array;
  if (!found) {
    record.Set(item, key,
               std::vector<std::wstring_view>(defaultValues, defaultValues + defaultCount),
               comment);
    count = defaultCount;
    return defaultValues;
  }

  std::vector<std::wstring_view> texts;
  for (const Json5Member& element : tree.Members(*value)) {
    if (element.value.kind == Kind::string) texts.push_back(record.Keep(element.value.text));
  }
  count = static_cast<int>(texts.size());
  // A caller releases no array of no strings.
  std::unique_ptr<const wchar_t*[]> result;
  if (!texts.empty()) result = std::make_unique<const wchar_t*[]>(texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i) result[i] = texts[i].data();
  record.Set(item, key, std::move(texts), comment);
  return result.release();
}

const Json5Value* JSON5Section::FindValue(const wchar_t* key, bool overriding) const {
  return section && !overriding ? tree.Find(*section, key) : nullptr;
}
