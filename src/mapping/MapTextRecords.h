#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "mapping/MapTextRecord.h"
#include "mapping/RememberedItems.h"

namespace TolvenLibs::RevitMappingEditorDll {

class CodeIndex;

// The records of a ==MAPTEXT section, with what was worked out from them: the indexes of lookups,
// and the items of mapping strings. They are read as a vector is, and change only as a whole, so
// that nothing outlives what it was worked out from: a bare vector couldn't tell. Copies share
// their indexes, which never change.
class MapTextRecords {
 public:
  MapTextRecords() = default;
  MapTextRecords(const MapTextRecords& other) = default;
  MapTextRecords& operator=(const MapTextRecords& other);
  ~MapTextRecords() = default;

  // Takes the records, and leaves those that it had in their place. Allocates nothing.
  void Swap(std::vector<MapTextRecord>& records) noexcept;

  bool empty() const { return records_.empty(); }
  std::size_t size() const { return records_.size(); }
  const MapTextRecord& operator[](std::size_t position) const { return records_[position]; }
  auto begin() const { return records_.begin(); }
  auto end() const { return records_.end(); }

  // The index for the global locale as it is now, which the first call makes. Null if there is no
  // memory for it.
  const CodeIndex* Index() const;

  // What is remembered of the records' composed items.
  RememberedItems& Items() const { return items_; }

 private:
  std::vector<MapTextRecord> records_;
  mutable std::vector<std::shared_ptr<const CodeIndex>> indexes_;  // one for each locale
  mutable RememberedItems items_;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
