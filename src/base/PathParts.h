// The parts of a path, cut by the same rules on every platform.

#pragma once

#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// What stands behind the last "\" or "/" and behind a drive prefix, without a stream suffix (":"
// and all behind it).
std::wstring_view FileName(std::wstring_view path);

// The file name from its last point on. A leading point starts no extension, and "." and ".." have
// none; a point at the very end is an extension of itself.
std::wstring_view Extension(std::wstring_view path);

// The file name without its extension.
std::wstring_view Stem(std::wstring_view path);

}  // namespace TolvenLibs::RevitMappingEditorDll
