#include "JSON5Section.h"

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <utility>

namespace {

std::wstring Quoted(const std::wstring& text) {
  return L"'" + text + L"'";
}

std::wstring Listed(const wchar_t* const* texts, int count) {
  std::wstring list = L"[";
  for (int i = 0; i < count; ++i) list += (i == 0 ? L"" : L", ") + Quoted(texts[i]);
  return list + L"]";
}

const wchar_t* NewText(const std::wstring& text) {
  auto* const copy = new wchar_t[text.size() + 1];
  std::copy(text.begin(), text.end(), copy);
  copy[text.size()] = L'\0';
  return copy;
}

}  // namespace

const wchar_t* KeptArrays::Keep(const std::wstring& text) {
  return strings.emplace_back(NewText(text)).get();
}

JSON5Section::JSON5Section(std::wstring sectionName, std::wstring itemName,
                           KeptArrays& keptByParser)
    : section(std::move(sectionName)), item(std::move(itemName)), kept(keptByParser) {
  ++Script::current->openSections;
}

JSON5Section::~JSON5Section() {
  // Makes it visible if a string is read too late.
  for (std::wstring& text : given) std::fill(text.begin(), text.end(), L'#');
  --Script::current->openSections;
  Script::current->requests.push_back(L"end of " + section + L" " + Quoted(item));
}

const wchar_t* JSON5Section::ParamString(const wchar_t* key, const wchar_t* defaultValue,
                                         bool& found, const wchar_t* comment, bool overriding) {
  const auto* answer =
      Request<std::wstring>(key, L"string", Quoted(defaultValue), comment, overriding, found);
  return given.emplace_back(answer ? *answer : defaultValue).c_str();
}

int JSON5Section::ParamInt(const wchar_t* key, int defaultValue, bool& found,
                           const wchar_t* comment, bool overriding) {
  const int* answer =
      Request<int>(key, L"int", std::to_wstring(defaultValue), comment, overriding, found);
  return answer ? *answer : defaultValue;
}

double JSON5Section::ParamDouble(const wchar_t* key, double defaultValue, bool& found,
                                 const wchar_t* comment, bool overriding) {
  std::wostringstream value;
  value << defaultValue;
  const double* answer = Request<double>(key, L"double", value.str(), comment, overriding, found);
  return answer ? *answer : defaultValue;
}

const wchar_t** JSON5Section::ParamStringArray(const wchar_t* key, int& count,
                                               const wchar_t** defaultValues, int defaultCount,
                                               bool& found, const wchar_t* comment,
                                               bool overriding) {
  // The library owns the strings in any case.
  for (int i = 0; i < defaultCount; ++i) kept.strings.emplace_back(defaultValues[i]);
  std::wstring value = Listed(defaultValues, defaultCount);
  if (count != 0 || found) value += L" (neither counted from 0 nor set to not found)";
  const Texts* answer = Request<Texts>(key, L"strings", value, comment, overriding, found);

  const auto newArray = [this, &count](const Texts& texts) {
    count = static_cast<int>(texts.size());
    auto* const array = new const wchar_t*[texts.size()];
    for (std::size_t i = 0; i < texts.size(); ++i) array[i] = kept.Keep(texts[i]);
    return array;
  };
  const ArrayResult result = Script::current->arrays;
  if (result == ArrayResult::empty || result == ArrayResult::negative) {
    count = result == ArrayResult::empty ? 0 : -1;
    if (!found && defaultCount >= 1) kept.arrays.emplace_back(defaultValues);
    return kept.arrays.emplace_back(new const wchar_t*[1]()).get();
  }
  if (answer) {
    const wchar_t** array = newArray(*answer);
    if (count == 0) kept.arrays.emplace_back(array);
    return array;
  }
  if (result == ArrayResult::null) {
    count = 0;
    kept.arrays.emplace_back(defaultValues);
    return nullptr;
  }
  count = defaultCount;
  if (result == ArrayResult::defaults || defaultCount == 0) return defaultValues;
  kept.arrays.emplace_back(defaultValues);
  return newArray(Texts(defaultValues, defaultValues + defaultCount));
}

template <class Type>
const Type* JSON5Section::Request(const wchar_t* key, const std::wstring& type,
                                  const std::wstring& value, const wchar_t* comment,
                                  bool overriding, bool& found) {
  Script& script = *Script::current;
  const std::wstring place = item.empty() ? section : section + L" " + item;
  script.Request(place + L": " + (overriding ? L"override " : L"") + type + L" " + key + L" " +
                 value + L" // " + comment);
  const auto answer = script.answers.find({section, item, key});
  const Type* typed = answer == script.answers.end() ? nullptr : std::get_if<Type>(&answer->second);
  found = overriding ? script.foundOnOverride : typed != nullptr;
  return overriding ? nullptr : typed;
}

void Script::Request(const std::wstring& request) {
  requests.push_back(request);
  if (++made == failing) fail();
}
