#include "Terminal.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// Needs windows.h before it.
#include <shellapi.h>
#else
#include <unistd.h>
#endif

#include <cstdio>

#include "Environment.h"
#include "Wide.h"

namespace {

bool IsTerminal(std::FILE* stream) {
#ifdef _WIN32
  return _isatty(_fileno(stream)) != 0;
#else
  return isatty(fileno(stream)) != 0;
#endif
}

}  // namespace

#ifdef _WIN32

void UseUtf8Streams() {
  SetConsoleOutputCP(CP_UTF8);
  for (std::FILE* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
}

std::vector<std::string> Utf8Arguments(int, char**) {
  // The arguments of `main` lack all letters that are not in the system's code page.
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(ToUtf8(wide[i]));
  LocalFree(wide);
  return arguments;
}

#else

void UseUtf8Streams() {}

std::vector<std::string> Utf8Arguments(int argc, char** argv) {
  return {argv + 1, argv + argc};
}

#endif

bool StandardErrorIsTerminal() {
  return IsTerminal(stderr);
}

bool StandardOutputIsTerminal() {
  return IsTerminal(stdout);
}

bool TerminalTakesColours() {
  if (!StandardOutputIsTerminal()) return false;
  const std::string says = EnvironmentVariable("COLORTERM");
  return says == "truecolor" || says == "24bit";
}
