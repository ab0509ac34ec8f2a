#pragma once

#include <optional>
#include <string>
#include <vector>

// What the command line asks for. All texts are UTF-8.
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

// The options of a command line, or nothing if it asked for the help or the version, which is then
// printed. Throws a `Failure` for a command line that makes no sense.
std::optional<Options> ParseOptions(std::vector<std::string> arguments);
