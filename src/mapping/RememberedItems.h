#pragma once

#include <memory>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

struct CodeItems;

// The items of the codes of one Classificator, as far as they were composed since anything changed
// that they depend on: the Classificator or the domains. A copy remembers nothing.
class RememberedItems {
 public:
  RememberedItems();
  RememberedItems(const RememberedItems& other);
  RememberedItems& operator=(const RememberedItems& other) = delete;
  ~RememberedItems();

  // Null for a code that isn't remembered.
  const CodeItems* Find(int codeId) const;

  // Keeps the items of a code that isn't remembered, and gives them back.
  const CodeItems& Keep(int codeId, CodeItems items);

  void Forget();

 private:
  std::vector<std::unique_ptr<const CodeItems>> byCodeId;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
