// The properties of a domain, with an index by object type.

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

// An inverted index from object types to the properties that name them. REQUIRES: the properties
// outlive it and don't change.
class ObjectTypeIndex {
 public:
  explicit ObjectTypeIndex(const DomenProperties& properties);

  // Returns the properties that apply to all of these types, in key order.
  std::vector<const DomenProperty*> ThatApplyTo(const std::vector<std::wstring>& objectTypes) const;

 private:
  // Positions in `all_`, ascending.
  using Places = std::vector<std::size_t>;

  Places ThatNameAll(const std::vector<std::wstring>& objectTypes) const;

  std::vector<const DomenProperty*> all_;
  Places ofNoType_;
  std::map<std::wstring_view, Places> byType_;
};

// A map of properties that changes only through `Edit`, so that the index is never stale.
class IndexedProperties {
 public:
  IndexedProperties() = default;
  IndexedProperties(const IndexedProperties& other) : properties_(other.properties_) {}
  IndexedProperties(IndexedProperties&& other) = default;
  IndexedProperties& operator=(const IndexedProperties& other) {
    if (this != &other) *this = IndexedProperties(other);
    return *this;
  }
  IndexedProperties& operator=(IndexedProperties&& other) noexcept;
  ~IndexedProperties() = default;

  operator const DomenProperties&() const { return properties_; }
  bool empty() const { return properties_.empty(); }
  std::size_t size() const { return properties_.size(); }
  std::size_t count(std::wstring_view key) const { return properties_.count(key); }
  const DomenProperty& at(const std::wstring& key) const { return properties_.at(key); }
  auto find(std::wstring_view key) const { return properties_.find(key); }
  auto begin() const { return properties_.begin(); }
  auto end() const { return properties_.end(); }

  // Calls `change` with the map and returns its result. REQUIRES: `change` keeps no reference or
  // iterator through which the map could change later.
  template <class Change>
  auto Edit(const Change& change) {
    index_.reset();
    return change(properties_);
  }

  // See `ObjectTypeIndex`. The first call builds the index.
  std::vector<const DomenProperty*> ThatApplyTo(const std::vector<std::wstring>& objectTypes) const;

 private:
  DomenProperties properties_;
  mutable std::unique_ptr<const ObjectTypeIndex> index_;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
