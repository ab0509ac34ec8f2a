#include "naive/Fields.h"

#include <charconv>
#include <ios>
#include <iterator>
#include <locale>
#include <sstream>
#include <utility>
#include <vector>

#include "naive/Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {
namespace {

using namespace Properties;

template <class Number>
bool ParseByStream(std::wstring text, Number& number) {
  std::wistringstream stream(text);
  stream.imbue(std::locale::classic());
  Number parsed{};
  stream >> parsed;
  if (stream.rdstate() != std::ios_base::eofbit) return false;
  number = parsed;
  return true;
}

// Returns whether a digit before the exponent is other than 0.
bool HasValue(std::wstring text) {
  return text.substr(0, text.find_first_of(L"eE")).find_first_of(L"123456789") != text.npos;
}

template <class Number>
bool SetNumber(Number& value, std::wstring text, bool (*parse)(std::wstring, Number&)) {
  text = Trim(text);
  if (text.empty()) return false;
  return parse(text, value);
}

template <class Number>
bool SetList(std::vector<Number>& value, std::wstring text, bool (*parse)(std::wstring, Number&)) {
  text = Trim(text);
  if (text.empty()) return false;
  std::vector<Number> numbers;
  for (const std::wstring& piece : SplitTrimmed(text, L" ", false)) {
    Number number{};
    if (!parse(piece, number)) return false;
    numbers.push_back(number);
  }
  value = numbers;
  return true;
}

bool SetText(std::wstring& value, std::wstring text) {
  text = Trim(text);
  if (text.empty()) return false;
  value = TrimChars(text, L"\"");
  return true;
}

bool SetTexts(std::vector<std::wstring>& value, std::wstring text) {
  text = Trim(text);
  if (text.empty()) return false;
  value = SplitTrimmed(text, L" ", false);
  return true;
}

std::wstring Join(const Texts& texts) {
  std::wstring joined;
  for (const std::wstring& text : texts) {
    if (!joined.empty()) joined += L" ";
    joined += text;
  }
  return joined;
}

}  // namespace

bool ParseInt(std::wstring text, int& number) {
  return ParseByStream(text, number);
}

bool ParseReal(std::wstring text, double& number) {
  double parsed = 0;
  if (!ParseByStream(text, parsed)) return false;
  // Underflow is out of range, like overflow.
  if (parsed == 0 && HasValue(text)) return false;
  number = parsed;
  return true;
}

std::wstring FormatReal(double number) {
  char chars[32];
  return {chars, std::to_chars(std::begin(chars), std::end(chars), number).ptr};
}

std::unique_ptr<Field> MakeField(std::wstring name, std::wstring title, int valueType, bool flag) {
  if (valueType == 0) return std::make_unique<PropertyIntParameter>(name, title, flag);
  if (valueType == 1) return std::make_unique<PropertyRealParameter>(name, title, flag);
  if (valueType == 2) return std::make_unique<PropertyStrParameter>(name, title, flag);
  if (valueType == 3) return std::make_unique<PropertyIListParameter>(name, title, flag);
  if (valueType == 4) return std::make_unique<PropertyRListParameter>(name, title, flag);
  if (valueType == 5) return std::make_unique<PropertySListParameter>(name, title, flag);
  return nullptr;
}

bool SetValue(Field& field, std::wstring text) {
  if (auto* one = dynamic_cast<PropertyIntParameter*>(&field)) {
    return SetNumber(one->value, text, Naive::ParseInt);
  }
  if (auto* one = dynamic_cast<PropertyRealParameter*>(&field)) {
    return SetNumber(one->value, text, Naive::ParseReal);
  }
  if (auto* one = dynamic_cast<PropertyStrParameter*>(&field)) return SetText(one->value, text);
  if (auto* one = dynamic_cast<PropertyIListParameter*>(&field)) {
    return SetList(one->value, text, Naive::ParseInt);
  }
  if (auto* one = dynamic_cast<PropertyRListParameter*>(&field)) {
    return SetList(one->value, text, Naive::ParseReal);
  }
  return SetTexts(dynamic_cast<PropertySListParameter&>(field).value, text);
}

std::wstring GetValue(Field& field) {
  if (auto* one = dynamic_cast<PropertyIntParameter*>(&field)) return std::to_wstring(one->value);
  if (auto* one = dynamic_cast<PropertyRealParameter*>(&field)) {
    return Naive::FormatReal(one->value);
  }
  if (auto* one = dynamic_cast<PropertyStrParameter*>(&field)) return one->value;
  Texts texts;
  if (auto* one = dynamic_cast<PropertyIListParameter*>(&field)) {
    for (const int number : one->value) texts.push_back(std::to_wstring(number));
  } else if (auto* reals = dynamic_cast<PropertyRListParameter*>(&field)) {
    for (const double number : reals->value) texts.push_back(Naive::FormatReal(number));
  } else {
    auto& entries = dynamic_cast<PropertySListParameter&>(field).value;
    for (std::wstring& entry : entries) entry = TrimChars(entry, L"\"");
    texts = entries;
  }
  return Join(texts);
}

int AddValueField(DomenProperty& property, std::wstring name, std::wstring title, int valueType,
                  bool flag, std::wstring defaultText) {
  for (const auto& field : property.fields) {
    if (field->name == name) return -1;
  }
  auto field = MakeField(name, title, valueType, flag);
  if (!field) return -2;
  Naive::SetValue(*field, defaultText);
  property.fields.push_back(std::move(field));
  return 0;
}

DomenProperty CopyOf(const DomenProperty& property) {
  DomenProperty copy(property.id, property.name, property.objectTypes, property.unique,
                     property.sortIndex);
  for (const auto& field : property.fields) {
    Naive::AddValueField(copy, field->name, field->title, field->valueType, field->fieldFlag,
                         Naive::GetValue(*field));
  }
  return copy;
}

DomenStore CopyOf(const DomenStore& store) {
  DomenStore copy;
  copy.activeDomenId = store.activeDomenId;
  for (const auto& [id, domen] : store.domens) {
    Domen target(domen.id, domen.name);
    target.properties.Edit([&](DomenProperties& map) {
      for (const auto& [key, property] : domen.properties) {
        map.emplace(key, Naive::CopyOf(property));
      }
    });
    copy.domens.Edit([&](Domens::Map& map) { map.emplace(id, std::move(target)); });
  }
  return copy;
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
