#include <new>

#include "RevitMappingEditorRelease.h"

// Every result was made by `new T[]` of a type without constructor and destructor: wchar_t, const
// wchar_t*, int or bool. There is thus nothing to destroy, and no count in front of the elements,
// so the pointer that was handed out is the one that `operator new[]` gave; and no such type is
// aligned beyond what that operator gives by itself. So `operator delete[]` is its counterpart in
// every runtime, whatever the type was.
void RevitMappingEditorRelease(const void* result) noexcept {
  ::operator delete[](const_cast<void*>(result));
}
