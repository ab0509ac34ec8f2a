// The records of a ==MAPTEXT section, with what is derived from them.

#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "mapping/MapTextRecord.h"
#include "mapping/RememberedItems.h"

namespace TolvenLibs::RevitMappingEditorDll {

class CodeIndex;

// A vector of records that changes only as a whole, so that the caches derived from it, the indexes
// of lookups and the items of mapping strings, never outlive what they were derived from. Copies
// share the indexes, which are immutable.
class MapTextRecords {
 public:
  MapTextRecords() = default;
  MapTextRecords(const MapTextRecords& other) = default;
  MapTextRecords& operator=(const MapTextRecords& other);
  ~MapTextRecords() = default;

  // Exchanges the records with `records`. Allocates nothing.
  void Swap(std::vector<MapTextRecord>& records) noexcept;

  bool empty() const { return records_.empty(); }
  std::size_t size() const { return records_.size(); }
  const MapTextRecord& operator[](std::size_t position) const { return records_[position]; }
  auto begin() const { return records_.begin(); }
  auto end() const { return records_.end(); }

  // Returns the index for the current global locale, built by the first call, or null if memory
  // runs out.
  const CodeIndex* Index() const;

  RememberedItems& Items() const { return items_; }

 private:
  std::vector<MapTextRecord> records_;
  mutable std::vector<std::shared_ptr<const CodeIndex>> indexes_;  // one for each locale
  mutable RememberedItems items_;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
