// Tests of `ReplaceWholeFile` for POSIX only: permissions, devices, and processes that are killed.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <system_error>

#include "base/Files.h"
#include "support/Apart.h"
#include "support/NamesIn.h"
#include "support/PlainUser.h"
#include "support/Program.h"
#include "support/ReplaceBy.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

namespace fs = std::filesystem;

unsigned ModeOf(const fs::path& path) {
  return static_cast<unsigned>(fs::status(path).permissions());
}

// Limits the size of this process's files. A write beyond it kills the process if `killed`, or else
// fails, as on a full disk.
void LimitFileSize(rlim_t size, bool killed) {
  std::signal(SIGXFSZ, killed ? SIG_DFL : SIG_IGN);
  const rlimit limit = {size, size};
  setrlimit(RLIMIT_FSIZE, &limit);
}

// Kills this process after the time.
void DieIn(std::chrono::microseconds time) {
  std::signal(SIGALRM, SIG_DFL);
  itimerval timer = {};
  timer.it_value.tv_sec = static_cast<time_t>(time.count() / 1'000'000);
  timer.it_value.tv_usec = static_cast<suseconds_t>(time.count() % 1'000'000 + 1);
  setitimer(ITIMER_REAL, &timer, nullptr);
}

// Returns whether the file system has files without a name, so that a killed process leaves none.
bool HasUnnamedFiles([[maybe_unused]] const fs::path& folder) {
#ifdef O_TMPFILE
  const int file = open(folder.c_str(), O_TMPFILE | O_WRONLY, 0600);
  if (file >= 0) close(file);
  return file >= 0;
#else
  return false;
#endif
}

TEST(ReplaceWholeFile, KeepsThePermissionsOfTheOldFile) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", "old");
  for (const unsigned mode : {0600u, 0644u, 0755u, 0666u, 0777u, 0620u}) {
    fs::permissions(folder.Path() / "a", static_cast<fs::perms>(mode));
    ReplaceBy(file, "new");
    EXPECT_EQ(ModeOf(folder.Path() / "a"), mode);
  }
}

TEST(ReplaceWholeFile, CreatesANewFileWithThePermissionsThatNewFilesHave) {
  const TempFolder folder;
  const mode_t before = umask(0);
  for (const mode_t mask : {mode_t{0}, mode_t{022}, mode_t{077}, mode_t{027}}) {
    umask(mask);
    ReplaceBy(folder.Wide() + L"/a", "new");
    EXPECT_EQ(ModeOf(folder.Path() / "a"), 0666u & ~mask);
    fs::remove(folder.Path() / "a");
  }
  umask(before);
}

TEST(ReplaceWholeFile, LeavesTheOldFileToThoseWhoHaveItOpen) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", "old");
  std::ifstream reader(folder.Path() / "a", std::ios::binary);
  ReplaceBy(file, "new and longer");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
  EXPECT_EQ(ReadBytes(folder.Path() / "a"), "new and longer");
}

TEST(ReplaceWholeFile, NeverReplacesADevice) {
  struct stat before = {};
  if (stat("/dev/null", &before) != 0 || !S_ISCHR(before.st_mode)) GTEST_SKIP() << "no device here";
  const TempFolder folder;
  fs::create_symlink("/dev/null", folder.Path() / "link");
  EXPECT_THROW(ReplaceBy(L"/dev/null", "new"), std::system_error);
  EXPECT_THROW(ReplaceBy(folder.Wide() + L"/link", "new"), std::system_error);
  struct stat after = {};
  ASSERT_EQ(lstat("/dev/null", &after), 0);
  EXPECT_TRUE(S_ISCHR(after.st_mode));
  EXPECT_EQ(after.st_ino, before.st_ino);
  EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"link"});
}

TEST(ReplaceWholeFile, NeverReplacesAPipeAndDoesNotWaitForIt) {
  const TempFolder folder;
  const fs::path pipe = folder.Path() / "pipe";
  if (mkfifo(pipe.c_str(), 0600) != 0) GTEST_SKIP() << "no pipes can be made here";
  EXPECT_THROW(ReplaceBy(folder.Wide() + L"/pipe", "new"), std::system_error);
  EXPECT_TRUE(fs::is_fifo(pipe));
  EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"pipe"});
}

TEST(ReadWholeFile, RaisesAnExceptionForAPipeAndADeviceAndDoesNotWaitForThem) {
  const TempFolder folder;
  EXPECT_THROW(ReadWholeFile(L"/dev/null"), std::system_error);
  if (mkfifo((folder.Path() / "pipe").c_str(), 0600) != 0) GTEST_SKIP() << "no pipes here";
  EXPECT_THROW(ReadWholeFile(folder.Wide() + L"/pipe"), std::system_error);
}

// Returns the error of a replacement.
std::error_code ErrorOf(const std::wstring& path) {
  try {
    ReplaceBy(path, "new");
    return {};
  } catch (const std::system_error& error) {
    return error.code();
  }
}

TEST(ReplaceWholeFile, DistinguishesAFolderFromOtherThingsThatAreNoFiles) {
  const TempFolder folder;
  const fs::path pipe = folder.Path() / "pipe";
  if (mkfifo(pipe.c_str(), 0600) != 0) GTEST_SKIP() << "no pipes can be made here";
  EXPECT_EQ(ErrorOf(folder.Wide()), std::errc::is_a_directory);
  EXPECT_EQ(ErrorOf(folder.Wide() + L"/pipe"), std::errc::invalid_argument);
  EXPECT_EQ(ErrorOf(folder.Wide() + L"/file"), std::error_code());
}

TEST(ReplaceWholeFile, MakesNothingInAFolderThatMayNotBeWritten) {
  const TempFolder folder;
  const fs::path closed = folder.Path() / "closed";
  fs::create_directory(closed);
  folder.Write("closed/old", "old");
  fs::permissions(closed, fs::perms::owner_read | fs::perms::owner_exec);
  std::optional<PlainUser> plainUser(std::in_place);
  const bool refused = access(closed.c_str(), W_OK) != 0;
  if (refused) {
    EXPECT_THROW(ReplaceBy(folder.Wide() + L"/closed/new", "new"), std::system_error);
    EXPECT_THROW(ReplaceBy(folder.Wide() + L"/closed/old", "new"), std::system_error);
  }
  plainUser.reset();
  fs::permissions(closed, fs::perms::owner_all);
  if (!refused) GTEST_SKIP() << "no folder is closed to this user";
  EXPECT_EQ(NamesIn(closed), std::set<std::string>{"old"});
  EXPECT_EQ(ReadBytes(closed / "old"), "old");
}

TEST(ReplaceWholeFile, LeavesAFileThatMayNotBeWritten) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", "old");
  fs::permissions(folder.Path(), fs::perms::all);
  fs::permissions(folder.Path() / "a", fs::perms{0444});
  std::optional<PlainUser> plainUser(std::in_place);
  const bool refused = access((folder.Path() / "a").c_str(), W_OK) != 0;
  if (refused) {
    EXPECT_THROW(ReplaceBy(file, "new"), std::system_error);
  }
  plainUser.reset();
  if (!refused) GTEST_SKIP() << "no file is closed to this user";
  EXPECT_EQ(ReadBytes(folder.Path() / "a"), "old");
  EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a"});
}

const std::string oldBytes(1'000'000, 'a');
const std::string newBytes(1'000'003, 'b');

TEST(ReplaceWholeFile, LeavesTheOldFileAndNothingElseIfTheNewOneDoesNotFit) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", oldBytes);
  const auto ends = [](const std::wstring& path, rlim_t size) {
    return RunApart([&] {
      LimitFileSize(size, false);
      try {
        ReplaceBy(path, newBytes);
      } catch (const std::system_error& error) {
        _exit(error.code() == std::errc::file_too_large ? 1 : 2);
      }
    });
  };
  for (const rlim_t size : {rlim_t{0}, rlim_t{1}, rlim_t{4096}, rlim_t{1'000'002}}) {
    EXPECT_EQ(WEXITSTATUS(ends(file, size)), 1) << size;
    EXPECT_EQ(WEXITSTATUS(ends(folder.Wide() + L"/new", size)), 1) << size;
    EXPECT_TRUE(ReadBytes(folder.Path() / "a") == oldBytes) << size;
    EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a"}) << size;
  }
  EXPECT_EQ(ends(file, rlim_t{1'000'003}), 0);
  EXPECT_TRUE(ReadBytes(folder.Path() / "a") == newBytes);
}

TEST(ReplaceWholeFile, LeavesTheOldFileAndNothingElseIfTheProcessDiesInTheMiddleOfTheWrite) {
  const TempFolder folder;
  if (!HasUnnamedFiles(folder.Path())) GTEST_SKIP() << "every file has a name here";
  const std::wstring file = folder.Write("a", oldBytes);
  for (const rlim_t size : {rlim_t{0}, rlim_t{4096}, rlim_t{1'000'002}}) {
    const int status = RunApart([&] {
      const rlimit noCore = {0, 0};
      setrlimit(RLIMIT_CORE, &noCore);
      LimitFileSize(size, true);
      ReplaceBy(file, newBytes);
    });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ) << size;
    EXPECT_TRUE(ReadBytes(folder.Path() / "a") == oldBytes) << size;
    EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a"}) << size;
  }
}

// The number of processes that a test kills. More of them are likelier to find a harmful moment.
constexpr int killings = 25;

// Kills processes that replace the file by the two texts in turn, each at another moment. Returns
// how often another file was left in the folder.
int KillOverAndOver(const TempFolder& folder, const std::string& one, const std::string& other,
                    int times, std::chrono::microseconds latest) {
  const std::wstring file = folder.Write("a", one);
  const fs::path path = folder.Path() / "a";
  std::minstd_rand random;
  int left = 0;
  for (int i = 0; i < times; ++i) {
    std::uniform_int_distribution<long> anyMoment(0, static_cast<long>(latest.count()));
    const std::chrono::microseconds moment(anyMoment(random));
    const int status = RunApart([&] {
      DieIn(moment);
      while (true) {
        ReplaceBy(file, other);
        ReplaceBy(file, one);
      }
    });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM);
    const std::string bytes = ReadBytes(path);
    EXPECT_TRUE(bytes == one || bytes == other) << "the old file or the new one, whole";
    const std::size_t names = NamesIn(folder.Path()).size();
    EXPECT_LE(names, 2u) << "what one process leaves goes with the next";
    left += names == 2;
  }
  return left;
}

TEST(ReplaceWholeFile, LeavesTheOldFileOrTheNewOneWheneverTheProcessDies) {
  const TempFolder folder;
  if (!HasUnnamedFiles(folder.Path())) GTEST_SKIP() << "every file has a name here";
  KillOverAndOver(folder, oldBytes, newBytes, killings, std::chrono::milliseconds(2));
  ReplaceBy(folder.Wide() + L"/a", "last");
  EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a"});
}

TEST(ReplaceWholeFile, RemovesWhatACrashedProcessLeftBetweenItsLastTwoSteps) {
  const TempFolder folder;
  if (!HasUnnamedFiles(folder.Path())) GTEST_SKIP() << "every file has a name here";
  const int left = KillOverAndOver(folder, "a", "b", killings, std::chrono::microseconds(500));
  RecordProperty("left", left);
  ReplaceBy(folder.Wide() + L"/a", "last");
  EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a"});
  EXPECT_EQ(ReadBytes(folder.Path() / "a"), "last");
}

// In a process without standard input, a file can have the descriptor 0. `errno` may have any value
// from an earlier call.
TEST(ReplaceWholeFile, AndReadFileTakeTheFirstNumberThatAFileMayHave) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", "old");
  const int status = RunApart([&] {
    close(STDIN_FILENO);
    errno = EINVAL;
    ReplaceBy(file, "new");
    const bool closed = fcntl(STDIN_FILENO, F_GETFD) == -1;
    _exit(closed && ReadFile(file) == "new" ? 0 : 1);
  });
  EXPECT_EQ(status, 0);
}

TEST(ReplaceWholeFile, ShowsReadersTheOldFileOrTheNewOneWhole) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", oldBytes);
  const pid_t child = fork();
  if (child == 0) {
    for (int i = 0; i < 10; ++i) {
      ReplaceBy(file, newBytes);
      ReplaceBy(file, oldBytes);
    }
    _exit(0);
  }
  int status = -1;
  while (waitpid(child, &status, WNOHANG) == 0) {
    const std::string bytes = ReadBytes(folder.Path() / "a");
    ASSERT_TRUE(bytes == oldBytes || bytes == newBytes) << bytes.size();
  }
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
