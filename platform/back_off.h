// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>

namespace corvane {

/// Delays between retries. Each is twice as long as the previous one, so that the first retries
/// come soon and the later ones cost little.
class BackOff {
 public:
  using Duration = std::chrono::milliseconds;

  constexpr BackOff(Duration first, Duration last) : shortest(first), longest(last), pause(first) {}

  /// The delay before the next attempt.
  constexpr Duration next() {
    const Duration now = pause;
    pause = std::min(2 * pause, longest);
    return now;
  }

  /// After a success, or when a retry may succeed.
  constexpr void reset() { pause = shortest; }

 private:
  Duration shortest;
  Duration longest;
  Duration pause;
};

}  // namespace corvane
