#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

struct CodeItems;

// The items of the codes of one Classificator, as far as they were composed since anything changed
// that they depend on: the Classificator or the domains. A copy remembers nothing.
//
// Each code id has its items for itself, also where one header has many of them. So what is
// remembered has a bound, beyond which it begins anew: a few long headers can't fill the memory.
class RememberedItems {
 public:
  RememberedItems();
  RememberedItems(const RememberedItems& other);
  RememberedItems& operator=(const RememberedItems& other) = delete;
  ~RememberedItems();

  // Null for a code that isn't remembered.
  const CodeItems* Find(int codeId) const;

  // Keeps the items of a code that isn't remembered, and gives them back. What was found before may
  // be gone then.
  const CodeItems& Keep(int codeId, CodeItems items);

  void Forget();

 private:
  std::vector<std::unique_ptr<const CodeItems>> byCodeId;
  std::size_t units = 0;  // of all texts in it
};

}  // namespace TolvenLibs::RevitMappingEditorDll
