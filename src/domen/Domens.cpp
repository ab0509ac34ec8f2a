#include "domen/Domens.h"

#include <type_traits>
#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

// A map can need memory to be moved, and never to be swapped.
static_assert(std::is_nothrow_swappable_v<Domens::Map>);

Domens& Domens::operator=(Domens&& other) noexcept {
  if (this == &other) return *this;
  revision = std::move(other.revision);
  map.swap(other.map);
  other.map.clear();
  return *this;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
