// Variables of the process's environment.

#pragma once

#include <cstddef>
#include <cstdlib>
#include <string>

// The value of a variable, empty if it is not set.
inline std::string EnvironmentVariable(const char* name) {
#ifdef _WIN32
  // cl takes `getenv` for unsafe.
  std::size_t size = 0;  // with the NUL, or 0 if it is not set
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
