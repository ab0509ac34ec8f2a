// Tests of reading and replacing files while each system call fails in turn.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "base/Files.h"
#include "support/DomenRows.h"
#include "support/FailingCalls.h"
#include "support/Program.h"
#include "support/ReplaceBy.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

namespace fs = std::filesystem;

const std::string oldBytes(5000, 'a');
const std::string newBytes(7001, 'b');

// A folder with an old file, or with none.
struct Replaced {
  explicit Replaced(bool withOld) : old(withOld) {
    if (!old) return;
    folder.Write("a", oldBytes);
    fs::permissions(path, fs::perms{0640});
  }

  void Replace() const { ReplaceBy(path.wstring(), newBytes); }

  bool HoldsOld() const {
    return old ? ReadBytes(path) == oldBytes && Mode() == 0640 : !fs::exists(path);
  }

  bool HoldsNew() const { return ReadBytes(path) == newBytes && (!old || Mode() == 0640); }

  // Returns whether the folder is unchanged.
  bool AsBefore() const { return HoldsOld() && Files() == (old ? 1 : 0); }

  // Returns whether the folder has the new file and nothing else.
  bool Done() const { return HoldsNew() && Files() == 1; }

  long Files() const {
    return std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator());
  }

  unsigned Mode() const { return static_cast<unsigned>(fs::status(path).permissions()); }

  TempFolder folder;
  fs::path path = folder.Path() / "a";
  bool old;
};

// The errors of a system without files without a name.
constexpr int noUnnamed[] = {EOPNOTSUPP, EISDIR, EINVAL};

TEST(ReplaceWholeFile, LeavesTheOldFileOrTheNewOneAndNothingElseWhicheverCallFails) {
  for (const bool old : {true, false}) {
    for (const int unnamedError : {0, EOPNOTSUPP}) {
      int n = 0;
      FaultyWork outcome = {};
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
  const Case cases[] = {{"lstat", EACCES}, {"stat", ELOOP},    {"faccessat", EROFS},
                        {"realpath", EIO}, {"open", EACCES},   {"write", ENOSPC},
                        {"fchmod", EPERM}, {"linkat", EMLINK}, {"rename", EXDEV}};
  for (const auto& [call, error] : cases) {
    const Replaced replaced(true);
    const FaultyWork outcome =
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

TEST(ReplaceWholeFile, RetriesIfAnotherProcessTookTheTemporaryName) {
  const Replaced replaced(true);
  const Faults taken{.call = "rename", .failIn = 1, .error = ENOENT};
  EXPECT_EQ(ErrorOf(taken, [&] { replaced.Replace(); }), 0);
  EXPECT_TRUE(replaced.Done());
}

TEST(ReplaceWholeFile, FailsIfTheTemporaryNameStaysTaken) {
  const Replaced replaced(true);
  const Faults taken{.call = "linkat", .failIn = 1, .times = 1000, .error = EEXIST};
  EXPECT_EQ(ErrorOf(taken, [&] { replaced.Replace(); }), EBUSY);
  EXPECT_TRUE(replaced.AsBefore());
}

TEST(ReplaceWholeFile, LeavesTheOldFileOrTheNewOneWhicheverCallFailsAndNothingCanBeRemoved) {
  for (const bool old : {true, false}) {
    for (const int unnamedError : {0, EOPNOTSUPP}) {
      int left = 0;
      bool failed = true;
      for (int n = 1; failed; ++n) {
        const Replaced replaced(old);
        const Faults planned{.failIn = n, .unnamedError = unnamedError, .unlinkError = EPERM};
        const FaultyWork outcome = With(planned, [&] { replaced.Replace(); });
        failed = outcome.callFailed;
        EXPECT_TRUE(outcome.error == 0 ? replaced.Done() : replaced.HoldsOld()) << n;
        EXPECT_TRUE(outcome.error == 0 || outcome.error == EIO) << outcome.error;
        left += replaced.Files() - fs::exists(replaced.path) == 1;
      }
      EXPECT_EQ(left != 0, old || unnamedError != 0) << "a file without a name goes by itself";
    }
  }
}

// It is unknown who uses the temporary name, so nobody waits for it to be free.
TEST(ReplaceWholeFile, RemovesTheNextTimeWhatItCouldNotRemove) {
  const Replaced replaced(true);
  const auto replace = [&] { replaced.Replace(); };
  const Faults first{.call = "rename", .failIn = 1, .error = EXDEV, .unlinkError = EPERM};
  EXPECT_EQ(ErrorOf(first, replace), EXDEV) << "why, and not what came of it";
  EXPECT_TRUE(replaced.HoldsOld() && replaced.Files() == 2);
  EXPECT_EQ(ErrorOf({.unlinkError = EPERM}, replace), EBUSY);
  EXPECT_TRUE(replaced.HoldsOld() && replaced.Files() == 2);
  const FaultyWork last = With({.call = "unlink", .failIn = 1}, replace);
  EXPECT_TRUE(last.callFailed && last.error == 0) << "it tries again";
  EXPECT_TRUE(replaced.Done());
}

// The next replacement doesn't use that name.
TEST(ReplaceWholeFile, LeavesWhatItCannotRemoveWhereFilesNeedNames) {
  for (const bool old : {true, false}) {
    for (const char* call : {"write", "rename"}) {
      const Replaced replaced(old);
      const auto replace = [&] { replaced.Replace(); };
      const Faults planned{.call = call,
                           .failIn = 1,
                           .error = ENOSPC,
                           .unnamedError = EOPNOTSUPP,
                           .unlinkError = EPERM};
      EXPECT_EQ(ErrorOf(planned, replace), ENOSPC) << call;
      EXPECT_TRUE(replaced.HoldsOld() && replaced.Files() == 1 + old) << call;
      EXPECT_EQ(ErrorOf({.unnamedError = EOPNOTSUPP}, replace), 0) << call;
      EXPECT_TRUE(replaced.HoldsNew() && replaced.Files() == 2) << call;
    }
  }
}

// A network file system, which has no files without a name, may report only at the end of the file
// that it is full.
TEST(ReplaceWholeFile, LeavesTheOldFileWhereAFileWithANameCannotBeClosed) {
  for (const bool old : {true, false}) {
    const Replaced replaced(old);
    const Faults planned{.call = "close", .failIn = 1, .error = ENOSPC, .unnamedError = EOPNOTSUPP};
    EXPECT_EQ(ErrorOf(planned, [&] { replaced.Replace(); }), ENOSPC);
    EXPECT_TRUE(replaced.AsBefore()) << old;
  }
}

// The file has its name by then.
TEST(ReplaceWholeFile, IsDoneWhereAFileThatHadNoNameCannotBeClosed) {
  for (const bool old : {true, false}) {
    const Replaced replaced(old);
    const FaultyWork outcome = With({.call = "close", .failIn = 1}, [&] { replaced.Replace(); });
    EXPECT_TRUE(outcome.callFailed && outcome.error == 0);
    EXPECT_TRUE(replaced.Done()) << old;
  }
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

TEST(ReplaceWholeFile, LeavesNothingWhereNotAllPiecesComeAndFilesNeedNames) {
  for (const bool old : {true, false}) {
    const Replaced replaced(old);
    const auto stop = [](const TakeBytes& take) {
      take(newBytes);
      throw std::system_error(ERANGE, std::generic_category());
    };
    const auto replace = [&] { ReplaceWholeFile(replaced.path.wstring(), stop); };
    EXPECT_EQ(ErrorOf({.unnamedError = EOPNOTSUPP}, replace), ERANGE);
    EXPECT_TRUE(replaced.AsBefore()) << old;
  }
}

// Otherwise two processes could write to one file.
TEST(ReplaceWholeFile, WritesUnderANameOfItsProcessWhereFilesNeedNames) {
  const Replaced replaced(false);
  std::string name;
  const auto look = [&](const TakeBytes& take) {
    take(newBytes);
    for (const auto& entry : fs::directory_iterator(replaced.folder.Path())) {
      name = entry.path().filename().string();
    }
  };
  const auto replace = [&] { ReplaceWholeFile(replaced.path.wstring(), look); };
  EXPECT_EQ(ErrorOf({.unnamedError = EOPNOTSUPP}, replace), 0);
  EXPECT_TRUE(name.ends_with(".new" + std::to_string(getpid()))) << name;
}

// A file left by a process with the same id, and the file of another thread, are not touched.
TEST(ReplaceWholeFile, TakesAnotherNameWhereThatOfItsProcessIsTaken) {
  const Replaced replaced(true);
  std::vector<fs::path> taken;
  for (const char* suffix : {"", "-1", "-2"}) {
    taken.push_back(replaced.folder.Path() /
                    (".mapping-editor-" + std::to_string(std::hash<std::string>()("a")) + ".new" +
                     std::to_string(getpid()) + suffix));
    replaced.folder.Write(taken.back().filename().string(), "taken");
  }
  EXPECT_EQ(ErrorOf({.unnamedError = EOPNOTSUPP}, [&] { replaced.Replace(); }), 0);
  for (const fs::path& name : taken) {
    EXPECT_EQ(ReadBytes(name), "taken");
    fs::remove(name);
  }
  EXPECT_TRUE(replaced.Done());
}

TEST(ReplaceWholeFile, FailsIfAllNamesAreTaken) {
  const Replaced replaced(true);
  const Faults taken{
      .call = "open", .failIn = 1, .times = 1000, .error = EEXIST, .unnamedError = EOPNOTSUPP};
  EXPECT_EQ(ErrorOf(taken, [&] { replaced.Replace(); }), EEXIST);
  EXPECT_TRUE(replaced.AsBefore());
}

// Reads the file with these faults and expects that the planned failure happens.
std::string ReadWith(const std::wstring& file, const Faults& planned) {
  std::optional<std::string> bytes;
  const FaultyWork outcome = With(planned, [&] { bytes = ReadFile(file); });
  EXPECT_EQ(outcome.callFailed, planned.failIn != 0);
  return bytes.value_or("no file");
}

TEST(ReadFile, ReturnsWhatWasReadUntilACallFailed) {
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

// Failures of the check for a folder and of closing the file don't change what was read.
TEST(ReadFile, ReturnsAllBytesIfACallOtherThanReadFails) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", newBytes);
  for (const char* call : {"stat", "close"}) {
    EXPECT_TRUE(ReadWith(file, {.call = call, .failIn = 1}) == newBytes) << call;
  }
  EXPECT_EQ(ReadWith(file, {.call = "open", .failIn = 1}), "no file");
}

TEST(ReadFile, NeedsNotBeToldTheSizeOfTheFile) {
  const TempFolder folder;
  for (const std::size_t size : {0u, 4095u, 4096u, 4097u, 8192u, 100'000u}) {
    const std::string content(size, 'c');
    const std::wstring file = folder.Write("a", content);
    EXPECT_TRUE(ReadWith(file, {.call = "fstat", .failIn = 1}) == content) << size;
  }
}

TEST(ReadWholeFile, RaisesWhereItCannotBeOpenedOrReadToItsEnd) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", newBytes);
  const auto read = [&] { EXPECT_TRUE(ReadWholeFile(file) == newBytes); };
  EXPECT_EQ(ErrorOf({.call = "open", .failIn = 1, .error = EACCES}, read), EACCES);
  EXPECT_NE(ErrorOf({.call = "fstat", .failIn = 1}, read), 0);
  for (int n = 1; n <= 9; ++n) {
    EXPECT_EQ(ErrorOf({.call = "read", .failIn = n, .portion = 1000}, read), EIO) << n;
  }
  EXPECT_EQ(ErrorOf({.call = "read", .failIn = 10, .portion = 1000}, read), 0);
  EXPECT_EQ(ErrorOf({.call = "close", .failIn = 1}, read), 0);
}

TEST(ReadWholeFile, ReadsOnWhereACallReadsLessOrIsInterrupted) {
  const TempFolder folder;
  const std::wstring file = folder.Write("a", newBytes);
  const Faults interrupted{
      .call = "read", .failIn = 3, .times = 2, .error = EINTR, .portion = 1000};
  EXPECT_EQ(ErrorOf(interrupted, [&] { EXPECT_TRUE(ReadWholeFile(file) == newBytes); }), 0);
}

TEST(LoadDomenJson, DoesNotTakeAPartOfAConfigurationFileForTheWhole) {
  const TempFolder folder;
  const std::wstring file =
      folder.Write("zones.json", "{Domen: {sName: 'Zones', asFuncsNames: ['P']}}");
  RevitMappingEditorDll editor(L"", L"");
  int failed = 0;
  for (bool again = true; again; ++failed) {
    int status = -1;
    again = With({.call = "read", .failIn = failed + 1, .portion = 20}, [&] {
              status = editor.CreateDomen(file.c_str());
            }).callFailed;
    EXPECT_EQ(status, again ? 3 : 0) << failed;
    EXPECT_EQ(editor.SetActiveDomenId(L"zones"), again ? -1 : 0) << failed;
  }
  EXPECT_EQ(failed, 5) << "three calls for its bytes, one for its end, and none that fails";
  EXPECT_EQ(OfType(editor, L"zones", L"Room").size(), 1u);
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
