// One domain.

#pragma once

#include <string>
#include <vector>

#include "domen/DomenProperties.h"

namespace TolvenLibs::RevitMappingEditorDll {

class FieldAdder;

// A named set of properties. A moved-from domain is empty.
struct Domen {
  // Without id, name and properties, as the map of domains makes it for a new key.
  Domen() = default;

  Domen(std::wstring domenId, std::wstring domenName);

  Domen(const Domen& other) = default;
  Domen& operator=(const Domen& other) = default;
  Domen(Domen&& other) = default;
  Domen& operator=(Domen&& other) = default;
  ~Domen() = default;

  // Adds a copy of the property unless the key is taken.
  void AddProperty(const std::wstring& key, const DomenProperty& property);

  // Calls `AddValueField` of the property with this key. Does nothing if there is none, or if the
  // field is refused.
  void AddPropertyField(const std::wstring& key, const std::wstring& fieldName,
                        const std::wstring& title, int valueType, bool fieldFlag,
                        const std::wstring& defaultText);

  // The same, faster for many fields.
  void AddPropertyField(const std::wstring& key, const std::wstring& fieldName,
                        const std::wstring& title, int valueType, bool fieldFlag,
                        const std::wstring& defaultText, FieldAdder& adder);

  // Returns the properties that may be set on objects of this type, or of all of these types, in
  // key order, as pointers into the domain. A property without types applies to all; an empty list
  // of types selects all properties.
  std::vector<const DomenProperty*> FilterByObjType(const std::wstring& objectType) const;
  std::vector<const DomenProperty*> FilterByObjTypes(
      const std::vector<std::wstring>& objectTypes) const;

  std::wstring id;
  std::wstring name;  // for the user interface
  IndexedProperties properties;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
