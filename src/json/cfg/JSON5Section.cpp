#include "JSON5Section.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <span>
#include <string_view>

using namespace TolvenLibs::RevitMappingEditorDll;

using Kind = Json5Value::Kind;

JSON5Section::JSON5Section(const Json5Tree& tree, const Json5Value* section, Json5Record& record,
                           std::size_t item)
    : tree_(tree), section_(section), record_(record), item_(item) {}

const wchar_t* JSON5Section::ParamString(const wchar_t* key, const wchar_t* defaultValue,
                                         bool& found, const wchar_t* comment, bool overriding) {
  const std::uint32_t keyPlace = record_.repeated.PlaceOf(key);
  const Json5Value* value = FindValue(keyPlace, overriding);
  found = value && value->kind == Kind::string;
  const wchar_t* result = found ? record_.KeepWide(value->text).data() : defaultValue;
  record_.Set(item_, keyPlace, record_.repeated.PlaceOf(comment),
              found ? value->text : record_.Keep(defaultValue));
  return result;
}

int JSON5Section::ParamInt(const wchar_t* key, int defaultValue, bool& found,
                           const wchar_t* comment, bool overriding) {
  using Limits = std::numeric_limits<int>;
  const std::uint32_t keyPlace = record_.repeated.PlaceOf(key);
  const Json5Value* value = FindValue(keyPlace, overriding);
  found = value && value->kind == Kind::number && value->number >= Limits::min() &&
          value->number <= Limits::max() && std::trunc(value->number) == value->number;
  const int result = found ? static_cast<int>(value->number) : defaultValue;
  record_.Set(item_, keyPlace, record_.repeated.PlaceOf(comment), result);
  return result;
}

double JSON5Section::ParamDouble(const wchar_t* key, double defaultValue, bool& found,
                                 const wchar_t* comment, bool overriding) {
  const std::uint32_t keyPlace = record_.repeated.PlaceOf(key);
  const Json5Value* value = FindValue(keyPlace, overriding);
  found = value && value->kind == Kind::number;
  const double result = found ? value->number : defaultValue;
  record_.Set(item_, keyPlace, record_.repeated.PlaceOf(comment), result);
  return result;
}

const wchar_t** JSON5Section::ParamStringArray(const wchar_t* key, int& count,
                                               const wchar_t** defaultValues, int defaultCount,
                                               bool& found, const wchar_t* comment,
                                               bool overriding) {
  const auto defaultSize = static_cast<std::size_t>(defaultCount);
  record_.Adopt(defaultValues, defaultSize);
  const std::uint32_t keyPlace = record_.repeated.PlaceOf(key);
  const Json5Value* value = FindValue(keyPlace, overriding);
  found = value && value->kind == Kind::array;
  const std::uint32_t commentPlace = record_.repeated.PlaceOf(comment);
  if (!found) {
    const std::span<std::wstring_view> texts = record_.List(defaultSize);
    std::copy_n(defaultValues, defaultSize, texts.begin());
    record_.Set(item_, keyPlace, commentPlace, texts);
    count = defaultCount;
    return defaultValues;
  }

  std::span<std::wstring_view> texts = record_.List(value->members.count);
  auto end = texts.begin();
  for (const Json5Member& element : tree_.Members(*value)) {
    if (element.value.kind == Kind::string) *end++ = record_.KeepWide(element.value.text);
  }
  texts = {texts.begin(), end};
  record_.Set(item_, keyPlace, commentPlace, texts);
  count = static_cast<int>(texts.size());
  // Callers don't free an array without strings.
  if (texts.empty()) return nullptr;
  auto result = std::make_unique<const wchar_t*[]>(texts.size());
  std::transform(texts.begin(), texts.end(), result.get(), std::mem_fn(&std::wstring_view::data));
  return result.release();
}

const Json5Value* JSON5Section::FindValue(std::uint32_t key, bool overriding) const {
  if (!section_ || overriding) return nullptr;
  return tree_.Find(*section_, record_.repeated.Bytes(key));
}
