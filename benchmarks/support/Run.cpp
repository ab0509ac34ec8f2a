#include "support/Run.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string_view>

namespace {

// Removes all arguments with the prefix, and returns the rest of the last one.
std::optional<std::string> TakeArgument(std::string_view prefix, int& argumentCount,
                                        char** arguments) {
  std::optional<std::string> rest;
  char** const kept =
      std::remove_if(arguments, arguments + argumentCount, [&](std::string_view argument) {
        if (!argument.starts_with(prefix)) return false;
        rest = argument.substr(prefix.size());
        return true;
      });
  *kept = nullptr;
  argumentCount = static_cast<int>(kept - arguments);
  return rest;
}

}  // namespace

bool TakeBrief(int& argumentCount, char** arguments) {
  return TakeArgument("--brief", argumentCount, arguments).has_value();
}

std::string TakeTitles(int& argumentCount, char** arguments) {
  return TakeArgument("--titles=", argumentCount, arguments).value_or("");
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
  std::cerr << what << " returns other answers\n";
  std::exit(EXIT_FAILURE);
}
