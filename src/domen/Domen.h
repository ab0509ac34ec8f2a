#pragma once

#include <string>
#include <vector>

#include "domen/DomenProperties.h"

namespace TolvenLibs::RevitMappingEditorDll {

class FieldAdder;

// One domain: a named set of properties. A moved-from domain is empty.
struct Domen {
  // What a look into the map of domains makes for a key that it lacks: no id, name or properties.
  Domen() = default;

  // A domain without properties.
  Domen(std::wstring domenId, std::wstring domenName);

  Domen(const Domen& other) = default;
  Domen& operator=(const Domen& other) = default;
  Domen(Domen&& other) = default;
  Domen& operator=(Domen&& other) = default;
  ~Domen() = default;

  // Copies the property in, or drops it if the key is taken: the first record under a key stays.
  void AddProperty(const std::wstring& key, const DomenProperty& property);

  // `AddValueField` of the property under the key. Nothing happens if there is none, or if the
  // field is refused.
  void AddPropertyField(const std::wstring& key, const std::wstring& fieldName,
                        const std::wstring& title, int valueType, bool fieldFlag,
                        const std::wstring& defaultText);

  // The same for whoever adds a great many.
  void AddPropertyField(const std::wstring& key, const std::wstring& fieldName,
                        const std::wstring& title, int valueType, bool fieldFlag,
                        const std::wstring& defaultText, FieldAdder& adder);

  // The properties that may be set on objects of this type, or of every one of these types, in key
  // order, as pointers into the domain. A property that names no type fits all, and an empty list
  // of types asks for nothing.
  std::vector<const DomenProperty*> FilterByObjType(const std::wstring& objectType) const;
  std::vector<const DomenProperty*> FilterByObjTypes(
      const std::vector<std::wstring>& objectTypes) const;

  std::wstring id;
  std::wstring name;  // for the interface
  IndexedProperties properties;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
