// The file system by the Windows API.

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "base/Files.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace fs = std::filesystem;

namespace {

std::error_code LastError() {
  return {static_cast<int>(GetLastError()), std::system_category()};
}

void Check(bool succeeded) {
  if (!succeeded) throw std::system_error(LastError());
}

// Returns the path in a form that may exceed 260 units: absolute, with the prefix that lifts the
// old limit. If it is short even when absolute, it stays as it is, for Windows to interpret.
std::wstring ToNativePath(const std::wstring& path) {
  if (path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\")) return path;
  std::wstring absolute(path.size() + MAX_PATH, L'\0');
  DWORD length = 0;
  while ((length = GetFullPathNameW(path.c_str(), static_cast<DWORD>(absolute.size()),
                                    absolute.data(), nullptr)) >= absolute.size()) {
    absolute.resize(length);
  }
  absolute.resize(length);
  constexpr std::size_t oldLimit = 248;
  if (absolute.size() < oldLimit) return path;
  if (absolute.starts_with(L"\\\\")) return L"\\\\?\\UNC" + absolute.substr(1);
  return L"\\\\?\\" + absolute;
}

// Owns a file handle.
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() {
    if (IsOpen()) CloseHandle(handle_);
  }

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_;
};

// How many of `size` bytes one call reads or writes at most.
DWORD Chunk(std::size_t size) {
  return static_cast<DWORD>(std::min<std::size_t>(size, 1u << 30));
}

void Write(const Handle& file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    Check(WriteFile(file.Get(), bytes.data(), Chunk(bytes.size()), &written, nullptr) != 0);
    bytes.remove_prefix(written);
  }
}

Handle OpenToRead(const std::wstring& path) {
  return Handle(CreateFileW(ToNativePath(path).c_str(), GENERIC_READ,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// Opens a file or a folder, following links. Access to the attributes alone is granted even if
// another process has locked the file.
Handle OpenAttributes(const std::wstring& path) {
  return Handle(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                            OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

// Returns the bytes up to the end of the file (`whole`) or up to a failure.
std::string ReadAll(const Handle& file, bool& whole) {
  LARGE_INTEGER size = {};
  if (GetFileSizeEx(file.Get(), &size) == 0) size.QuadPart = 0;

  // One byte more than the reported size, so that the second read sees the end.
  std::string bytes(static_cast<std::size_t>(size.QuadPart) + 1, '\0');
  std::size_t filled = 0;
  DWORD got = 0;
  while (true) {
    whole = ::ReadFile(file.Get(), bytes.data() + filled, Chunk(bytes.size() - filled), &got,
                       nullptr) != 0;
    if (!whole || got == 0) break;
    filled += got;
    if (filled == bytes.size()) bytes.resize(2 * filled);
  }
  bytes.resize(filled);
  return bytes;
}

// Sets whether the file is deleted when its last handle is closed, as by the end of the process.
void SetTemporary(const Handle& file, bool temporary) {
  FILE_DISPOSITION_INFO disposition = {};
  disposition.DeleteFile = temporary;
  Check(SetFileInformationByHandle(file.Get(), FileDispositionInfo, &disposition,
                                   sizeof disposition) != 0);
}

// Returns the path of the file that a link leads to; any other path as it is.
std::wstring ResolveLinks(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    return path;
  }
  const Handle file = OpenAttributes(path);
  Check(file.IsOpen());
  std::wstring final(32768, L'\0');
  const DWORD length =
      GetFinalPathNameByHandleW(file.Get(), final.data(), static_cast<DWORD>(final.size()), 0);
  Check(length != 0 && length < final.size());
  final.resize(length);
  return final;
}

// Returns a temporary path in the target's folder. It is always the same, so that the next
// replacement removes what a killed process left.
std::wstring TemporaryPath(const std::wstring& target) {
  const std::size_t nameStart = target.find_last_of(L"\\/:") + 1;
  return target.substr(0, nameStart) + L".mapping-editor-" +
         std::to_wstring(std::hash<std::wstring>()(target.substr(nameStart))) + L".new";
}

// Writes a file that the system deletes if the process ends before it is complete.
void WriteTemporary(const std::wstring& name, const WriteBytes& write) {
  const Handle file(CreateFileW(name.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  Check(file.IsOpen());
  SetTemporary(file, true);
  write([&file](std::string_view bytes) { Write(file, bytes); });
  SetTemporary(file, false);
}

}  // namespace

bool Exists(const std::wstring& path) {
  const Handle file = OpenAttributes(ToNativePath(path));
  if (file.IsOpen()) return true;
  const std::error_code error = LastError();
  switch (error.value()) {
    case ERROR_SHARING_VIOLATION:
      return true;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_INVALID_NAME:
      return false;
    default:
      throw fs::filesystem_error("exists", fs::path(path), error);
  }
}

std::optional<std::string> ReadFile(const std::wstring& path) {
  const Handle file = OpenToRead(path);
  if (!file.IsOpen()) return std::nullopt;
  bool whole = false;
  return ReadAll(file, whole);
}

std::string ReadWholeFile(const std::wstring& path) {
  const Handle file = OpenToRead(path);
  Check(file.IsOpen());
  if (GetFileType(file.Get()) != FILE_TYPE_DISK) {
    throw std::system_error(std::make_error_code(std::errc::invalid_argument));
  }
  bool whole = false;
  std::string bytes = ReadAll(file, whole);
  Check(whole);
  return bytes;
}

void ReplaceWholeFile(const std::wstring& path, const WriteBytes& write) {
  const std::wstring target = ResolveLinks(ToNativePath(path));
  const DWORD attributes = GetFileAttributesW(target.c_str());
  constexpr DWORD closed = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & closed) != 0) {
    throw std::system_error(ERROR_ACCESS_DENIED, std::system_category());
  }
  const std::wstring temporary = ToNativePath(TemporaryPath(target));
  WriteTemporary(temporary, write);
  if (MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) != 0) return;
  const std::error_code error = LastError();
  DeleteFileW(temporary.c_str());
  throw std::system_error(error);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
