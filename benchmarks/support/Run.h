// What all programs share: their arguments, the names of cases, and timing cases that can't simply
// be repeated.

#pragma once

#include <benchmark/benchmark.h>

#include <ctime>
#include <string>
#include <utility>

// Removes `--brief` from the arguments and returns whether it was there: everything is run once, at
// its smallest size.
bool TakeBrief(int& argumentCount, char** arguments);

// Removes `--titles=FOLDER` from the arguments and returns the folder, or "" if it was not there.
std::string TakeTitles(int& argumentCount, char** arguments);

// Returns all free memory to the system, so that each load needs new memory, as the only load of a
// process does. Otherwise a small file would be read into memory that a large one has left.
void ReturnFreeMemory();

// Runs the registered cases that the other arguments select. Returns the program's exit status.
int RunCases(int argumentCount, char** arguments);

// Returns "row/who/size", the name by which the report finds the figures.
std::string CaseName(const std::string& row, const std::string& who, const std::string& size);

// Ends the program unless the results of two contestants are equal.
void Require(bool equal, const std::string& what);

// Registers a case with one call per iteration.
template <class Call>
benchmark::internal::Benchmark* AddCase(const std::string& name, Call call) {
  return benchmark::RegisterBenchmark(name.c_str(), [call](benchmark::State& state) mutable {
    for (auto _ : state) call();
  });
}

// Registers a case with one call per iteration, which returns the time of its measured part.
template <class Call>
benchmark::internal::Benchmark* AddTimedCase(const std::string& name, Call call) {
  return benchmark::RegisterBenchmark(name.c_str(),
                                      [call](benchmark::State& state) mutable {
                                        for (auto _ : state) state.SetIterationTime(call());
                                      })
      ->UseManualTime();
}

// Returns the processor time of a call in seconds, which doesn't depend on the load of the machine.
// All files that are read have just been written and are in memory.
template <class Call>
double Seconds(Call call) {
  const std::clock_t start = std::clock();
  call();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}
