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

// Domains by key, in the order of the keys' code units. They are read as a map is; every change
// goes through `Edit`, so that they can tell whether they are still as they were.
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

  operator const Map&() const { return map; }
  bool empty() const { return map.empty(); }
  std::size_t size() const { return map.size(); }
  bool contains(std::wstring_view key) const { return map.count(key) != 0; }
  const Domen& at(const std::wstring& key) const { return map.at(key); }
  const_iterator find(std::wstring_view key) const { return map.find(key); }
  const_iterator begin() const { return map.begin(); }
  const_iterator end() const { return map.end(); }

  // Gives the map to `change`, which must not keep what would let it change later, and what that
  // gives to the caller.
  template <class Change>
  auto Edit(const Change& change) {
    revision.Change();
    return change(map);
  }

  // Equal to a state of before if and only if no call of `Edit` and no assignment came in between.
  std::shared_ptr<const void> State() const { return revision.Get(); }
  bool IsIn(const std::shared_ptr<const void>& state) const { return revision.Is(state); }

 private:
  Map map;
  Revision revision;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
