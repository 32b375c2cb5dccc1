#pragma once

#include <cstddef>

namespace corvane {

/// How many additions and multiplications of doubles one pass is.
constexpr std::size_t operationsOfAPass = 192;

/// Adds and multiplies doubles in the registers of AVX-512, as many of one as of the other, so that
/// every arithmetic unit is busy all the time and nothing else is: no memory, no waiting for a
/// result. Only on a processor that has AVX-512.
void addAndMultiply(std::size_t passes);

}  // namespace corvane
