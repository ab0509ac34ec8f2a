// A map of domains that tells whether it has changed.

#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "domen/Domen.h"
#include "domen/Revision.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Domains by key, in the order of the keys' code units. The map changes only through `Edit`, so
// that it can tell whether it is still in an earlier state.
class Domens {
 public:
  using Map = std::map<std::wstring, Domen, std::less<>>;
  using const_iterator = Map::const_iterator;

  Domens() = default;
  Domens(const Domens& other) = default;
  Domens(Domens&& other) = default;
  Domens& operator=(const Domens& other) {
    if (this != &other) *this = Domens(other);
    return *this;
  }
  Domens& operator=(Domens&& other) noexcept;
  ~Domens() = default;

  operator const Map&() const { return map_; }
  bool empty() const { return map_.empty(); }
  std::size_t size() const { return map_.size(); }
  bool contains(std::wstring_view key) const { return map_.count(key) != 0; }
  const Domen& at(const std::wstring& key) const { return map_.at(key); }
  const_iterator find(std::wstring_view key) const { return map_.find(key); }
  const_iterator begin() const { return map_.begin(); }
  const_iterator end() const { return map_.end(); }

  // Calls `change` with the map and returns its result. REQUIRES: `change` keeps no reference or
  // iterator through which the map could change later.
  template <class Change>
  auto Edit(const Change& change) {
    revision_.Change();
    return change(map_);
  }

  // Returns a token that is equal to an earlier one if and only if there was no call of `Edit` and
  // no assignment in between.
  std::shared_ptr<const void> State() const { return revision_.Get(); }
  bool IsIn(const std::shared_ptr<const void>& state) const { return revision_.Is(state); }

 private:
  Map map_;
  Revision revision_;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
