// The library's only way to the file system. What differs between platforms in what the library
// does stands behind these functions.

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Whether anything, of whatever kind, exists under `path`. A missing file or folder, a missing
// network path and an invalid name are plain absence, and so is, where paths are those of POSIX,
// one that the system finds too long. Any other error of the system, a refused access for instance,
// raises `std::filesystem::filesystem_error`.
bool Exists(const std::wstring& path);

// `file` as it stands if something exists there, or else `dataFolder`, a forward slash and `file`
// if something exists there, or else nothing. Raises as `Exists` does.
std::optional<std::wstring> FindFile(const std::wstring& dataFolder, const std::wstring& file);

// All bytes of the file, read without an exclusive claim on it; nothing if it can't be opened,
// which goes for a folder too. A failure in the middle ends the reading, and what was read until
// then is the result.
std::optional<std::string> ReadFile(const std::wstring& path);

// The same of a file that counts only as a whole. Raises `std::system_error` if it can't be opened,
// or not read to its end, or if a folder, a pipe or a device stands there. Nothing is waited for.
std::string ReadWholeFile(const std::wstring& path);

// Takes the next bytes of a file.
using TakeBytes = std::function<void(std::string_view)>;

// Gives all bytes of a file, in as many pieces as it likes. It may be called twice, and gives the
// same bytes each time.
using WriteBytes = std::function<void(const TakeBytes&)>;

// Puts a file in the place of whatever stands under `path`, in one step: whoever reads it sees the
// old file or the new one, whole. Raises `std::system_error` if that fails, and whatever `write`
// raises; the old file is as it was then. A folder is never replaced, nor anything else but a file
// that may be written. A link stays, and what it leads to is replaced.
void ReplaceWholeFile(const std::wstring& path, const WriteBytes& write);

}  // namespace TolvenLibs::RevitMappingEditorDll
