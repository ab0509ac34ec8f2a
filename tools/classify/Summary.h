#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <string>

// The statistics of a run.
struct Summary {
  std::size_t elements = 0;
  std::size_t matched = 0;
  std::map<std::wstring, std::size_t> elementsByCode;
  std::chrono::duration<double> time{};
};

// Returns the summary as text: the numbers of elements and of matches, the ten most frequent codes
// (codes of equal frequency in code order), and elements per second.
std::string FormatSummary(const Summary& summary);
