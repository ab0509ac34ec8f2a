#pragma once

#include <optional>
#include <string>
#include <vector>

// The options of the command line. All texts are UTF-8.
struct Options {
  std::string classificator;
  std::string paramName = "ClassCode";
  std::vector<std::string> domens;
  int sourceKind = 1;
  std::string nameSuffix = "=";
  std::string startMark;
  std::string endMark;
  std::string dataFolder = ".";
  int column = 0;
  bool colours = false;
  std::string list;
  std::vector<std::string> types;
  std::string elements;
  std::string exportDomen;  // with `exportTarget`, instead of elements
  std::string exportTarget;
};

// Returns the options of a command line, or prints the help or the version if requested and returns
// nothing. Throws a `Failure` if the command line is invalid.
std::optional<Options> ParseOptions(std::vector<std::string> arguments);
