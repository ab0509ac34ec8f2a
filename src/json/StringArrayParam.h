// Requests for arrays of strings of the configuration library.

#pragma once

#include <string>
#include <vector>

class JSON5Section;

namespace TolvenLibs::RevitMappingEditorDll {

// Returns a new array of new NUL-terminated copies of the texts; null for no texts. The caller owns
// the array and the strings, all made with `new[]`.
const wchar_t** MakeWideArray(const std::vector<std::wstring>& texts);

// Requests an array of strings of an open section, with `values` as the defaults, and replaces
// `values` by the result. Returns whether the result is the file's array.
//
// Frees the arrays that it owns, but never the strings in them: the configuration library owns
// those of the defaults from the request on, and may keep them.
bool ReadStringArrayParam(JSON5Section& section, const wchar_t* key,
                          std::vector<std::wstring>& values, const wchar_t* comment,
                          bool overriding = false);

}  // namespace TolvenLibs::RevitMappingEditorDll
