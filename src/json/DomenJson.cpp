// Domains in JSON5 files: reading and export. All access is by requests of the configuration
// library, whose order matters.

#include <CfgParser.h>
#include <JSON5Section.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/PathParts.h"
#include "base/Status.h"
#include "domen/DomenStore.h"
#include "domen/FieldAdder.h"
#include "domen/Numbers.h"
#include "domen/PropertyType.h"
#include "json/DomenSchema.h"
#include "json/JsonAccount.h"
#include "json/StringArrayParam.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// Owns an open section.
using OpenSection = std::unique_ptr<JSON5Section>;

// Reading

// The requests of one open section. Each is told to the account, if there is one.
class SectionReader {
 public:
  SectionReader(CfgParser& parser, JsonAccount* account, const wchar_t* name, bool first, bool last,
                const wchar_t* item)
      : section_(parser.Section(name, found_, first, last, item)), account_(account) {
    if (!account_) return;
    asked_ = {JsonOutcome::item, name, item, {}, found_, {}};
    account_->entries.push_back(*asked_);
  }

  // The result is valid as long as the section is open.
  const wchar_t* String(const SchemaKey& key, const wchar_t* defaultValue,
                        bool overriding = false) {
    const wchar_t* const value =
        section_->ParamString(key.name, defaultValue, found_, key.comment, overriding);
    TellRequest(overriding ? JsonOutcome::overridden : JsonOutcome::text, key);
    return value;
  }

  int Int(const SchemaKey& key, int defaultValue) {
    const int value = section_->ParamInt(key.name, defaultValue, found_, key.comment, false);
    TellRequest(JsonOutcome::wholeNumber, key);
    return value;
  }

  double Double(const SchemaKey& key, double defaultValue) {
    const double value = section_->ParamDouble(key.name, defaultValue, found_, key.comment, false);
    TellRequest(JsonOutcome::number, key);
    return value;
  }

  std::vector<std::wstring> Strings(const SchemaKey& key) {
    std::vector<std::wstring> strings;
    found_ = ReadStringArrayParam(*section_, key.name, strings, key.comment);
    TellRequest(JsonOutcome::listOfTexts, key, strings);
    return strings;
  }

  // Returns whether the last request found a value.
  bool Found() const { return found_; }

  // Says what became of the item, or of the domain.
  void Tell(JsonOutcome outcome, const wchar_t* text = nullptr) {
    if (!account_) return;
    JsonEntry& entry = account_->entries.emplace_back(*asked_);
    entry.outcome = outcome;
    entry.found = false;
    if (text) entry.texts = {text};
  }

 private:
  void TellRequest(JsonOutcome outcome, const SchemaKey& key,
                   const std::vector<std::wstring>& texts = {}) {
    if (!account_) return;
    JsonEntry& entry = account_->entries.emplace_back(*asked_);
    entry.outcome = outcome;
    entry.key = key.name;
    entry.found = found_;
    entry.texts = texts;
  }

  bool found_ = false;
  OpenSection section_;
  JsonAccount* account_;
  std::optional<JsonEntry> asked_;  // only with an account
};

// The type and default of a field. Unknown types are integers, with a default that these refuse.
struct FieldDefault {
  int valueType = typeInt;
  std::wstring text = L"1.0";
  bool unknown = false;
};

FieldDefault ReadFieldDefault(SectionReader& field) {
  const std::wstring_view type = field.String(fieldType, L"r");
  if (type == L"i" || type == L"ai") {
    return {type == L"i" ? typeInt : typeIList, FormatInt(field.Int(fieldIntDefault, 1))};
  }
  if (type == L"r" || type == L"ar") {
    return {type == L"r" ? typeReal : typeRList, FormatReal(field.Double(fieldRealDefault, 1.0))};
  }
  if (type == L"s" || type == L"as") {
    return {type == L"s" ? typeStr : typeSList, field.String(fieldStrDefault, L"1.0")};
  }
  field.Tell(JsonOutcome::typeUnknown, type.data());
  return {typeInt, L"1.0", true};
}

// What a field took it takes again, and what it refused it refuses.
void TellField(SectionReader& field, const DomenProperty& property, std::size_t fieldCount,
               const FieldDefault& value) {
  if (property.fields.size() == fieldCount) {
    return field.Tell(JsonOutcome::fieldAgain, property.id.c_str());
  }
  field.Tell(JsonOutcome::field, property.id.c_str());
  if (value.unknown || property.fields.back()->SetValue(value.text)) return;
  field.Tell(JsonOutcome::defaultRefused, value.text.c_str());
}

// The flag of a field tells whether its default was in the file.
void ReadField(CfgParser& parser, DomenProperty& property, FieldAdder& adder,
               std::vector<std::wstring>& names, std::size_t index, JsonAccount* account) {
  std::wstring& name = names[index];
  SectionReader field(parser, account, fieldsSection, index == 0, index + 1 == names.size(),
                      name.c_str());
  const wchar_t* title = field.String(fieldName, name.c_str());
  FieldDefault value = ReadFieldDefault(field);
  const FieldDefault told = account ? value : FieldDefault();
  const std::size_t fieldCount = property.fields.size();
  std::wstring ownTitle(title);  // a copy, since `title` may point to the name
  adder.Add(property, std::move(name), std::move(ownTitle), value.valueType, field.Found(),
            std::move(value.text));
  if (account) TellField(field, property, fieldCount, told);
}

// The "sId" of the file is overridden: the key is the id.
void ReadProperty(CfgParser& parser, Domen& domen, const std::vector<std::wstring>& keys,
                  std::size_t index, JsonAccount* account) {
  const std::wstring& key = keys[index];
  SectionReader section(parser, account, propertiesSection, index == 0, index + 1 == keys.size(),
                        key.c_str());
  std::vector<std::wstring> objectTypes = section.Strings(propertyObjectTypes);
  const wchar_t* id = section.String(propertyId, key.c_str(), true);
  const wchar_t* name = section.String(propertyName, L"");
  const bool unique = section.Int(propertyUnique, 0) != 0;
  const int sortIndex = section.Int(propertySortIndex, 0);
  std::vector<std::wstring> fieldNames = section.Strings(propertyFuncsNames);
  DomenProperty property(id, name, std::move(objectTypes), unique, sortIndex);
  property.fields.reserve(fieldNames.size());
  FieldAdder adder;
  for (std::size_t i = 0; i < fieldNames.size(); ++i) {
    ReadField(parser, property, adder, fieldNames, i, account);
  }
  const std::size_t propertyCount = domen.properties.size();
  domen.AddProperty(key, property);
  if (!account) return;
  const bool added = domen.properties.size() > propertyCount;
  section.Tell(added ? JsonOutcome::property : JsonOutcome::propertyAgain);
}

// Writing

OpenSection Open(CfgParser& parser, const wchar_t* name, bool first, bool last,
                 const wchar_t* itemName) {
  bool found = false;
  return OpenSection(parser.Section(name, found, first, last, itemName));
}

// The requests of one open section, each with the value to be written.
class SectionWriter {
 public:
  explicit SectionWriter(OpenSection section) : section_(std::move(section)) {}

  void String(const SchemaKey& key, const wchar_t* value) {
    section_->ParamString(key.name, value, found_, key.comment, true);
  }

  void Int(const SchemaKey& key, int value) {
    section_->ParamInt(key.name, value, found_, key.comment, true);
  }

  void Double(const SchemaKey& key, double value) {
    section_->ParamDouble(key.name, value, found_, key.comment, true);
  }

  void Strings(const SchemaKey& key, std::vector<std::wstring> values) {
    ReadStringArrayParam(*section_, key.name, values, key.comment, true);
  }

 private:
  OpenSection section_;
  bool found_ = false;
};

struct FieldRow {
  const wchar_t* name;
  const wchar_t* title;
  Properties::PropertyParameter* field;
};

// A property, to which the next `objectTypeCount` object types and `fieldCount` fields belong.
struct PropertyRow {
  const wchar_t* key;
  const wchar_t* name;
  bool unique;
  int sortIndex;
  std::size_t objectTypeCount;
  std::size_t fieldCount;
};

// A flat view of a domain for an export: gathering what is scattered in memory is faster in one go
// than between requests. A copy of the domain would exceed the bound of the row `ExportJson` of
// docs/measured/performance.md: it makes an export take 1.7 times as long.
struct DomenRows {
  explicit DomenRows(const Domen& domen) {
    properties.reserve(domen.properties.size());
    for (const auto& [key, property] : domen.properties) {
      properties.push_back({key.c_str(), property.name.c_str(), property.unique, property.sortIndex,
                            property.objectTypes.size(), property.fields.size()});
      for (const std::wstring& type : property.objectTypes) objectTypes.push_back(type.c_str());
      for (const auto& field : property.fields) {
        fields.push_back({field->name.c_str(), field->title.c_str(), field.get()});
      }
    }
  }

  std::vector<PropertyRow> properties;
  std::vector<const wchar_t*> objectTypes;
  std::vector<FieldRow> fields;
};

void WriteDomen(CfgParser& parser, const std::wstring& name, const DomenRows& rows) {
  std::vector<std::wstring> keys;
  keys.reserve(rows.properties.size());
  for (const PropertyRow& row : rows.properties) keys.emplace_back(row.key);
  SectionWriter section(Open(parser, domenSection, true, true, L""));
  section.String(domenName, name.c_str());
  section.Strings(domenFuncsNames, std::move(keys));
}

void WriteProperties(CfgParser& parser, const DomenRows& rows) {
  const wchar_t* const* type = rows.objectTypes.data();
  const FieldRow* field = rows.fields.data();
  for (const PropertyRow& row : rows.properties) {
    std::vector<std::wstring> types(type, type + row.objectTypeCount);
    std::vector<std::wstring> fieldNames;
    fieldNames.reserve(row.fieldCount);
    for (std::size_t i = 0; i < row.fieldCount; ++i) fieldNames.emplace_back(field[i].name);
    type += row.objectTypeCount;
    field += row.fieldCount;
    SectionWriter section(Open(parser, propertiesSection, &row == &rows.properties.front(),
                               &row == &rows.properties.back(), row.key));
    section.Strings(propertyObjectTypes, std::move(types));
    section.String(propertyId, row.key);
    section.String(propertyName, row.name);
    section.Int(propertyUnique, row.unique ? 1 : 0);
    section.Int(propertySortIndex, row.sortIndex);
    section.Strings(propertyFuncsNames, std::move(fieldNames));
  }
}

// Types are counted from 1 here, but from 0 in the rest of the library: a field is written with the
// code of the type before its own, one of type 0 with none. Its value is never written. This table
// is required, row by row.
void WriteFieldType(SectionWriter& section, int valueType) {
  switch (valueType) {
    case 1:
      section.String(fieldType, L"i");
      return section.Int(fieldIntDefault, 1);
    case 2:
      section.String(fieldType, L"r");
      return section.Double(fieldRealDefault, 1.0);
    case 3:
      section.String(fieldType, L"s");
      return section.String(fieldStrDefault, L"");
    case 4:
      section.String(fieldType, L"ai");
      return section.Int(fieldIntDefault, 1);
    case 5:
      section.String(fieldType, L"ar");
      return section.Double(fieldRealDefault, 1.0);
    case 6:
      section.String(fieldType, L"as");
      return section.String(fieldStrDefault, L"");
    default:
      return;
  }
}

// All fields of the domain are one run. If the first property has no fields, no request is marked
// as the first of the run; if the last has none, no request is marked as its last.
void WriteFields(CfgParser& parser, const DomenRows& rows) {
  for (const FieldRow& field : rows.fields) {
    const bool first = &field == &rows.fields.front() && rows.properties.front().fieldCount != 0;
    const bool last = &field == &rows.fields.back() && rows.properties.back().fieldCount != 0;
    SectionWriter section(Open(parser, fieldsSection, first, last, field.name));
    section.String(fieldName, field.title);
    // Called for its side effect: a list of strings loses its quotation marks.
    field.field->GetValue();
    WriteFieldType(section, field.field->valueType);
  }
}

}  // namespace

int DomenStore::LoadDomenJson(const std::wstring& path, const std::wstring& configText,
                              JsonAccount* account) {
  try {
    const auto parser = std::make_unique<CfgParser>(path.c_str(), configText.c_str(), cfgLanguage);
    SectionReader section(*parser, account, domenSection, true, true, L"");
    std::wstring name = section.String(domenName, L"");
    const std::vector<std::wstring> keys = section.Strings(domenFuncsNames);
    std::wstring id(Stem(path));
    Domen domen(id, std::move(name));
    for (std::size_t i = 0; i < keys.size(); ++i) {
      ReadProperty(*parser, domen, keys, i, account);
    }
    // The last step that can fail: a domain that isn't stored isn't selected either.
    const bool added = AddDomen(id, std::move(domen)).second;
    section.Tell(added ? JsonOutcome::domen : JsonOutcome::domenAgain, id.c_str());
    activeDomenId = std::move(id);
    return statusDone;
  } catch (...) {
    return statusException;
  }
}

void DomenStore::ExportDomenJson(const std::wstring& domenId, const std::wstring& target) const {
  const auto found = domens.find(domenId);
  if (found == domens.end()) return;
  try {
    const auto parser = std::make_unique<CfgParser>(target.c_str(), L"", cfgLanguage);
    const DomenRows rows(found->second);
    WriteDomen(*parser, found->second.name, rows);
    WriteProperties(*parser, rows);
    WriteFields(*parser, rows);
    parser->saveCfgParamsToJson5(target.c_str(), 2);
  } catch (...) {
    // Silent: the target is as it was.
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
