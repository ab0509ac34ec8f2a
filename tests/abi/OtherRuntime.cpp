// A caller with another C runtime than the library's, and so with another heap. It releases results
// of every kind by the library's function and checks that each is returned to the library's heap.
//
//   other_runtime DOMAINS
//
// The exit status is 77 if the two share a heap after all.

#include <malloc.h>
#include <windows.h>

#include <cstdio>
#include <iterator>

#include "RevitMappingEditorDll.h"
#include "RevitMappingEditorRelease.h"

namespace {

using TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

bool failed = false;

void Expect(bool holds, const char* what) {
  if (holds) return;
  std::printf("wrong: %s\n", what);
  failed = true;
}

// Returns the heap of a block, or null if it is in none.
HANDLE HeapOf(const void* block) {
  HANDLE heaps[64];
  const DWORD count = GetProcessHeaps(std::size(heaps), heaps);
  for (DWORD i = 0; i < count && i < std::size(heaps); ++i) {
    if (HeapValidate(heaps[i], 0, block)) return heaps[i];
  }
  return nullptr;
}

void Release(const void* result, const char* what) {
  const HANDLE heap = HeapOf(result);
  Expect(heap != nullptr, what);
  RevitMappingEditorRelease(result);
  Expect(heap == nullptr || !HeapValidate(heap, 0, result), what);
}

void ReleaseAll(int count, const wchar_t** texts) {
  for (int i = 0; i < count; ++i) Release(texts[i], "a string of an array");
  Release(texts, "an array of strings");
}

void ReleaseCheckInfo(RevitMappingEditorDll& editor, const wchar_t* domenId) {
  int count = 0;
  const wchar_t** ids = nullptr;
  bool* uniqueFlags = nullptr;
  int* fieldCounts = nullptr;
  bool* listFlags = nullptr;
  editor.GetDomenPropertiesCheckInfo(domenId, count, ids, uniqueFlags, fieldCounts, listFlags);
  Expect(count > 0, "the properties of a domain");
  if (count <= 0) return;
  ReleaseAll(count, ids);
  Release(uniqueFlags, "an array of flags");
  Release(fieldCounts, "an array of numbers");
  Release(listFlags, "an array of flags");
}

void ReleaseDomens(RevitMappingEditorDll& editor) {
  int count = 0;
  const wchar_t** ids = editor.GetDomensIds(count);
  Expect(count > 0, "the domains");
  if (count <= 0) return;
  ReleaseCheckInfo(editor, ids[0]);
  ReleaseAll(count, ids);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  wchar_t file[1024] = L"";
  for (std::size_t i = 0; argv[1][i] != '\0' && i + 1 < std::size(file); ++i) {
    file[i] = static_cast<unsigned char>(argv[1][i]);
  }

  RevitMappingEditorDll editor(L"", L"");
  const wchar_t* mark = editor.GetStartMark();
  if (HeapOf(mark) == reinterpret_cast<HANDLE>(_get_heap_handle())) {
    std::puts("skipped: the library has the C runtime of this program");
    return 77;
  }
  Release(mark, "a string");
  Expect(editor.CreateDomen(file) == 0, "the domains are read");
  ReleaseDomens(editor);
  RevitMappingEditorRelease(nullptr);
  return failed ? 1 : 0;
}
