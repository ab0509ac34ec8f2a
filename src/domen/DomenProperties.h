#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "domen/DomenProperty.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Properties by key, in the order of the keys' code units.
using DomenProperties = std::map<std::wstring, DomenProperty, std::less<>>;

// Which properties name which object types. It holds pointers to the properties and views of their
// texts.
class ObjectTypeIndex {
 public:
  explicit ObjectTypeIndex(const DomenProperties& properties);

  // The properties that apply to each of these types, in the order of their keys.
  std::vector<const DomenProperty*> ThatApplyTo(const std::vector<std::wstring>& objectTypes) const;

 private:
  // Places in `all`, in ascending order.
  using Places = std::vector<std::size_t>;

  Places ThatName(const std::vector<std::wstring>& objectTypes) const;

  std::vector<const DomenProperty*> all;
  Places ofNoType;
  std::map<std::wstring_view, Places> byType;
};

// The properties of a domain. They are read as a map is; every change goes through `Edit`.
class IndexedProperties {
 public:
  IndexedProperties() = default;
  IndexedProperties(const IndexedProperties& other) : properties(other.properties) {}
  IndexedProperties(IndexedProperties&& other) = default;
  IndexedProperties& operator=(const IndexedProperties& other) {
    if (this != &other) *this = IndexedProperties(other);
    return *this;
  }
  IndexedProperties& operator=(IndexedProperties&& other) noexcept;
  ~IndexedProperties() = default;

  operator const DomenProperties&() const { return properties; }
  bool empty() const { return properties.empty(); }
  std::size_t size() const { return properties.size(); }
  std::size_t count(std::wstring_view key) const { return properties.count(key); }
  const DomenProperty& at(const std::wstring& key) const { return properties.at(key); }
  auto find(std::wstring_view key) const { return properties.find(key); }
  auto begin() const { return properties.begin(); }
  auto end() const { return properties.end(); }

  // Gives the map to `change`, which must not keep what would let it change later, and what that
  // gives to the caller.
  template <class Change>
  auto Edit(const Change& change) {
    index.reset();
    return change(properties);
  }

  // See `ObjectTypeIndex`. The first question makes the index.
  std::vector<const DomenProperty*> ThatApplyTo(const std::vector<std::wstring>& objectTypes) const;

 private:
  DomenProperties properties;
  mutable std::unique_ptr<const ObjectTypeIndex> index;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
