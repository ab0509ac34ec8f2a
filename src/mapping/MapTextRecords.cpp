#include "mapping/MapTextRecords.h"

#include "mapping/CodeIndex.h"

namespace TolvenLibs::RevitMappingEditorDll {

std::vector<MapTextRecord>& MapTextRecords::Edit() {
  edited = true;
  index.reset();
  return records;
}

const CodeIndex* MapTextRecords::Index() const {
  if (edited) return nullptr;
  if (index && index->IsCurrent()) return index.get();
  try {
    index = std::make_shared<const CodeIndex>(records);
  } catch (...) {
    // Out of memory, or a letter that the locale refuses: the walk may do without either.
    index.reset();
  }
  return index.get();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
