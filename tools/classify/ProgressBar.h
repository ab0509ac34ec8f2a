#pragma once

#include <chrono>
#include <cstddef>

// Shows a progress bar on standard error if that is a terminal. The destructor erases it.
class ProgressBar {
 public:
  explicit ProgressBar(std::size_t total);
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar();

  // Draws at most ten times a second, so that it is cheap enough to call for each element.
  void Show(std::size_t done);

 private:
  std::size_t total_;
  bool onTerminal_;
  std::chrono::steady_clock::time_point nextDrawing_;
};
