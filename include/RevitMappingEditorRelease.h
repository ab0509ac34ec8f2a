// Frees results for callers that don't share the library's C++ runtime.
//
// The library allocates all results of the editor, and the caller owns them. If both share one C++
// runtime, the caller frees them with `delete[]`. If not, that would free them to a foreign heap: a
// library that links its runtime statically, or another C runtime (msvcrt.dll, ucrtbase.dll, a
// debug runtime) than the caller, has its own heap. This function frees in the library, and so is
// always right. REQUIRES: each result is freed once, by this function or by `delete[]`.
//
//   const wchar_t* mark = editor.GetStartMark();
//   ...
//   RevitMappingEditorRelease(mark);
//
// An array of strings takes a call for each string, then one for the array. An array of numbers or
// flags takes one call. If the count is 0, there is no array: pointers that were null before the
// call are still null after it, and may be released too.
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
// It has a plain C name, for `GetProcAddress` or for calls from .NET.

#pragma once

#include "RevitMappingEditorApi.h"

// Frees a string or an array that any editor returned. Does nothing for null. Needs no editor, may
// be called by any thread, and raises nothing.
extern "C" REVIT_MAPPING_EDITOR_API void RevitMappingEditorRelease(const void* result) noexcept;
