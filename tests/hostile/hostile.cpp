// Times the cases at a size and at its double, each in a process of its own, and prints a table:
//
//   hostile [bytes] [part of a case's name]
//
// A time is one of the processor, and the least of three. The load and what is asked behind it are
// timed apart. A case that takes longer than a minute ends its process, and shows as such.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

#include "hostile/Cases.h"
#include "support/TempFolder.h"

namespace {

using namespace Hostile;

constexpr rlim_t patience = 60;  // seconds

struct Measured {
  double load = 0;  // seconds
  double ask = 0;
  double peak = 0;  // of memory, in bytes
  bool answered = false;
};

double ProcessorSeconds() {
  timespec time = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double SecondsOf(auto work) {
  const double start = ProcessorSeconds();
  work();
  return ProcessorSeconds() - start;
}

double PeakBytes() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

Measured Measure(const Case& one, const std::wstring& file, std::size_t size) {
  Measured measured;
  std::optional<Editor> editor;
  measured.load = SecondsOf([&] { editor.emplace(LoadedEditor(file)); });
  std::wstring answer;
  measured.ask = SecondsOf([&] { answer = one.ask(*editor, size); });
  measured.answered = answer == one.answer(size);
  measured.peak = PeakBytes();
  return measured;
}

// The same in a process of its own, whose memory nothing else has used. Nothing if it runs out of
// time or ends in any other way than it should.
std::optional<Measured> MeasureApart(const Case& one, const std::wstring& file, std::size_t size) {
  int ends[2];
  if (pipe(ends) != 0) return std::nullopt;
  const pid_t child = fork();
  if (child == 0) {
    const rlimit limit = {patience, patience};
    setrlimit(RLIMIT_CPU, &limit);
    const Measured measured = Measure(one, file, size);
    const bool written = write(ends[1], &measured, sizeof measured) == sizeof measured;
    _exit(written ? 0 : 1);
  }
  close(ends[1]);
  Measured measured;
  const bool whole = read(ends[0], &measured, sizeof measured) == sizeof measured;
  close(ends[0]);
  waitpid(child, nullptr, 0);
  if (!whole) return std::nullopt;
  return measured;
}

std::optional<Measured> BestOfThree(const Case& one, std::size_t size) {
  const TempFolder folder;
  const std::wstring file = folder.Write(one.file, one.make(size));
  std::optional<Measured> best = MeasureApart(one, file, size);
  for (int i = 1; i < 3 && best; ++i) {
    const std::optional<Measured> again = MeasureApart(one, file, size);
    if (!again) return again;
    best->load = std::min(best->load, again->load);
    best->ask = std::min(best->ask, again->ask);
  }
  return best;
}

// How much more the second is; times that are hardly any are the noise of the machine.
std::string Ratio(double once, double twice) {
  if (twice < 0.002) return "-";
  char text[16];
  std::snprintf(text, sizeof text, "%.1f", twice / std::max(once, 1e-6));
  return text;
}

void PrintRow(const Case& one, std::size_t size) {
  const std::optional<Measured> once = BestOfThree(one, size);
  const std::optional<Measured> twice = once ? BestOfThree(one, 2 * size) : std::nullopt;
  if (!twice) {
    std::printf("| %s | more than %d s | | | | |\n", one.name.c_str(), static_cast<int>(patience));
  } else {
    std::printf("| %s | %.1f | %s | %.1f | %s | %.0f |%s\n", one.name.c_str(), 1000 * twice->load,
                Ratio(once->load, twice->load).c_str(), 1000 * twice->ask,
                Ratio(once->ask, twice->ask).c_str(), twice->peak / static_cast<double>(2 * size),
                once->answered && twice->answered ? "" : " wrong answer");
  }
  std::fflush(stdout);
}

}  // namespace

int main(int count, char** arguments) {
  const std::size_t size = count > 1 ? std::strtoull(arguments[1], nullptr, 10) : 4'000'000;
  const std::string wanted = count > 2 ? arguments[2] : "";
  std::printf("| %zu bytes | load, ms | to half | ask, ms | to half | memory, bytes a byte |\n",
              2 * size);
  std::printf("|---|---:|---:|---:|---:|---:|\n");
  for (const Case& one : Cases()) {
    if (one.name.find(wanted) != std::string::npos) PrintRow(one, size);
  }
  return 0;
}
