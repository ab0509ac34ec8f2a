#include "hostile/Heap.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

constinit HeapUse use;

// A block's size is stored before it.
constexpr std::size_t room = alignof(std::max_align_t);

void* Allocate(std::size_t size) noexcept {
  if (size + room < size) return nullptr;
  auto* const block = static_cast<char*>(std::malloc(size + room));
  if (!block) return nullptr;
  *reinterpret_cast<std::size_t*>(block) = size;
  use.allocated += size;
  use.taken += size;
  use.peak = std::max(use.peak, use.taken);
  return block + room;
}

void* AllocateOrThrow(std::size_t size) {
  void* const place = Allocate(size);
  if (!place) throw std::bad_alloc();
  return place;
}

void Free(void* place) noexcept {
  if (!place) return;
  char* const block = static_cast<char*>(place) - room;
  use.taken -= *reinterpret_cast<std::size_t*>(block);
  std::free(block);
}

}  // namespace

void ResetHeapUse() {
  use.allocated = 0;
  use.peak = use.taken;
}

HeapUse ReadHeapUse() {
  return use;
}

void* operator new(std::size_t size) {
  return AllocateOrThrow(size);
}
void* operator new[](std::size_t size) {
  return AllocateOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
void operator delete(void* place) noexcept {
  Free(place);
}
void operator delete[](void* place) noexcept {
  Free(place);
}
void operator delete(void* place, std::size_t) noexcept {
  Free(place);
}
void operator delete[](void* place, std::size_t) noexcept {
  Free(place);
}
void operator delete(void* place, const std::nothrow_t&) noexcept {
  Free(place);
}
void operator delete[](void* place, const std::nothrow_t&) noexcept {
  Free(place);
}
