// A bounded cache of composed items.

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

struct CodeItems;
struct DomenStore;

// The composed items of the codes of one section, for one state of the domains and one list of
// domain ids. A copy remembers nothing.
//
// Each code id has its own items, even where code ids share a header. So the cache is bounded, lest
// a few long headers fill the memory: beyond the bound it is cleared before the next items are
// kept, however long they are.
class RememberedItems {
 public:
  RememberedItems();
  RememberedItems(const RememberedItems& other);
  RememberedItems& operator=(const RememberedItems& other);
  ~RememberedItems();

  // Returns the items of the code, or null if they aren't remembered for these domains. The items
  // are valid until the next call of `Keep`.
  const CodeItems* Find(int codeId, const DomenStore& store,
                        const std::vector<std::wstring>& domenIds) const;

  // Moves the items into the cache and returns them there. Returns null, and leaves `items` as it
  // was, if memory runs out. REQUIRES: codeId >= 0, and its items aren't remembered.
  const CodeItems* Keep(int codeId, const DomenStore& store,
                        const std::vector<std::wstring>& domenIds, CodeItems& items) noexcept;

  void Forget() noexcept;

 private:
  bool IsFor(const DomenStore& store, const std::vector<std::wstring>& domenIds) const;
  void Restart(const DomenStore& store, const std::vector<std::wstring>& domenIds);

  std::vector<std::unique_ptr<const CodeItems>> byCodeId_;
  std::size_t units_ = 0;  // of all texts
  std::shared_ptr<const void> state_;
  std::vector<std::wstring> domenIds_;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
