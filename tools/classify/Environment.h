// Reads variables of the process's environment.

#pragma once

#include <cstddef>
#include <cstdlib>
#include <string>

// Returns the value of a variable, or an empty string if it is not set.
inline std::string EnvironmentVariable(const char* name) {
#ifdef _WIN32
  // MSVC warns of `getenv` as unsafe.
  std::size_t size = 0;  // including the NUL; 0 if the variable is not set
  if (getenv_s(&size, nullptr, 0, name) != 0 || size == 0) return "";
  std::string value(size, '\0');
  if (getenv_s(&size, value.data(), value.size(), name) != 0) return "";
  value.pop_back();
  return value;
#else
  const char* value = std::getenv(name);
  return value ? value : "";
#endif
}
