// Tests of exports that can't complete: a system call fails, the disk is full, the process is
// killed.

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/ptrace.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "support/Apart.h"
#include "support/FailingCalls.h"
#include "support/Program.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

namespace fs = std::filesystem;

// The error when a file without a name is opened: none, or that there are no such files.
constexpr int waysToReplace[] = {0, EOPNOTSUPP};

// What exports left that were each killed one stop later than the previous one, until one
// completed.
struct KilledExports {
  int keptOld = 0;
  int madeNew = 0;
  std::vector<std::string> beside = {};  // contents of other files that were left in the folder
  bool ended = false;
};

// An editor with a domain whose file has over a hundred thousand bytes, and a target for it.
class FailingExport : public testing::Test {
 protected:
  FailingExport() : editor(L"", L"") {
    std::string text = "==DOMEN\n@@@ Zones\n";
    for (int i = 0; i < 100; ++i) {
      text += "@ P" + std::to_string(i) + " 0 1 " + std::string(1000, 'n') + "\nValue int 1 0\n";
    }
    EXPECT_EQ(editor.CreateDomen(sources.Write("zones.txt", text).c_str()), 0);
    Export();
    newBytes = ReadBytes(target);
    EXPECT_GT(newBytes.size(), 100'000u);
  }

  void Export() { editor.ExportJson(L"Zones", target.wstring().c_str()); }

  // Restores the target to these bytes, or removes it.
  void Reset(const std::optional<std::string>& bytes) {
    fs::remove(target);
    if (bytes) folder.Write("zones.json", *bytes);
  }

  std::optional<std::string> Held() const { return ReadBytesIfThere(target); }

  std::set<std::string> NamesBeside() const {
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.Path())) {
      if (entry.path() != target) names.insert(entry.path().filename().string());
    }
    return names;
  }

  KilledExports ExportKilled(const std::optional<std::string>& old, int unnamedError);

  TempFolder sources;
  TempFolder folder;
  fs::path target = folder.Path() / "zones.json";
  RevitMappingEditorDll editor;
  std::string newBytes;
  const std::optional<std::string> olds[2] = {"old", std::nullopt};
};

// Returns whether it is a call for memory. Their number depends on the state of the heap.
bool AsksForMemory(std::uint64_t call) {
  return call == SYS_brk || call == SYS_mmap || call == SYS_munmap || call == SYS_madvise;
}

// Kills a process at a stop, before or after a system call of its work, and returns how it ended. A
// process with fewer stops ends by itself. Returns nothing if no process can be stopped here.
template <class Work>
std::optional<int> RunKilled(int stop, Work work) {
  const pid_t child = fork();
  if (child == 0) {
    if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(77);
    raise(SIGSTOP);
    work();
    _exit(0);
  }
  int status = -1;
  waitpid(child, &status, 0);
  if (WIFEXITED(status)) return std::nullopt;
  ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_EXITKILL | PTRACE_O_TRACESYSGOOD);
  std::uint64_t call = SYS_kill;
  for (int made = 0; WIFSTOPPED(status) && made < stop; made += !AsksForMemory(call)) {
    ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    waitpid(child, &status, 0);
    __ptrace_syscall_info stopped = {};
    ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof stopped, &stopped);
    if (stopped.op == PTRACE_SYSCALL_INFO_ENTRY) call = stopped.entry.nr;
  }
  if (!WIFSTOPPED(status)) return status;
  kill(child, SIGKILL);
  waitpid(child, &status, 0);
  return status;
}

KilledExports FailingExport::ExportKilled(const std::optional<std::string>& old, int unnamedError) {
  KilledExports exports;
  for (int stop = 1; !exports.ended && stop < 1000; ++stop) {
    Reset(old);
    const std::optional<int> status = RunKilled(stop, [&] {
      faults.unnamedError = unnamedError;
      Export();
    });
    if (!status) break;
    exports.ended = *status == 0;
    EXPECT_TRUE(exports.ended || WIFSIGNALED(*status)) << stop;
    const std::optional<std::string> held = Held();
    EXPECT_TRUE(held == old || held == newBytes) << stop;
    ++(held == old ? exports.keptOld : exports.madeNew);
    for (const std::string& name : NamesBeside()) {
      EXPECT_TRUE(name.starts_with(".mapping-editor-")) << name;
      exports.beside.push_back(ReadBytes(folder.Path() / name));
      if (unnamedError != 0) fs::remove(folder.Path() / name);
    }
  }
  return exports;
}

// Between its last two steps it leaves the complete new file under another name, which the next
// export removes.
TEST_F(FailingExport, LeavesTheOldFileOrTheNewOneAtWhicheverSystemCallTheProcessIsKilled) {
  for (const std::optional<std::string>& old : olds) {
    const KilledExports exports = ExportKilled(old, 0);
    if (exports.keptOld == 0) GTEST_SKIP() << "no process may be stopped here";
    EXPECT_TRUE(exports.ended);
    EXPECT_TRUE(Held() == newBytes);
    EXPECT_EQ(NamesBeside(), std::set<std::string>());
    EXPECT_GE(exports.keptOld, 6) << "it looks for the target, opens, writes and names a file";
    EXPECT_GE(exports.madeNew, 3);
    EXPECT_EQ(exports.beside.empty(), !old);
    for (const std::string& bytes : exports.beside) EXPECT_TRUE(bytes == newBytes);
  }
}

// Without files without a name it leaves the part that it has written.
TEST_F(FailingExport, LeavesTheOldFileOrTheNewOneAlsoWhereEveryFileHasAName) {
  for (const std::optional<std::string>& old : olds) {
    const KilledExports exports = ExportKilled(old, EOPNOTSUPP);
    if (exports.keptOld == 0) GTEST_SKIP() << "no process may be stopped here";
    EXPECT_TRUE(exports.ended);
    EXPECT_TRUE(Held() == newBytes);
    EXPECT_GE(exports.keptOld, 6);
    EXPECT_GE(exports.madeNew, 3);
    for (const std::string& bytes : exports.beside) EXPECT_TRUE(newBytes.starts_with(bytes));
  }
}

TEST_F(FailingExport, LeavesTheOldFileOrTheNewOneAndNothingElseWhicheverCallFails) {
  int most = 0;
  for (const int unnamedError : waysToReplace) {
    for (const std::optional<std::string>& old : olds) {
      for (const int error : {EIO, ENOSPC}) {
        int keptOld = 0;
        bool failed = true;
        for (int n = 1; failed; ++n) {
          Reset(old);
          failed = With({.failIn = n, .error = error, .unnamedError = unnamedError}, [&] {
                     Export();
                   }).callFailed;
          EXPECT_TRUE(Held() == newBytes || (failed && Held() == old)) << n;
          EXPECT_EQ(NamesBeside(), std::set<std::string>()) << n;
          keptOld += Held() == old;
          if (failed) most = std::max(most, n);
        }
        EXPECT_GE(keptOld, 3) << "it opens, writes and names a file";
      }
    }
  }
  RecordProperty("calls", most);
}

TEST_F(FailingExport, LeavesTheOldFileWhateverFailsBeforeItsEnd) {
  struct Case {
    std::string_view call;
    bool done;
  };
  const Case cases[] = {{"lstat", false},    {"stat", false},   {"faccessat", false},
                        {"realpath", false}, {"open", false},   {"write", false},
                        {"fchmod", false},   {"linkat", false}, {"rename", false},
                        {"close", true}};
  for (const auto& [call, done] : cases) {
    Reset(olds[0]);
    EXPECT_TRUE(With({.call = call, .failIn = 1}, [&] { Export(); }).callFailed) << call;
    EXPECT_TRUE(Held() == (done ? newBytes : olds[0])) << call;
    EXPECT_EQ(NamesBeside(), std::set<std::string>()) << call;
  }
}

TEST_F(FailingExport, LeavesTheOldFileOrTheNewOneWhicheverCallFailsAndNothingCanBeRemoved) {
  for (const int unnamedError : waysToReplace) {
    for (const std::optional<std::string>& old : olds) {
      std::set<std::string> left;
      bool failed = true;
      for (int n = 1; failed; ++n) {
        Reset(old);
        const Faults planned{.failIn = n, .unnamedError = unnamedError, .unlinkError = EPERM};
        failed = With(planned, [&] { Export(); }).callFailed;
        EXPECT_TRUE(Held() == newBytes || (failed && Held() == old)) << n;
        EXPECT_LE(NamesBeside().size(), 1u) << n;
        left.merge(NamesBeside());
        // The next export removes what one leaves, if it is certain that nobody else uses it.
        if (unnamedError != 0) {
          for (const std::string& name : NamesBeside()) fs::remove(folder.Path() / name);
        }
        Reset(olds[0]);
        Export();
        EXPECT_TRUE(Held() == newBytes) << n;
        EXPECT_EQ(NamesBeside(), std::set<std::string>()) << n;
      }
      EXPECT_EQ(left.empty(), !old && unnamedError == 0);
      for (const std::string& name : left) EXPECT_TRUE(name.starts_with(".mapping-editor-"));
    }
  }
}

TEST_F(FailingExport, LeavesAPipeAndDoesNotWaitForIt) {
  fs::remove(target);
  if (mkfifo(target.c_str(), 0600) != 0) GTEST_SKIP() << "no pipes can be made here";
  const int status = RunApart([&] {
    alarm(60);
    Export();
  });
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(fs::is_fifo(target));
  EXPECT_EQ(NamesBeside(), std::set<std::string>());
}

// Runs the work in a process with a disk of its own mounted on the folder. Returns false if no such
// disk can be made.
template <class Work>
bool RunOnDisk(const fs::path& folder, const char* size, Work work) {
  constexpr int noDisk = 77;
  const int status = RunApart([&] {
    const bool mounted = unshare(CLONE_NEWNS) == 0 &&
                         mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) == 0 &&
                         mount("none", folder.c_str(), "tmpfs", 0, size) == 0;
    if (!mounted) _exit(noDisk);
    _exit(work() ? 0 : 1);
  });
  EXPECT_TRUE(WIFEXITED(status) && (status == 0 || WEXITSTATUS(status) == noDisk)) << size;
  return status == 0;
}

TEST_F(FailingExport, LeavesTheOldFileAndNothingElseOnAFullDisk) {
  for (const int unnamedError : waysToReplace) {
    for (const std::optional<std::string>& old : olds) {
      const auto leaves = [&](const std::optional<std::string>& expected) {
        Reset(old);
        faults.unnamedError = unnamedError;
        Export();
        return Held() == expected && NamesBeside().empty();
      };
      const bool made = RunOnDisk(folder.Path(), "size=64k", [&] { return leaves(old); }) &&
                        RunOnDisk(folder.Path(), "size=1m", [&] { return leaves(newBytes); });
      if (!made && !HasFailure()) GTEST_SKIP() << "no disk can be made here";
    }
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
