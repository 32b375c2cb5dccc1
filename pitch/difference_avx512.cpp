// SPDX-License-Identifier: MIT
// AVX-512 has its own loop, because the common one is limited by loads and additions here
// (docs/decisions/0009-one-lag-per-lane.md).

#include "pitch/difference_avx512.h"

#if defined(__x86_64__)
#include <immintrin.h>

#include <algorithm>

namespace corvane {
namespace {

constexpr std::size_t lanes = 8;
constexpr std::size_t lead = 3 * lanes;

/// Adds the squares for i from `from` to `to` - 1 at the eight lags from `lag`.
[[gnu::target("avx512f"), gnu::always_inline]] inline void add(__m512d& sum, const double* x,
                                                               std::size_t from, std::size_t to,
                                                               std::size_t lag) {
  for (std::size_t i = from; i < to; ++i) {
    const __m512d apart = _mm512_loadu_pd(x + i + lag) - x[i];
    sum += apart * apart;
  }
}

}  // namespace

[[gnu::target("avx512f")]] void sumAvx512(const double* x, std::size_t window, std::size_t firstLag,
                                          double* d) {
  // Nearly every load of eight doubles crosses a cache line and costs two. The four sums run eight
  // samples apart, so that all of them use the same load at the same time.
  __m512d sumA{}, sumB{}, sumC{}, sumD{};
  add(sumA, x, 0, std::min(window, lead), firstLag);
  add(sumB, x, 0, std::min(window, lead - lanes), firstLag + lanes);
  add(sumC, x, 0, std::min(window, lead - 2 * lanes), firstLag + 2 * lanes);

  // With two additions per multiplication half of the multipliers idle: they subtract, as
  // 1 * y - x, which is rounded once, like y - x. The compiler must not see the 1.
  __m512d one = _mm512_set1_pd(1.0);
  asm("" : "+v"(one));
  for (std::size_t i = lead; i < window; ++i) {
    const __m512d later = _mm512_loadu_pd(x + i + firstLag);
    const __m512d apartA = later - x[i];
    const __m512d apartB = _mm512_fmsub_pd(later, one, _mm512_set1_pd(x[i - lanes]));
    const __m512d apartC = later - x[i - 2 * lanes];
    const __m512d apartD = _mm512_fmsub_pd(later, one, _mm512_set1_pd(x[i - 3 * lanes]));
    sumA += apartA * apartA;
    sumB += apartB * apartB;
    sumC += apartC * apartC;
    sumD += apartD * apartD;
  }

  const std::size_t end = std::max(window, lead);
  add(sumB, x, end - lanes, window, firstLag + lanes);
  add(sumC, x, end - 2 * lanes, window, firstLag + 2 * lanes);
  add(sumD, x, end - 3 * lanes, window, firstLag + 3 * lanes);
  _mm512_storeu_pd(d, sumA);
  _mm512_storeu_pd(d + lanes, sumB);
  _mm512_storeu_pd(d + 2 * lanes, sumC);
  _mm512_storeu_pd(d + 3 * lanes, sumD);
}

}  // namespace corvane

#endif
