#pragma once

#include <algorithm>
#include <chrono>

namespace corvane {

/// The pauses between attempts at what does not succeed: each twice as long as the one before it,
/// so that the first come soon and the later ones cost nothing.
class BackOff {
 public:
  using Duration = std::chrono::milliseconds;

  constexpr BackOff(Duration first, Duration last) : shortest(first), longest(last), pause(first) {}

  /// How long to wait before the next attempt.
  constexpr Duration next() {
    const Duration now = pause;
    pause = std::min(2 * pause, longest);
    return now;
  }

  /// After a success, or when there is a new reason to hope for one.
  constexpr void reset() { pause = shortest; }

 private:
  Duration shortest;
  Duration longest;
  Duration pause;
};

}  // namespace corvane
