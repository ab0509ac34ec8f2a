#include "support/Program.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "base/Utf8.h"
#include "support/PathTexts.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

// Quotes a path for the shell: it may contain blanks, and on Windows slashes, which would begin an
// option.
std::string Quoted(const fs::path& path) {
  const std::u8string bytes = path.u8string();
  return "\"" + std::string(bytes.begin(), bytes.end()) + "\"";
}

#ifdef _WIN32

constexpr const char* goTo = "cd /d ";

int RunCommand(const std::string& command) {
  return _wsystem(TolvenLibs::RevitMappingEditorDll::DecodeUtf8(command).c_str());
}

#else

constexpr const char* goTo = "cd ";

int RunCommand(const std::string& command) {
  return WEXITSTATUS(std::system(command.c_str()));
}

#endif

}  // namespace

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
  const std::string command = goTo + Quoted(folder) + " && " + Quoted(Utf8Path(program)) + " " +
                              arguments + " >" + (outputTo.empty() ? Quoted(output) : outputTo) +
                              " 2>" + Quoted(errors);
  return {RunCommand(command), ReadBytes(output), ReadBytes(errors)};
}
