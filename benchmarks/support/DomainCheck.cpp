#include "support/DomainCheck.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

#include "base/Utf8.h"
#include "support/Results.h"

using TolvenLibs::RevitMappingEditorDll::EncodeUtf8;
using Editor = TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

namespace {

std::wstring ToWide(const std::string& text) {
  return TolvenLibs::RevitMappingEditorDll::DecodeUtf8(text);
}

std::vector<std::string> TakeTexts(int count, const wchar_t** texts) {
  std::vector<std::string> taken;
  for (const std::wstring& text : TakeAll(count, texts)) taken.push_back(EncodeUtf8(text).value());
  return taken;
}

template <class Element>
std::vector<Element> TakeValues(int count, const Element* values) {
  std::vector<Element> taken(values, values + count);
  delete[] values;
  return taken;
}

template <class Result, class Data, class Project>
std::vector<Result> Column(const std::vector<Data>& data, Project project) {
  std::vector<Result> column;
  for (const Data& entry : data) column.push_back(std::invoke(project, entry));
  return column;
}

// Checks the list of all properties, or of those for objects of one type.
bool Lists(Editor& editor, const std::wstring& id, std::vector<std::wstring> types,
           const DomainData& expected) {
  std::vector<const wchar_t*> typeTexts;
  for (const std::wstring& type : types) typeTexts.push_back(type.c_str());
  int count = 0;
  const wchar_t** ids = nullptr;
  const wchar_t** names = nullptr;
  int* sortIndexes = nullptr;
  editor.GetDomenPropertysByObjTypes(id.c_str(), static_cast<int>(types.size()), typeTexts.data(),
                                     count, ids, names, sortIndexes);
  return TakeTexts(count, ids) == Column<std::string>(expected, &PropertyData::id) &&
         TakeTexts(count, names) == Column<std::string>(expected, &PropertyData::title) &&
         TakeValues(count, sortIndexes) == Column<int>(expected, &PropertyData::sortIndex);
}

bool ListsByType(Editor& editor, const std::wstring& id, const std::string& type,
                 const DomainData& domain) {
  DomainData expected;
  for (const PropertyData& property : domain) {
    const std::vector<std::string>& types = property.objectTypes;
    if (std::find(types.begin(), types.end(), type) != types.end()) expected.push_back(property);
  }
  return Lists(editor, id, {ToWide(type)}, expected);
}

bool HasFields(Editor& editor, const std::wstring& id, const PropertyData& property) {
  const std::vector<FieldData>& fields = property.fields;
  int count = 0;
  const wchar_t** names = nullptr;
  const wchar_t** titles = nullptr;
  const wchar_t** values = nullptr;
  int* types = nullptr;
  bool* flags = nullptr;
  editor.GetDomenPropertyFieldsValues(id.c_str(), ToWide(property.id).c_str(), count, names, titles,
                                      types, flags, values);
  return TakeTexts(count, names) == Column<std::string>(fields, &FieldData::name) &&
         TakeTexts(count, titles) == Column<std::string>(fields, &FieldData::title) &&
         TakeTexts(count, values) == Column<std::string>(fields, &FieldData::value) &&
         TakeValues(count, types) == Column<int>(fields, &FieldData::valueType) &&
         TakeValues(count, flags) == std::vector<bool>(fields.size(), true);
}

bool HasCheckInfo(Editor& editor, const std::wstring& id, const DomainData& domain) {
  int count = 0;
  const wchar_t** ids = nullptr;
  bool* uniqueFlags = nullptr;
  int* fieldCounts = nullptr;
  bool* listFlags = nullptr;
  editor.GetDomenPropertiesCheckInfo(id.c_str(), count, ids, uniqueFlags, fieldCounts, listFlags);
  return TakeTexts(count, ids) == Column<std::string>(domain, &PropertyData::id) &&
         TakeValues(count, uniqueFlags) == Column<bool>(domain, &PropertyData::unique) &&
         TakeValues(count, fieldCounts) ==
             Column<int>(domain,
                         [](const PropertyData& p) { return static_cast<int>(p.fields.size()); }) &&
         TakeValues(count, listFlags) == Column<bool>(domain, [](const PropertyData& p) {
           return p.fields.back().valueType >= 3;
         });
}

}  // namespace

bool HasDomain(Editor& editor, const std::wstring& id, const DomainData& domain) {
  return Lists(editor, id, {}, domain) && ListsByType(editor, id, "Type7", domain) &&
         HasCheckInfo(editor, id, domain) &&
         std::all_of(domain.begin(), domain.end(),
                     [&](const PropertyData& property) { return HasFields(editor, id, property); });
}
