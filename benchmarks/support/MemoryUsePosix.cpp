// Reads /proc, which only Linux has.

#include <fstream>
#include <stdexcept>
#include <string>

#include "support/MemoryUse.h"

namespace {

// Returns the value of a line like "VmHWM:     1234 kB".
std::size_t ReadStatus(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string key; status >> key; std::getline(status, key)) {
    std::size_t kilobytes = 0;
    if (key == name + ":" && status >> kilobytes) return kilobytes * 1024;
  }
  throw std::runtime_error("the system doesn't tell " + name);
}

}  // namespace

MemoryUse ReadMemoryUse() {
  return {ReadStatus("VmRSS"), ReadStatus("VmHWM")};
}
