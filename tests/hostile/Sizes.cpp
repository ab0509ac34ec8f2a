// Measures the cost of adversarial inputs at their full size and at half of it, and prints a line
// for each, with tabs between the columns:
//
//   reader, input, size, seconds at half the size, seconds, bytes of the file, peak bytes of
//   memory at half the size, peak bytes, bytes of stack at half the size, bytes of stack, the
//   factor by which the cost may grow for twice the size, and its reason
//
//   hostile_sizes [TEXT]   only the cases whose reader or input contains the text

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>

#include "hostile/Case.h"
#include "hostile/Measure.h"

namespace {

// Noise only lengthens times. The sizes alternate, so that it affects both alike, and the shorter
// they take, the more often they are repeated.
void MeasureInTurns(const PreparedCase& half, const PreparedCase& full, Cost& ofHalf,
                    Cost& ofFull) {
  const int repetitions = std::clamp(static_cast<int>(1.0 / ofFull.seconds), 3, 20);
  for (int i = 0; i < repetitions; ++i) {
    ofHalf.seconds = std::min(ofHalf.seconds, half.Measure().seconds);
    ofFull.seconds = std::min(ofFull.seconds, full.Measure().seconds);
  }
}

// A time beyond its bound may be due to lasting noise, so both sizes are measured up to four times
// as often.
void MeasureBoth(const PreparedCase& half, const PreparedCase& full, double most, Cost& ofHalf,
                 Cost& ofFull) {
  ofHalf = half.Measure();
  ofFull = full.Measure();
  for (int round = 0; round < 4; ++round) {
    MeasureInTurns(half, full, ofHalf, ofFull);
    if (ofFull.seconds <= most * ofHalf.seconds) return;
  }
}

void Print(const HostileCase& input) {
  const PreparedCase half(input, input.size / 2);
  const PreparedCase full(input, input.size);
  Cost ofHalf;
  Cost ofFull;
  MeasureBoth(half, full, input.most, ofHalf, ofFull);
  std::printf("%s\t%s\t%zu\t%.6f\t%.6f\t%zu\t%zu\t%zu\t%zu\t%zu\t%g\t%s\n", input.reader,
              input.input, input.size, ofHalf.seconds, ofFull.seconds, full.FileSize(), ofHalf.peak,
              ofFull.peak, ofHalf.stack, ofFull.stack, input.most, input.rule);
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  const std::string wanted = argc > 1 ? argv[1] : "";
  for (const HostileCase& input : AllHostileCases()) {
    if ((std::string(input.reader) + ": " + input.input).find(wanted) == std::string::npos) {
      continue;
    }
    try {
      Print(input);
    } catch (const std::exception& error) {
      std::fprintf(stderr, "%s: %s: %s\n", input.reader, input.input, error.what());
      return 1;
    }
  }
}
