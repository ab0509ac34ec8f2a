#include "domen/Domens.h"

#include <type_traits>
#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

// Moving a map can allocate; swapping can't.
static_assert(std::is_nothrow_swappable_v<Domens::Map>);

Domens& Domens::operator=(Domens&& other) noexcept {
  if (this == &other) return *this;
  revision_ = std::move(other.revision_);
  map_.swap(other.map_);
  other.map_.clear();
  return *this;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
