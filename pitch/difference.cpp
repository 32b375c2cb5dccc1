// SPDX-License-Identifier: MIT
#include "pitch/difference.h"

#include <algorithm>

#include "pitch/difference_avx512.h"

namespace corvane {
namespace {

// Lanes need only the alignment of a double. They are members of a struct and never `auto`, because
// template arguments and deduction drop the alignment attribute of a type.
struct Portable {
  using Lanes = double;
};

#if defined(__x86_64__) || defined(__aarch64__)
struct TwoLanes {
  using Lanes [[gnu::vector_size(16), gnu::aligned(8), gnu::may_alias]] = double;
};
#endif

#if defined(__x86_64__)
struct Avx2 {
  using Lanes [[gnu::vector_size(32), gnu::aligned(8), gnu::may_alias]] = double;
};
#endif

template <class Machine>
constexpr std::size_t lagsAtOnce = 4 * sizeof(typename Machine::Lanes) / sizeof(double);

/// Each lane has its own lag and adds in index order, like the plain loop. Four independent sums
/// hide the latency of the addition and stay in registers. They are separate variables because GCC
/// at -O2 keeps an array in memory.
template <class Machine>
[[gnu::always_inline]] inline void sum(const double* x, std::size_t window, std::size_t firstLag,
                                       double* d) {
  using Lanes = typename Machine::Lanes;
  Lanes sumA{}, sumB{}, sumC{}, sumD{};
  for (std::size_t i = 0; i < window; ++i) {
    const Lanes* const later = reinterpret_cast<const Lanes*>(x + i + firstLag);
    const Lanes apartA = x[i] - later[0];
    const Lanes apartB = x[i] - later[1];
    const Lanes apartC = x[i] - later[2];
    const Lanes apartD = x[i] - later[3];
    sumA += apartA * apartA;
    sumB += apartB * apartB;
    sumC += apartC * apartC;
    sumD += apartD * apartD;
  }
  Lanes* const sums = reinterpret_cast<Lanes*>(d);
  sums[0] = sumA;
  sums[1] = sumB;
  sums[2] = sumC;
  sums[3] = sumD;
}

void sumPortable(const double* x, std::size_t window, std::size_t firstLag, double* d) {
  sum<Portable>(x, window, firstLag, d);
}

#if defined(__x86_64__) || defined(__aarch64__)
void sumTwoLanes(const double* x, std::size_t window, std::size_t firstLag, double* d) {
  sum<TwoLanes>(x, window, firstLag, d);
}
#endif

#if defined(__x86_64__)
[[gnu::target("avx2")]] void sumAvx2(const double* x, std::size_t window, std::size_t firstLag,
                                     double* d) {
  sum<Avx2>(x, window, firstLag, d);
}
#endif

bool runsEverywhere() {
  return true;
}

constexpr DifferencePath paths[] = {
#if defined(__x86_64__)
    {"AVX-512", 32, [] { return __builtin_cpu_supports("avx512f") != 0; }, sumAvx512},
    {"AVX2", lagsAtOnce<Avx2>, [] { return __builtin_cpu_supports("avx2") != 0; }, sumAvx2},
    {"SSE2", lagsAtOnce<TwoLanes>, runsEverywhere, sumTwoLanes},
#elif defined(__aarch64__)
    {"NEON", lagsAtOnce<TwoLanes>, runsEverywhere, sumTwoLanes},
#endif
    {"portable", lagsAtOnce<Portable>, runsEverywhere, sumPortable},
};

}  // namespace

std::span<const DifferencePath> differencePaths() {
  return paths;
}

const DifferencePath& fastestDifferencePath() {
  static const DifferencePath& fastest =
      *std::ranges::find_if(paths, [](const DifferencePath& path) { return path.runsHere(); });
  return fastest;
}

}  // namespace corvane
