// Converts domains to text, so that a test can compare and print a whole store:
//
//   domain Openings 'Openings'
//     property Rating 'Element rating class' unique 10 [Door|Room]
//       str Class 'Rating class' flagged = K30

#pragma once

#include <string>

#include "domen/DomenStore.h"

inline std::wstring Describe(
    TolvenLibs::RevitMappingEditorDll::Properties::PropertyParameter& field) {
  constexpr const wchar_t* keywords[] = {L"int", L"real", L"str", L"ilist", L"rlist", L"slist"};
  return std::wstring(keywords[field.valueType]) + L" " + field.name + L" '" + field.title + L"'" +
         (field.fieldFlag ? L" flagged" : L"") + L" = " + field.GetValue() + L"\n";
}

inline std::wstring Describe(const TolvenLibs::RevitMappingEditorDll::DomenProperty& property) {
  std::wstring types;
  for (const std::wstring& type : property.objectTypes)
    types += (types.empty() ? L"" : L"|") + type;
  std::wstring text = L"property " + property.id + L" '" + property.name + L"'" +
                      (property.unique ? L" unique " : L" ") + std::to_wstring(property.sortIndex) +
                      L" [" + types + L"]\n";
  for (const auto& field : property.fields) text += L"    " + Describe(*field);
  return text;
}

inline std::wstring Describe(const TolvenLibs::RevitMappingEditorDll::DomenProperties& properties) {
  std::wstring text;
  for (const auto& [key, property] : properties) {
    text += L"  " + (key == property.id ? L"" : key + L": ") + Describe(property);
  }
  return text;
}

inline std::wstring Describe(const TolvenLibs::RevitMappingEditorDll::DomenStore& store) {
  std::wstring text;
  for (const auto& [key, domen] : store.domens) {
    text += (key == domen.id ? L"" : key + L": ") + L"domain " + domen.id + L" '" + domen.name +
            L"'\n" + Describe(domen.properties);
  }
  return text;
}
