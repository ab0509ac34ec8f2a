#include <new>

#include "RevitMappingEditorRelease.h"

// Every result was made by `new T[]` of a trivial type: wchar_t, const wchar_t*, int or bool. There
// is nothing to destroy, no element count before the elements, and no extended alignment, so that
// the result is the pointer that `operator new[]` returned. In every runtime `operator delete[]`
// frees it, whatever the type.
void RevitMappingEditorRelease(const void* result) noexcept {
  ::operator delete[](const_cast<void*>(result));
}
