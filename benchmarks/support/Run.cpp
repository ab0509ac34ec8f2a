#include "support/Run.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string_view>

bool TakeBrief(int& argumentCount, char** arguments) {
  char** const end = arguments + argumentCount;
  char** const kept =
      std::remove_if(arguments, end, [](std::string_view text) { return text == "--brief"; });
  *kept = nullptr;
  const bool found = kept != end;
  argumentCount = static_cast<int>(kept - arguments);
  return found;
}

void ReturnFreeMemory() {
  malloc_trim(0);
}

int RunCases(int argumentCount, char** arguments) {
  benchmark::Initialize(&argumentCount, arguments);
  if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments)) return EXIT_FAILURE;
  return benchmark::RunSpecifiedBenchmarks() > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

std::string CaseName(const std::string& row, const std::string& who, const std::string& size) {
  return row + "/" + who + "/" + size;
}

void Require(bool equal, const std::string& what) {
  if (equal) return;
  std::cerr << what << " gives other answers\n";
  std::exit(EXIT_FAILURE);
}
