// Lets calls of the system fail: the functions of FailingCalls.cpp stand in for those of the C
// library in the whole program, and pass on every call but the one that a test wants to fail.

#pragma once

#include <cerrno>
#include <cstddef>
#include <string_view>
#include <system_error>

// What goes wrong on this thread.
struct Faults {
  std::string_view call = {};  // which function fails; any if empty
  int failIn = 0;              // the how many-th call of it fails, 0 for none
  int times = 1;               // how many calls fail in a row from there
  int error = EIO;             // what `errno` is then
  int unnamedError = 0;        // the same whenever a file without a name is asked for, 0 for none
  int unlinkError = 0;         // the same whenever a file is to be removed, 0 for none
  std::size_t portion = 0;     // the most that one call reads or writes, 0 for no limit
};

extern constinit thread_local Faults faults;

struct FaultyWork {
  int error;        // in which the work ended, 0 if it succeeded
  bool callFailed;  // whether the planned failure came about
};

template <class Work>
FaultyWork With(const Faults& planned, Work work) {
  faults = planned;
  FaultyWork outcome = {};
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
