// The release of results, for a caller that doesn't share the library's C++ runtime.
//
// All that a call of the editor hands out was allocated by the library and belongs to the caller.
// Where both have one C++ runtime, the caller frees it with `delete[]`. Where they don't, that
// would give the memory back to a heap that it isn't from: a library that links its runtime into
// itself, or one that links another C runtime (msvcrt.dll, ucrtbase.dll, a debug runtime) than the
// caller, has a heap of its own. This function frees in the library what the library allocated, and
// so is right in every case; it and `delete[]` are never both used on one result.
//
//   const wchar_t* mark = editor.GetStartMark();
//   ...
//   RevitMappingEditorRelease(mark);
//
// An array of strings takes one call for each string, and one more for the array, which comes last.
// An array of numbers or flags takes one call. With a count of 0 no array was handed out: arrays
// that were null before the call are null behind it, and may be released all the same.
//
//   int count = 0;
//   const wchar_t** ids = nullptr;
//   int* sortIndexes = nullptr;
//   editor.GetPropertiesSortIndex(L"Openings", count, ids, sortIndexes);
//   ...
//   for (int i = 0; i < count; ++i) RevitMappingEditorRelease(ids[i]);
//   RevitMappingEditorRelease(ids);
//   RevitMappingEditorRelease(sortIndexes);
//
// It has a plain C name, to be found by `GetProcAddress` or declared for a call from .NET.

#pragma once

#include "RevitMappingEditorApi.h"

// Frees one string or one array that a call of any editor handed out. Null is allowed and does
// nothing. It needs no editor, whether the one that made the result still exists or not, and may be
// called by any thread. It raises nothing.
extern "C" REVIT_MAPPING_EDITOR_API void RevitMappingEditorRelease(const void* result) noexcept;
