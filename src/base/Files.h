// All access to the file system. Platforms differ only in the implementation of these functions.

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Returns whether anything exists at `path`. Missing files, folders and network paths, invalid
// names and, on POSIX, paths too long for the system don't exist. Any other error, such as a denied
// access, raises `std::filesystem::filesystem_error`.
bool Exists(const std::wstring& path);

// Returns `file` if it exists, or else `dataFolder`, a forward slash and `file` if that exists, or
// else nothing. Raises as `Exists` does.
std::optional<std::wstring> FindFile(const std::wstring& dataFolder, const std::wstring& file);

// Returns the bytes of the file, or nothing if it can't be opened or is a folder. The file isn't
// locked. If reading fails in the middle, returns what was read before.
std::optional<std::string> ReadFile(const std::wstring& path);

// Returns all bytes of the file. Raises `std::system_error` if it can't be opened or read to its
// end, or is a folder, a pipe or a device. Never blocks on these.
std::string ReadWholeFile(const std::wstring& path);

// Receives the next bytes of a file.
using TakeBytes = std::function<void(std::string_view)>;

// Writes the bytes of a file, in any number of pieces. May be called twice. REQUIRES: it writes the
// same bytes each time.
using WriteBytes = std::function<void(const TakeBytes&)>;

// Creates or replaces the file at `path` atomically: readers see either the old file or the new
// one, whole. Raises `std::system_error` on failure, and whatever `write` raises; the old file is
// then unchanged. Only writable files are replaced, never folders or devices. Links are followed.
void ReplaceWholeFile(const std::wstring& path, const WriteBytes& write);

}  // namespace TolvenLibs::RevitMappingEditorDll
