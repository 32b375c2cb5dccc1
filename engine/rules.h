// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

/// Pure functions, separate so that their limits can be tested: no ratio of two frequencies need
/// give exactly 5 or 80 cents.
namespace corvane {

/// Whether a deviation from the target is in tune: up to 5 cents, inclusive.
inline bool isInTune(double cents) {
  return std::abs(cents) <= 5.0;
}

/// Whether a step of more than 80 cents from the last raw frequency makes it another note.
inline bool isJump(double cents) {
  return std::abs(cents) > 80.0;
}

/// The string that a reference tone plays when none is chosen: the second of `count`, or the only
/// one.
inline std::int64_t defaultString(std::int64_t count) {
  return std::min<std::int64_t>(count, 2) - 1;
}

}  // namespace corvane
