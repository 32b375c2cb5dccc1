// Hours of sound through the capture pipeline and the engine, as fast as they go: soak [HOURS
// [MINUTES]], 24 hours of 60 minutes unless told otherwise. Ends with status 1 unless every hour
// gives what the first one gave, to the last bit, and memory does not grow.

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

/// About a byte for each of the million buffers of 23 hours: what leaks in any of them is more.
constexpr double mostGrowth = 1024.0;  // kB

/// What this process has in memory, in kB, without what its allocator keeps for later; 0 where the
/// system does not tell.
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

/// Every hour as the first one, which is remembered.
class Hours {
 public:
  explicit Hours(double minutes) : seconds(60.0 * minutes) {}

  void playFirst() {
    session.play(seconds, [this](const Shown& shown) {
      first.push_back(shown);
      if (shown.heard) ++heard;
    });
  }

  /// How many buffers showed what they had shown in the first hour, before one did not.
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
  /// Of the buffers of an hour, those at whose end a note was heard, 0 to 1.
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
  if (count < 2 || !(minutes > 0.0)) return fail("takes at least two hours of some minutes", 0);

  const auto begun = std::chrono::steady_clock::now();
  Hours hours(minutes);
  hours.playFirst();
  const double share = hours.heardShare();
  if (!(share > 0.25 && share < 0.95)) return fail("the first hour is not what players play", 0);
  const double memory = residentMemory();
  for (int hour = 2; hour <= count; ++hour) {
    const std::size_t same = hours.playAgain();
    if (same != hours.buffers())
      return fail("another result than in the first hour at buffer", same);
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
  if (!(memory > 0.0)) return fail("the system does not tell what is in memory", 0);
  if (!(growth <= mostGrowth)) return fail("memory grows, in kB", static_cast<std::size_t>(growth));
  return 0;
}
