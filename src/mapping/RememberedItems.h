#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

struct CodeItems;
struct DomenStore;

// The composed items of the codes of one section, for one state of the domains and one list of
// domain ids: whatever is asked for others is not among them. A copy remembers nothing.
//
// Each code id has items of its own, also where one header has many of them. So what is remembered
// has a bound, beyond which it begins anew, with the items that were to be kept, however long they
// are: a few long headers can't fill the memory.
class RememberedItems {
 public:
  RememberedItems();
  RememberedItems(const RememberedItems& other);
  RememberedItems& operator=(const RememberedItems& other);
  ~RememberedItems();

  // Returns the items of the code, or null if they aren't remembered. They are good until the next
  // call of `Keep`.
  const CodeItems* Find(int codeId, const DomenStore& store,
                        const std::vector<std::wstring>& domenIds) const;

  // Takes the items of a code that isn't remembered, and returns where they are. Returns null, and
  // leaves `items` as it was, if memory runs out. REQUIRES: codeId >= 0.
  const CodeItems* Keep(int codeId, const DomenStore& store,
                        const std::vector<std::wstring>& domenIds, CodeItems& items) noexcept;

  void Forget() noexcept;

 private:
  bool AreOf(const DomenStore& store, const std::vector<std::wstring>& domenIds) const;
  void BeginAnew(const DomenStore& store, const std::vector<std::wstring>& domenIds);

  std::vector<std::unique_ptr<const CodeItems>> byCodeId_;
  std::size_t units_ = 0;  // of all texts in it
  std::shared_ptr<const void> state_;
  std::vector<std::wstring> domenIds_;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
