#include "PropertyParameter.h"

#include <utility>

#include "base/Text.h"
#include "domen/Numbers.h"
#include "domen/PropertyType.h"

namespace TolvenLibs::RevitMappingEditorDll::Properties {

namespace {

constexpr std::wstring_view quotationMark = L"\"";

// The operations that the number types share, with the parser or formatter as a parameter.

template <class Number>
bool SetNumber(std::wstring text, bool (*parse)(std::wstring_view, Number&), Number& value) {
  return parse(Trim(text), value);
}

template <class Number>
bool ParseList(std::wstring_view text, bool (*parse)(std::wstring_view, Number&),
               std::vector<Number>& numbers) {
  PieceReader entries(text, L" ", false);
  for (std::wstring_view entry; entries.Next(entry);) {
    Number number{};
    if (!parse(entry, number)) return false;
    numbers.push_back(number);
  }
  return true;
}

template <class Number>
bool SetList(std::wstring_view text, bool (*parse)(std::wstring_view, Number&),
             std::vector<Number>& value) {
  std::vector<Number> numbers;
  if (Trimmed(text).empty() || !ParseList(text, parse, numbers)) return false;
  value = std::move(numbers);
  return true;
}

// Appends the next entry of a list, after a blank unless the text so far is empty.
void AppendEntry(std::wstring& text, const std::wstring& entry) {
  if (!text.empty()) text += L' ';
  text += entry;
}

template <class Number>
std::wstring FormatList(const std::vector<Number>& numbers, std::wstring (*format)(Number)) {
  std::wstring text;
  for (const Number number : numbers) AppendEntry(text, format(number));
  return text;
}

}  // namespace

PropertyParameter::PropertyParameter(std::wstring fieldName, std::wstring fieldTitle, int type,
                                     bool flag)
    : name(std::move(fieldName)), title(std::move(fieldTitle)), valueType(type), fieldFlag(flag) {}

PropertyParameter::~PropertyParameter() = default;

PropertyIntParameter::PropertyIntParameter(std::wstring fieldName, std::wstring fieldTitle,
                                           bool flag)
    : PropertyParameter(std::move(fieldName), std::move(fieldTitle), typeInt, flag) {}

bool PropertyIntParameter::CheckValue(std::wstring text) {
  int number = 0;
  return ParseInt(text, number);
}

bool PropertyIntParameter::SetValue(std::wstring text) {
  return SetNumber(std::move(text), ParseInt, value);
}

std::wstring PropertyIntParameter::GetValue() {
  return FormatInt(value);
}

PropertyRealParameter::PropertyRealParameter(std::wstring fieldName, std::wstring fieldTitle,
                                             bool flag)
    : PropertyParameter(std::move(fieldName), std::move(fieldTitle), typeReal, flag) {}

bool PropertyRealParameter::CheckValue(std::wstring text) {
  double number = 0;
  return ParseReal(text, number);
}

bool PropertyRealParameter::SetValue(std::wstring text) {
  return SetNumber(std::move(text), ParseReal, value);
}

std::wstring PropertyRealParameter::GetValue() {
  return FormatReal(value);
}

PropertyStrParameter::PropertyStrParameter(std::wstring fieldName, std::wstring fieldTitle,
                                           bool flag)
    : PropertyParameter(std::move(fieldName), std::move(fieldTitle), typeStr, flag) {}

bool PropertyStrParameter::CheckValue(std::wstring /*text*/) {
  return true;
}

bool PropertyStrParameter::SetValue(std::wstring text) {
  if (Trim(text).empty()) return false;
  TrimChars(text, quotationMark);
  value = std::move(text);
  return true;
}

std::wstring PropertyStrParameter::GetValue() {
  return value;
}

PropertyIListParameter::PropertyIListParameter(std::wstring fieldName, std::wstring fieldTitle,
                                               bool flag)
    : PropertyParameter(std::move(fieldName), std::move(fieldTitle), typeIList, flag) {}

bool PropertyIListParameter::CheckValue(std::wstring text) {
  std::vector<int> numbers;
  return ParseList(text, ParseInt, numbers);
}

bool PropertyIListParameter::SetValue(std::wstring text) {
  return SetList(text, ParseInt, value);
}

std::wstring PropertyIListParameter::GetValue() {
  return FormatList(value, FormatInt);
}

PropertyRListParameter::PropertyRListParameter(std::wstring fieldName, std::wstring fieldTitle,
                                               bool flag)
    : PropertyParameter(std::move(fieldName), std::move(fieldTitle), typeRList, flag) {}

bool PropertyRListParameter::CheckValue(std::wstring text) {
  std::vector<double> numbers;
  return ParseList(text, ParseReal, numbers);
}

bool PropertyRListParameter::SetValue(std::wstring text) {
  return SetList(text, ParseReal, value);
}

std::wstring PropertyRListParameter::GetValue() {
  return FormatList(value, FormatReal);
}

PropertySListParameter::PropertySListParameter(std::wstring fieldName, std::wstring fieldTitle,
                                               bool flag)
    : PropertyParameter(std::move(fieldName), std::move(fieldTitle), typeSList, flag) {}

bool PropertySListParameter::CheckValue(std::wstring /*text*/) {
  return true;
}

bool PropertySListParameter::SetValue(std::wstring text) {
  if (Trim(text).empty()) return false;
  value = SplitTrimmed(text, L" ", false);
  return true;
}

std::wstring PropertySListParameter::GetValue() {
  std::wstring text;
  for (std::wstring& entry : value) AppendEntry(text, TrimChars(entry, quotationMark));
  return text;
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Properties
