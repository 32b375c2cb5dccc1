// SPDX-License-Identifier: MIT
#include "platform/pulse/tests/test_clock.h"

#include <pulse/rtclock.h>

namespace corvane {

using System = std::chrono::steady_clock;

Clock::Time TestClock::now() const {
  const std::lock_guard held(lock);
  return running ? time + (System::now() - begun) : time;
}

void TestClock::advance(std::chrono::milliseconds duration) {
  const std::lock_guard held(lock);
  time += duration;
}

void TestClock::run() {
  stop();
  const std::lock_guard held(lock);
  running = true;
  begun = System::now();
}

void TestClock::stop() {
  const Time last = now();
  const std::lock_guard held(lock);
  running = false;
  time = last;
}

TestClock& testClock() {
  static TestClock clock;
  return clock;
}

std::shared_ptr<const Clock> clockOfTests() {
  return {&testClock(), [](const Clock*) {}};
}

}  // namespace corvane

/// Replaces libpulse's own function, for libpulse itself too.
pa_usec_t pa_rtclock_now() {
  const auto now = corvane::testClock().now().time_since_epoch();
  return static_cast<pa_usec_t>(std::chrono::duration_cast<std::chrono::microseconds>(now).count());
}
