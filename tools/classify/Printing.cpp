#include "Printing.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <system_error>

#include "Failure.h"

void Print(const std::string& output) {
  const std::size_t written = std::fwrite(output.data(), 1, output.size(), stdout);
  if (written == output.size() && std::fflush(stdout) == 0) return;
  const std::string reason = std::generic_category().message(errno);
  throw Failure{failedOutput, "The output could not be written: " + reason + "."};
}
