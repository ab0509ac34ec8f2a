// What all programs have in common: how they are started, how cases get their names, and how a case
// is timed that can't be repeated as it stands.

#pragma once

#include <benchmark/benchmark.h>

#include <ctime>
#include <string>
#include <utility>

// Whether everything is to be run once, at its smallest size: `--brief` among the arguments, which
// is taken out of them.
bool TakeBrief(int& argumentCount, char** arguments);

// The folder of `--titles=FOLDER` among the arguments, which is taken out of them; empty if it is
// not there.
std::string TakeTitles(int& argumentCount, char** arguments);

// Gives all memory that is free back to the system, so that a load takes new memory, as the only
// load of a process does. Otherwise a small file would be read into what a large one has left.
void ReturnFreeMemory();

// Runs the registered cases that the other arguments select. Gives the exit status of the program.
int RunCases(int argumentCount, char** arguments);

// "row/who/size": the report finds its figures by these names.
std::string CaseName(const std::string& row, const std::string& who, const std::string& size);

// Ends the program if two contestants differ in what they give.
void Require(bool equal, const std::string& what);

// Registers a case of which each iteration is one call.
template <class Call>
benchmark::internal::Benchmark* AddCase(const std::string& name, Call call) {
  return benchmark::RegisterBenchmark(name.c_str(), [call](benchmark::State& state) mutable {
    for (auto _ : state) call();
  });
}

// Registers a case of which each iteration is one call, with a part of it that tells its own time.
template <class Call>
benchmark::internal::Benchmark* AddTimedCase(const std::string& name, Call call) {
  return benchmark::RegisterBenchmark(name.c_str(),
                                      [call](benchmark::State& state) mutable {
                                        for (auto _ : state) state.SetIterationTime(call());
                                      })
      ->UseManualTime();
}

// The processor time in seconds that a call takes, so that it doesn't matter what else the machine
// does meanwhile. All files that are read have been written just before, and are in memory.
template <class Call>
double Seconds(Call call) {
  const std::clock_t start = std::clock();
  call();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}
