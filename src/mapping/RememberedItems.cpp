#include "mapping/RememberedItems.h"

#include <utility>

#include "domen/DomenStore.h"
#include "mapping/CodeParams.h"

namespace TolvenLibs::RevitMappingEditorDll {

RememberedItems::RememberedItems() = default;

RememberedItems::RememberedItems(const RememberedItems& /*other*/) {}

RememberedItems& RememberedItems::operator=(const RememberedItems& /*other*/) {
  Forget();
  return *this;
}

RememberedItems::~RememberedItems() = default;

const CodeItems* RememberedItems::Find(int codeId, const DomenStore& store,
                                       const std::vector<std::wstring>& domenIds) const {
  const auto position = static_cast<std::size_t>(codeId);
  if (position >= byCodeId_.size() || !IsFor(store, domenIds)) return nullptr;
  return byCodeId_[position].get();
}

const CodeItems* RememberedItems::Keep(int codeId, const DomenStore& store,
                                       const std::vector<std::wstring>& domenIds,
                                       CodeItems& items) noexcept {
  constexpr std::size_t maxUnits = 25'000'000;
  const auto position = static_cast<std::size_t>(codeId);
  const std::size_t size = items.text.size();
  try {
    if (!IsFor(store, domenIds) || units_ + size > maxUnits) Restart(store, domenIds);
    if (byCodeId_.size() <= position) byCodeId_.resize(position + 1);
    byCodeId_[position] = std::make_unique<const CodeItems>(std::move(items));
  } catch (...) {
    return nullptr;
  }
  units_ += size;
  return byCodeId_[position].get();
}

bool RememberedItems::IsFor(const DomenStore& store,
                            const std::vector<std::wstring>& domenIds) const {
  return store.IsIn(state_) && domenIds_ == domenIds;
}

void RememberedItems::Forget() noexcept {
  byCodeId_.clear();
  units_ = 0;
  state_ = nullptr;
}

// A failure leaves the cache empty.
void RememberedItems::Restart(const DomenStore& store, const std::vector<std::wstring>& domenIds) {
  Forget();
  domenIds_ = domenIds;
  state_ = store.State();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
