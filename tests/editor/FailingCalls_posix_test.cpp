// Files when the system refuses: each call that the library makes of it fails in turn.
//
// The functions below stand in for those of the C library in the whole program. They pass every
// call on, but for the one that a test wants to fail.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <system_error>

#include "editor/Files.h"
#include "support/Program.h"
#include "support/TempFolder.h"

namespace {

// What goes wrong on this thread.
struct Faults {
  std::string_view call = {};  // which function fails; any if empty
  int failIn = 0;              // the how many-th call of it fails, 0 for none
  int times = 1;               // how many calls fail in a row from there
  int error = EIO;             // what `errno` is then
  int unnamedError = 0;        // the same whenever a file without a name is asked for, 0 for none
  std::size_t portion = 0;     // the most that one call reads or writes, 0 for no limit
};

constinit thread_local Faults faults;

// Whether this call is to fail.
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

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

namespace fs = std::filesystem;

struct Outcome {
  int error;        // in which the work ended, 0 if it succeeded
  bool callFailed;  // whether the planned failure came about
};

template <class Work>
Outcome With(const Faults& planned, Work work) {
  faults = planned;
  Outcome outcome = {};
  try {
    work();
  } catch (const std::system_error& failure) {
    outcome.error = failure.code().value();
  }
  outcome.callFailed = planned.failIn != 0 && faults.failIn == 0;
  faults = {};
  return outcome;
}

template <class Work>
int ErrorOf(const Faults& planned, Work work) {
  return With(planned, work).error;
}

const std::string oldBytes(5000, 'a');
const std::string newBytes(7001, 'b');

// A folder with an old file, or with none.
struct Replaced {
  explicit Replaced(bool withOld) : old(withOld) {
    if (!old) return;
    folder.Write("a", oldBytes);
    fs::permissions(path, fs::perms{0640});
  }

  void Replace() const { ReplaceWholeFile(path.wstring(), newBytes); }

  // The folder holds what it held, and nothing else.
  bool AsBefore() const {
    return old ? ReadBytes(path) == oldBytes && Files() == 1 && Mode() == 0640 : Files() == 0;
  }

  // The folder holds the new file, and nothing else.
  bool Done() const {
    return ReadBytes(path) == newBytes && Files() == 1 && (!old || Mode() == 0640);
  }

  long Files() const {
    return std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator());
  }

  unsigned Mode() const { return static_cast<unsigned>(fs::status(path).permissions()); }

  TempFolder folder;
  fs::path path = folder.Path() / "a";
  bool old;
};

// What a system says that has no files without a name, or not in this folder.
constexpr int noUnnamed[] = {EOPNOTSUPP, EISDIR, EINVAL};

TEST(ReplaceWholeFile, LeavesTheOldFileOrTheNewOneAndNothingElseWhicheverCallFails) {
  for (const bool old : {true, false}) {
    for (const int unnamedError : {0, EOPNOTSUPP}) {
      int n = 0;
      Outcome outcome = {};
      do {
        const Replaced replaced(old);
        outcome = With({.failIn = ++n, .unnamedError = unnamedError}, [&] { replaced.Replace(); });
        EXPECT_TRUE(outcome.error == 0 ? replaced.Done() : replaced.AsBefore()) << old << ' ' << n;
        EXPECT_TRUE(outcome.error == 0 || outcome.error == EIO) << outcome.error;
      } while (outcome.callFailed);
      EXPECT_EQ(outcome.error, 0);
      EXPECT_GE(n, 5) << "it looks for the target, opens, writes and names a file";
    }
  }
}

TEST(ReplaceWholeFile, SaysWhyACallFailed) {
  struct Case {
    std::string_view call;
    int error;
  };
  const Case cases[] = {{"lstat", EACCES}, {"stat", ELOOP},    {"open", EACCES}, {"write", ENOSPC},
                        {"fchmod", EPERM}, {"linkat", EMLINK}, {"rename", EXDEV}};
  for (const auto& [call, error] : cases) {
    const Replaced replaced(true);
    const Outcome outcome =
        With({.call = call, .failIn = 1, .error = error}, [&] { replaced.Replace(); });
    EXPECT_TRUE(outcome.callFailed) << call;
    EXPECT_EQ(outcome.error, error) << call;
    EXPECT_TRUE(replaced.AsBefore()) << call;
  }
}

TEST(ReplaceWholeFile, NeedsNoFilesWithoutAName) {
  for (const bool old : {true, false}) {
    for (const int error : noUnnamed) {
      const Replaced replaced(old);
      EXPECT_EQ(ErrorOf({.unnamedError = error}, [&] { replaced.Replace(); }), 0);
      EXPECT_TRUE(replaced.Done()) << old << ' ' << error;
    }
  }
}

TEST(ReplaceWholeFile, NeedsNoWayToNameAFileLater) {
  const Replaced replaced(true);
  const Faults faultsOfLinks{.call = "linkat", .failIn = 1, .error = ENOENT};
  EXPECT_EQ(ErrorOf(faultsOfLinks, [&] { replaced.Replace(); }), 0);
  EXPECT_TRUE(replaced.Done());
}

TEST(ReplaceWholeFile, EndsWithTheFirstErrorWhereNoFilesWithoutANameAreTheReason) {
  const Replaced replaced(true);
  EXPECT_EQ(ErrorOf({.unnamedError = ENOSPC}, [&] { replaced.Replace(); }), ENOSPC);
  EXPECT_TRUE(replaced.AsBefore());
}

TEST(ReplaceWholeFile, TriesAgainWhereAnotherProcessTookTheNameOnTheWay) {
  const Replaced replaced(true);
  const Faults taken{.call = "rename", .failIn = 1, .error = ENOENT};
  EXPECT_EQ(ErrorOf(taken, [&] { replaced.Replace(); }), 0);
  EXPECT_TRUE(replaced.Done());
}

TEST(ReplaceWholeFile, GivesUpWhereTheNameOnTheWayStaysTaken) {
  const Replaced replaced(true);
  const Faults taken{.call = "linkat", .failIn = 1, .times = 1000, .error = EEXIST};
  EXPECT_EQ(ErrorOf(taken, [&] { replaced.Replace(); }), EBUSY);
  EXPECT_TRUE(replaced.AsBefore());
}

TEST(ReplaceWholeFile, WritesOnWhereACallWritesLessOrIsInterrupted) {
  for (const int unnamedError : {0, EOPNOTSUPP}) {
    const Replaced replaced(true);
    const Faults interrupted{.call = "write",
                             .failIn = 3,
                             .times = 2,
                             .error = EINTR,
                             .unnamedError = unnamedError,
                             .portion = 1000};
    EXPECT_EQ(ErrorOf(interrupted, [&] { replaced.Replace(); }), 0);
    EXPECT_TRUE(replaced.Done());
  }
}

// What the file gives with these faults, and the planned failure comes about.
std::string ReadWith(const std::wstring& file, const Faults& planned) {
  std::optional<std::string> bytes;
  const Outcome outcome = With(planned, [&] { bytes = ReadFile(file); });
  EXPECT_EQ(outcome.callFailed, planned.failIn != 0);
  return bytes.value_or("no file");
}

TEST(ReadFile, GivesWhatWasReadUntilACallFailed) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", newBytes);
  for (int n = 1; n <= 8; ++n) {
    const std::string bytes = ReadWith(file, {.call = "read", .failIn = n, .portion = 1000});
    EXPECT_TRUE(newBytes.starts_with(bytes));
    EXPECT_EQ(bytes.size(), 1000u * static_cast<unsigned>(n - 1)) << n;
  }
}

TEST(ReadFile, ReadsOnWhereACallReadsLessOrIsInterrupted) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", newBytes);
  const Faults interrupted{
      .call = "read", .failIn = 3, .times = 2, .error = EINTR, .portion = 1000};
  EXPECT_TRUE(ReadWith(file, interrupted) == newBytes);
}

TEST(ReadFile, NeedsNotBeToldTheSizeOfTheFile) {
  const TempFolder folder;
  for (const std::size_t size : {0, 4095, 4096, 4097, 8192, 100'000}) {
    const std::string content(size, 'c');
    const std::wstring file = folder.Write("a", content);
    EXPECT_TRUE(ReadWith(file, {.call = "fstat", .failIn = 1}) == content) << size;
  }
}

TEST(Exists, RaisesWhatTheSystemHasAgainstAnAnswer) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", "");
  for (const int error : {EACCES, EIO, ELOOP}) {
    EXPECT_EQ(ErrorOf({.call = "stat", .failIn = 1, .error = error}, [&] { Exists(file); }), error);
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
