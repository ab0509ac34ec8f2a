#include "support/Program.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "support/TempFolder.h"

namespace fs = std::filesystem;

std::string ReadBytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::optional<std::string> ReadBytesIfThere(const fs::path& path) {
  if (!fs::exists(path)) return std::nullopt;
  return ReadBytes(path);
}

std::string WithoutCarriageReturns(std::string text) {
  std::erase(text, '\r');
  return text;
}

Outcome RunProgram(const std::string& program, const std::string& arguments, const fs::path& folder,
                   const std::string& outputTo) {
  const TempFolder results;
  const fs::path output = results.Path() / "output";
  const fs::path errors = results.Path() / "errors";
#ifdef _WIN32
  const std::string go = "cd /d ";
#else
  const std::string go = "cd ";
#endif
  const std::string command = go + "\"" + folder.string() + "\" && " + program + " " + arguments +
                              " >" + (outputTo.empty() ? output.string() : outputTo) + " 2>" +
                              errors.string();
  const int status = std::system(command.c_str());
#ifdef _WIN32
  const int exitStatus = status;
#else
  const int exitStatus = WEXITSTATUS(status);
#endif
  return {exitStatus, ReadBytes(output), ReadBytes(errors)};
}
