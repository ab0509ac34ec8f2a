#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <string>

// What came out of a run.
struct Summary {
  std::size_t elements = 0;
  std::size_t matched = 0;
  std::map<std::wstring, std::size_t> elementsByCode;
  std::chrono::duration<double> time{};
};

// The lines that the program prints of it: how many elements there were and matched, the ten most
// frequent codes (those of equal frequency in the order of the codes), elements per second.
std::string FormatSummary(const Summary& summary);
