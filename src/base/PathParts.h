// The parts of a path, cut by the same rules on every platform.

#pragma once

#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Returns what follows the last "\" or "/" and a drive prefix, without a stream suffix (":...").
std::wstring_view FileName(std::wstring_view path);

// Returns the file name from its last point on, if any. A leading point starts no extension, and
// "." and ".." have none; a point at the end is an extension.
std::wstring_view Extension(std::wstring_view path);

// Returns the file name without its extension.
std::wstring_view Stem(std::wstring_view path);

}  // namespace TolvenLibs::RevitMappingEditorDll
