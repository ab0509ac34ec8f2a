#pragma once

#include <string>

// An error that ends the program, with a sentence for the user and the exit status. `main` catches
// it.
struct Failure {
  int status;
  std::string sentence;
};

constexpr int failedArguments = 2;
constexpr int failedClassificator = 3;
constexpr int failedDomen = 4;
constexpr int failedElements = 5;
constexpr int failedOutput = 6;
constexpr int failedExport = 7;
constexpr int failedOtherwise = 8;
