#include "mapping/MapTextRecords.h"

#include "mapping/CodeIndex.h"

namespace TolvenLibs::RevitMappingEditorDll {

MapTextRecords& MapTextRecords::operator=(const MapTextRecords& other) {
  // Whatever can fail comes first.
  MapTextRecords copy(other);
  Swap(copy.records_);
  indexes_.swap(copy.indexes_);
  return *this;
}

void MapTextRecords::Swap(std::vector<MapTextRecord>& records) noexcept {
  records_.swap(records);
  indexes_.clear();
  items_.Forget();
}

const CodeIndex* MapTextRecords::Index() const {
  // For programs that switch between a few locales. The oldest index is evicted.
  constexpr std::size_t mostLocales = 4;
  for (const auto& index : indexes_) {
    if (index->IsCurrent()) return index.get();
  }
  try {
    auto index = std::make_shared<const CodeIndex>(records_);
    if (indexes_.size() == mostLocales) indexes_.erase(indexes_.begin());
    return indexes_.emplace_back(std::move(index)).get();
  } catch (...) {
    return nullptr;
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
