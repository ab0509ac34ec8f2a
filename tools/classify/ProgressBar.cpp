#include "ProgressBar.h"

#include <cstdio>
#include <string>

#include "Terminal.h"

ProgressBar::ProgressBar(std::size_t totalWork)
    : total_(totalWork), onTerminal_(StandardErrorIsTerminal()) {
  Show(0);
}

ProgressBar::~ProgressBar() {
  if (onTerminal_) std::fputs("\r\033[K", stderr);
}

void ProgressBar::Show(std::size_t done) {
  if (!onTerminal_ || total_ == 0) return;
  const auto now = std::chrono::steady_clock::now();
  if (now < nextDrawing_) return;
  nextDrawing_ = now + std::chrono::milliseconds(100);

  constexpr std::size_t width = 40;
  const std::size_t filled = width * done / total_;
  const std::string bar = std::string(filled, '#') + std::string(width - filled, '.');
  std::fprintf(stderr, "\r[%s] %3zu %% of %zu", bar.c_str(), 100 * done / total_, total_);
  std::fflush(stderr);
}
