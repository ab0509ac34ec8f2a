#include "ProgressBar.h"

#include <cstdio>
#include <string>

#include "Terminal.h"

ProgressBar::ProgressBar(std::size_t totalWork)
    : total(totalWork), onTerminal(StandardErrorIsTerminal()) {
  Show(0);
}

ProgressBar::~ProgressBar() {
  if (onTerminal) std::fputs("\r\033[K", stderr);
}

void ProgressBar::Show(std::size_t done) {
  if (!onTerminal || total == 0) return;
  const auto now = std::chrono::steady_clock::now();
  if (now < nextDrawing) return;
  nextDrawing = now + std::chrono::milliseconds(100);

  constexpr std::size_t width = 40;
  const std::size_t filled = width * done / total;
  const std::string bar = std::string(filled, '#') + std::string(width - filled, '.');
  std::fprintf(stderr, "\r[%s] %3zu %% of %zu", bar.c_str(), 100 * done / total, total);
  std::fflush(stderr);
}
