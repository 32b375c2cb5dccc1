// SPDX-License-Identifier: MIT
#include "platform/pulse/timer.h"

#include <utility>

#include "base/require.h"

namespace corvane {

/// The timer that is due first; null if none is armed.
Timer* Timers::first() const {
  Timer* found = nullptr;
  for (Timer* const timer : all) {
    if (timer->due && (found == nullptr || *timer->due < *found->due)) found = timer;
  }
  return found;
}

std::optional<Clock::Time> Timers::next() const {
  const Timer* const timer = first();
  if (timer == nullptr) return std::nullopt;
  return timer->due;
}

void Timers::callDue() {
  const auto now = clock.now();
  for (Timer* timer = first(); timer != nullptr && *timer->due <= now; timer = first()) {
    timer->call();
  }
}

Timer::Timer(Timers& all) : timers(all) {
  timers.all.push_back(this);
}

Timer::~Timer() {
  std::erase(timers.all, this);
}

void Timer::arm(std::chrono::milliseconds delay, std::function<void()> then) {
  require(delay.count() > 0, "delay is positive");
  job = std::move(then);
  due = timers.clock.now() + delay;
}

void Timer::disarm() {
  job = nullptr;
  due.reset();
}

/// The job is moved out because it may destroy this timer.
void Timer::call() {
  const auto last = std::exchange(job, nullptr);
  disarm();
  last();
}

}  // namespace corvane
