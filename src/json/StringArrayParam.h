#pragma once

#include <string>
#include <vector>

class JSON5Section;

namespace TolvenLibs::RevitMappingEditorDll {

// A new array with a new NUL-terminated copy of each text, in order; null for no texts. All of it
// is made with `new[]` and passes to the caller.
const wchar_t** MakeWideArray(const std::vector<std::wstring>& texts);

// Requests an array of strings of an open section, with `values` as its defaults, and replaces
// `values` by the result. Gives whether the file's array is the result.
//
// Of the arrays that change hands it releases those that are its own to release. The strings in
// them it never does: those of the defaults are the library's from the request on, which may still
// hold them.
bool ReadStringArrayParam(JSON5Section& section, const wchar_t* key,
                          std::vector<std::wstring>& values, const wchar_t* comment,
                          bool overriding = false);

}  // namespace TolvenLibs::RevitMappingEditorDll
