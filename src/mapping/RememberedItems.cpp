#include "mapping/RememberedItems.h"

#include <cstddef>
#include <utility>

#include "mapping/CodeParams.h"

namespace TolvenLibs::RevitMappingEditorDll {

RememberedItems::RememberedItems() = default;

RememberedItems::RememberedItems(const RememberedItems& /*other*/) {}

RememberedItems::~RememberedItems() = default;

const CodeItems* RememberedItems::Find(int codeId) const {
  const auto position = static_cast<std::size_t>(codeId);
  return position < byCodeId.size() ? byCodeId[position].get() : nullptr;
}

const CodeItems& RememberedItems::Keep(int codeId, CodeItems items) {
  constexpr std::size_t mostUnits = 25'000'000;
  const auto position = static_cast<std::size_t>(codeId);
  if (units + items.text.size() > mostUnits) Forget();
  if (byCodeId.size() <= position) byCodeId.resize(position + 1);
  byCodeId[position] = std::make_unique<const CodeItems>(std::move(items));
  units += byCodeId[position]->text.size();
  return *byCodeId[position];
}

void RememberedItems::Forget() {
  byCodeId.clear();
  units = 0;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
