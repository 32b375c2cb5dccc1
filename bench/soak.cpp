// SPDX-License-Identifier: MIT
// soak [HOURS [MINUTES]]: sends hours of sound (default 24 of 60 minutes) through pipeline and
// engine as fast as possible. Exits with 1 unless every hour equals the first to the bit and memory
// does not grow.

#include <malloc.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <vector>

#include "bench/soak_session.h"
#include "tests/support/figure.h"

namespace {

using corvane::soak::Shown;

/// About a byte for each of the million buffers of 23 hours: less than any leak per buffer.
constexpr double mostGrowth = 1024.0;  // kB

/// The resident memory in kB after trimming the heap; 0 if unknown.
double residentMemory() {
#if defined(__GLIBC__)
  malloc_trim(0);
#endif
  std::ifstream statm("/proc/self/statm");
  double total = 0.0;
  double resident = 0.0;
  if (!(statm >> total >> resident)) return 0.0;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024.0;
}

int fail(const char* what, std::size_t where) {
  std::fprintf(stderr, "soak: %s (%zu)\n", what, where);
  return 1;
}

/// Records the first hour and compares the others with it.
class Hours {
 public:
  explicit Hours(double minutes) : seconds(60.0 * minutes) {}

  void playFirst() {
    session.play(seconds, [this](const Shown& shown) {
      first.push_back(shown);
      if (shown.heard) ++heard;
    });
  }

  /// The number of buffers before the first one that differs from the first hour.
  std::size_t playAgain() {
    std::size_t position = 0;
    std::size_t same = 0;
    session.play(seconds, [&](const Shown& shown) {
      if (same == position && position < first.size() && shown == first[position]) ++same;
      ++position;
    });
    return position == first.size() ? same : 0;
  }

  std::size_t buffers() const { return first.size(); }
  /// The share of an hour's buffers that end with a note heard, 0 to 1.
  double heardShare() const {
    return static_cast<double>(heard) / static_cast<double>(first.size());
  }

 private:
  double seconds;
  corvane::soak::Session session;
  std::vector<Shown> first;
  std::size_t heard = 0;
};

double secondsSince(std::chrono::steady_clock::time_point begun) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc > 1 ? std::atoi(argv[1]) : 24;
  const double minutes = argc > 2 ? std::atof(argv[2]) : 60.0;
  if (count < 2 || !(minutes > 0.0)) return fail("needs at least two hours of some minutes", 0);

  const auto begun = std::chrono::steady_clock::now();
  Hours hours(minutes);
  hours.playFirst();
  const double share = hours.heardShare();
  if (!(share > 0.25 && share < 0.95)) return fail("the share of notes heard is implausible", 0);
  const double memory = residentMemory();
  for (int hour = 2; hour <= count; ++hour) {
    const std::size_t same = hours.playAgain();
    if (same != hours.buffers()) return fail("differs from the first hour at buffer", same);
  }
  const double growth = residentMemory() - memory;
  const double took = secondsSince(begun);

  corvane::figure("hours of audio", count * minutes / 60.0);
  corvane::figure("buffers", static_cast<std::size_t>(count) * hours.buffers());
  corvane::figure("of them with a note heard, %", std::lround(100.0 * share));
  corvane::figure("hours equal to the first to the bit", count - 1);
  corvane::figure("kB in memory after the first hour", memory);
  corvane::figure("kB grown until the last", growth);
  corvane::figure("times as fast as it sounds", std::lround(60.0 * minutes * count / took));
  if (!(memory > 0.0)) return fail("the resident memory is unknown", 0);
  if (!(growth <= mostGrowth)) return fail("memory grows, in kB", static_cast<std::size_t>(growth));
  return 0;
}
