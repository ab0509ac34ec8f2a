// The file system by POSIX.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/Files.h"
#include "base/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace fs = std::filesystem;

namespace {

// Returns the path in UTF-8, or nothing if it can't be encoded. The standard library's own
// conversion follows the C locale: in "C" it fails on Cyrillic letters.
std::optional<fs::path> ToNativePath(const std::wstring& path) {
  const std::optional<std::string> bytes = EncodeUtf8(path);
  if (!bytes) return std::nullopt;
  return fs::path(*bytes);
}

[[noreturn]] void ThrowError(int number) {
  throw std::system_error(number, std::generic_category());
}

void Check(bool succeeded) {
  if (!succeeded) ThrowError(errno);
}

// Owns a file descriptor.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) { Check(number >= 0); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }

  // A file system that delays writes may report their failure only here.
  void Close() { Check(close(std::exchange(number_, -1)) == 0); }

  int Number() const { return number_; }

  bool IsRegular() const {
    struct stat status = {};
    return fstat(number_, &status) == 0 && S_ISREG(status.st_mode);
  }

  // Returns the bytes up to the end of the file (`whole`) or up to a failure. A stream would lose
  // what it has read when the next read fails.
  std::string ReadAll(bool& whole) const {
    std::string bytes(FirstReadSize(), '\0');
    std::size_t filled = 0;
    ssize_t got = 0;
    while ((got = Read(bytes.data() + filled, bytes.size() - filled)) > 0) {
      filled += static_cast<std::size_t>(got);
      if (filled == bytes.size()) bytes.resize(2 * filled);
    }
    whole = got == 0;
    bytes.resize(filled);
    return bytes;
  }

  void WriteAll(const WriteBytes& write) const {
    write([this](std::string_view bytes) { Write(bytes); });
  }

 private:
  // One byte more than the reported size, so that the second read sees the end without a larger
  // buffer.
  std::size_t FirstReadSize() const {
    struct stat status = {};
    return fstat(number_, &status) == 0 ? static_cast<std::size_t>(status.st_size) + 1 : 4096;
  }

  // Reads by one call, and returns the number of bytes, 0 at the end of the file, -1 on failure.
  ssize_t Read(char* buffer, std::size_t size) const {
    ssize_t got = -1;
    do {
      got = read(number_, buffer, size);
    } while (got < 0 && errno == EINTR);
    return got;
  }

  void Write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = write(number_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      Check(written >= 0);
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  int number_;
};

// The file to be replaced.
struct Target {
  fs::path path;               // links resolved
  std::optional<mode_t> mode;  // of the old file, if there is one

  fs::path Folder() const { return path.has_parent_path() ? path.parent_path() : "."; }

  // A temporary path in the target's folder. It is always the same, so that the next replacement
  // removes what a killed process left.
  fs::path TemporaryPath() const {
    std::string name = ".mapping-editor-";
    name += std::to_string(std::hash<std::string>()(path.filename().string()));
    return Folder() / (name += ".new");
  }
};

Target FindTarget(const fs::path& path) {
  struct stat status = {};
  if (lstat(path.c_str(), &status) != 0) {
    if (errno == ENOENT) return {path, std::nullopt};
    ThrowError(errno);
  }
  Check(stat(path.c_str(), &status) == 0);
  if (!S_ISREG(status.st_mode)) ThrowError(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
  Check(faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0);
  return {fs::canonical(path), status.st_mode & 07777};
}

// Abandons a replacement whose new file has this name. REQUIRES: `errno` is set.
[[noreturn]] void RemoveAndThrow(const fs::path& name) {
  const int error = errno;
  unlink(name.c_str());
  ThrowError(error);
}

// Renames an unnamed file to the target. Other processes use the same temporary name, and may
// remove each other's; then this tries again. Returns false if the system can't name unnamed files.
bool NameUnnamed(const Descriptor& file, const Target& target) {
  std::string unnamed = "/proc/self/fd/";
  unnamed += std::to_string(file.Number());
  const auto giveName = [&unnamed](const fs::path& name) {
    return linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
  };
  if (!target.mode && giveName(target.path)) return true;
  const fs::path temporary = target.TemporaryPath();
  for (int tries = 0; tries < 1000; ++tries) {
    if (giveName(temporary)) {
      if (rename(temporary.c_str(), target.path.c_str()) == 0) return true;
      if (errno == ENOENT) continue;
      RemoveAndThrow(temporary);
    }
    if (errno == ENOENT) return false;
    Check(errno == EEXIST);
    unlink(temporary.c_str());
  }
  ThrowError(EBUSY);
}

// The usual case: the file has no name until it is complete, so that a killed process leaves none.
// Returns false if the system has no unnamed files.
bool ReplaceByUnnamed(const Target& target, const WriteBytes& write) {
  const int opened = open(target.Folder().c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
  if (opened < 0 && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) return false;
  const Descriptor file(opened);
  file.WriteAll(write);
  if (target.mode) Check(fchmod(file.Number(), *target.mode) == 0);
  return NameUnnamed(file, target);
}

// Opens a new file named after this process. A number is appended if the name is taken, by another
// thread or by what a killed process of the same id left.
int OpenTemporary(const Target& target, fs::path& name) {
  std::string suffix = std::to_string(getpid());
  int opened = -1;
  for (int tries = 1; tries <= 1000; ++tries) {
    name = target.TemporaryPath() += suffix;
    opened = open(name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
    if (opened >= 0 || errno != EEXIST) break;
    suffix = std::to_string(getpid()) + "-" + std::to_string(tries);
  }
  return opened;
}

// For all other file systems: a file under a name that nobody else uses.
void ReplaceByNamed(const Target& target, const WriteBytes& write) {
  fs::path temporary;
  Descriptor file(OpenTemporary(target, temporary));
  try {
    file.WriteAll(write);
    if (target.mode) Check(fchmod(file.Number(), *target.mode) == 0);
    file.Close();
  } catch (...) {
    unlink(temporary.c_str());
    throw;
  }
  if (rename(temporary.c_str(), target.path.c_str()) != 0) RemoveAndThrow(temporary);
}

}  // namespace

bool Exists(const std::wstring& path) {
  const std::optional<fs::path> native = ToNativePath(path);
  if (!native) return false;
  std::error_code error;
  const fs::file_status status = fs::status(*native, error);
  if (fs::exists(status)) return true;
  if (status.type() == fs::file_type::not_found || error == std::errc::filename_too_long) {
    return false;
  }
  throw fs::filesystem_error("exists", *native, error);
}

std::optional<std::string> ReadFile(const std::wstring& path) {
  const std::optional<fs::path> native = ToNativePath(path);
  std::error_code ignored;
  if (!native || fs::is_directory(*native, ignored)) return std::nullopt;
  const int opened = open(native->c_str(), O_RDONLY | O_CLOEXEC);
  if (opened < 0) return std::nullopt;
  bool whole = false;
  return Descriptor(opened).ReadAll(whole);
}

std::string ReadWholeFile(const std::wstring& path) {
  const std::optional<fs::path> native = ToNativePath(path);
  if (!native) ThrowError(ENOENT);
  const Descriptor file(open(native->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.IsRegular()) ThrowError(EINVAL);
  bool whole = false;
  std::string bytes = file.ReadAll(whole);
  if (!whole) ThrowError(EIO);
  return bytes;
}

void ReplaceWholeFile(const std::wstring& path, const WriteBytes& write) {
  const std::optional<fs::path> native = ToNativePath(path);
  if (!native) ThrowError(ENOENT);
  const Target target = FindTarget(*native);
  if (!ReplaceByUnnamed(target, write)) ReplaceByNamed(target, write);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
