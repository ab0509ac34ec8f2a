#pragma once

#include <filesystem>
#include <optional>
#include <string>

struct Outcome {
  int status;
  std::string output;
  std::string errors;
};

// Returns all bytes of a file, or none if it can't be read.
std::string ReadBytes(const std::filesystem::path& path);

// Returns all bytes of a file, or nothing if there is no such file.
std::optional<std::string> ReadBytesIfThere(const std::filesystem::path& path);

// Normalises the line ends of a program's output.
std::string WithoutCarriageReturns(std::string text);

// Runs a program with `folder` as its current folder. The arguments are a part of a command line
// and may redirect the input. `outputTo` redirects the output to a file. The texts are UTF-8.
Outcome RunProgram(const std::string& program, const std::string& arguments,
                   const std::filesystem::path& folder, const std::string& outputTo = "");
