#pragma once

#include <chrono>
#include <cstddef>

// A bar on standard error that fills as work is done, and nothing at all if standard error is no
// terminal. It is gone when the work is.
class ProgressBar {
 public:
  explicit ProgressBar(std::size_t total);
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar();

  // Cheap enough to be called for each piece of work: it draws ten times a second at most.
  void Show(std::size_t done);

 private:
  std::size_t total;
  bool onTerminal;
  std::chrono::steady_clock::time_point nextDrawing;
};
