// Makes system calls fail: the functions of FailingCalls.cpp replace those of the C library in the
// whole program, and pass on every call except those that a test wants to fail.

#pragma once

#include <cerrno>
#include <cstddef>
#include <string_view>
#include <system_error>

// The planned failures on this thread.
struct Faults {
  std::string_view call = {};  // the function that fails; any if empty
  int failIn = 0;              // the number of its first call that fails, from 1; 0 for none
  int times = 1;               // how many calls in a row fail
  int error = EIO;             // the value of `errno` then
  int unnamedError = 0;        // the same for every file without a name; 0 for none
  int unlinkError = 0;         // the same for every removal of a file; 0 for none
  std::size_t portion = 0;     // the most that one call reads or writes; 0 for no limit
};

extern constinit thread_local Faults faults;

struct FaultyWork {
  int error;        // the error of the work; 0 if it succeeded
  bool callFailed;  // whether the planned failure happened
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
