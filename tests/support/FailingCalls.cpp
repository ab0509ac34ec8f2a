#include "support/FailingCalls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

constinit thread_local Faults faults;

namespace {

// Returns whether this call is to fail.
bool Fails(std::string_view call) {
  if (faults.failIn == 0 || (!faults.call.empty() && faults.call != call)) return false;
  if (faults.failIn > 1) {
    --faults.failIn;
    return false;
  }
  if (--faults.times == 0) faults.failIn = 0;
  errno = faults.error;
  return true;
}

std::size_t Portion(std::size_t size) {
  return faults.portion == 0 ? size : std::min(size, faults.portion);
}

bool AsksForUnnamed(int flags) {
  return (flags & O_TMPFILE) == O_TMPFILE;
}

}  // namespace

extern "C" {

ssize_t write(int file, const void* bytes, std::size_t size) {
  if (Fails("write")) return -1;
  return syscall(SYS_write, file, bytes, Portion(size));
}

ssize_t read(int file, void* bytes, std::size_t size) {
  if (Fails("read")) return -1;
  return syscall(SYS_read, file, bytes, Portion(size));
}

int open(const char* path, int flags, ...) {
  mode_t mode = 0;
  if ((flags & O_CREAT) != 0 || AsksForUnnamed(flags)) {
    va_list arguments;
    va_start(arguments, flags);
    mode = va_arg(arguments, mode_t);
    va_end(arguments);
  }
  if (AsksForUnnamed(flags) && faults.unnamedError != 0) {
    errno = faults.unnamedError;
    return -1;
  }
  return Fails("open") ? -1 : openat(AT_FDCWD, path, flags, mode);
}

// The descriptor is closed even if the call fails.
int close(int file) {
  const int closed = static_cast<int>(syscall(SYS_close, file));
  return Fails("close") ? -1 : closed;
}

int faccessat(int folder, const char* path, int mode, int flags) noexcept {
  if (Fails("faccessat")) return -1;
  return static_cast<int>(syscall(SYS_faccessat2, folder, path, mode, flags));
}

// `canonicalize_file_name` does the same and allocates the buffer.
char* realpath(const char* path, char* resolved) noexcept {
  if (Fails("realpath")) return nullptr;
  char* const found = canonicalize_file_name(path);
  if (!found || !resolved) return found;
  std::strcpy(resolved, found);
  std::free(found);
  return resolved;
}

int fchmod(int file, mode_t mode) noexcept {
  return Fails("fchmod") ? -1 : static_cast<int>(syscall(SYS_fchmod, file, mode));
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
  if (Fails("linkat")) return -1;
  return static_cast<int>(syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}

int rename(const char* from, const char* to) noexcept {
  return Fails("rename") ? -1 : renameat(AT_FDCWD, from, AT_FDCWD, to);
}

int unlink(const char* path) noexcept {
  if (faults.unlinkError != 0) {
    errno = faults.unlinkError;
    return -1;
  }
  return Fails("unlink") ? -1 : unlinkat(AT_FDCWD, path, 0);
}

int stat(const char* path, struct stat* status) noexcept {
  return Fails("stat") ? -1 : fstatat(AT_FDCWD, path, status, 0);
}

int lstat(const char* path, struct stat* status) noexcept {
  return Fails("lstat") ? -1 : fstatat(AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}

int fstat(int file, struct stat* status) noexcept {
  return Fails("fstat") ? -1 : fstatat(file, "", status, AT_EMPTY_PATH);
}

}  // extern "C"
