// SPDX-License-Identifier: MIT
#include "bench/peak_rate.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace corvane {

#if defined(__x86_64__)

[[gnu::target("avx512f")]] void addAndMultiply(std::size_t passes) {
  // Twelve of each: two units with a latency of up to four cycles need eight in flight.
  constexpr int chains = 12;
  static_assert(operationsOfAPass == 2 * chains * sizeof(__m512d) / sizeof(double));
  __m512d sums[chains];
  __m512d products[chains];
  for (__m512d& sum : sums) sum = _mm512_set1_pd(1.0);
  for (__m512d& product : products) product = _mm512_set1_pd(1.0);
  __m512d one = _mm512_set1_pd(1.0);
  asm("" : "+v"(one));
  for (std::size_t pass = 0; pass < passes; ++pass) {
#pragma GCC unroll 12
    for (int chain = 0; chain < chains; ++chain) {
      sums[chain] += one;
      products[chain] *= one;
    }
  }
  for (const __m512d& sum : sums) asm volatile("" : : "v"(sum));
  for (const __m512d& product : products) asm volatile("" : : "v"(product));
}

#else

void addAndMultiply(std::size_t) {}

#endif

}  // namespace corvane
