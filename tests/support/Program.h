#pragma once

#include <filesystem>
#include <optional>
#include <string>

struct Outcome {
  int status;
  std::string output;
  std::string errors;
};

// All bytes of a file; none if it can't be read.
std::string ReadBytes(const std::filesystem::path& path);

// The same, or nothing if there is no such file.
std::optional<std::string> ReadBytesIfThere(const std::filesystem::path& path);

// What a program printed, with the line ends that it would have anywhere.
std::string WithoutCarriageReturns(std::string text);

// Runs a program with `folder` as its current one. The arguments are those of a command line, a
// redirection of its input included. `outputTo` sends its output elsewhere than into the outcome.
// The texts are UTF-8.
Outcome RunProgram(const std::string& program, const std::string& arguments,
                   const std::filesystem::path& folder, const std::string& outputTo = "");
