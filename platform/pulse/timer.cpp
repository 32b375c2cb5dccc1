#include "platform/pulse/timer.h"

#include <utility>

#include "base/require.h"

namespace corvane {

std::optional<Timers::Clock::time_point> Timers::next() const {
  if (armed.empty()) return std::nullopt;
  return armed.begin()->first;
}

void Timers::callDue() {
  const auto now = Clock::now();
  while (!armed.empty() && armed.begin()->first <= now) armed.begin()->second->call();
}

void Timer::arm(std::chrono::milliseconds delay, std::function<void()> then) {
  require(delay.count() > 0, "a timer calls later");
  job = std::move(then);
  const auto due = Timers::Clock::now() + delay;
  if (!place) {
    place = all.armed.emplace(due, this);
    return;
  }
  // Every piece of sound arms the watch over it anew, on a thread that is not to allocate.
  auto node = all.armed.extract(*place);
  node.key() = due;
  place = all.armed.insert(std::move(node));
}

void Timer::disarm() {
  job = nullptr;
  if (place) all.armed.erase(*std::exchange(place, std::nullopt));
}

/// The job is moved out, because it may end this timer.
void Timer::call() {
  const auto due = std::exchange(job, nullptr);
  disarm();
  due();
}

}  // namespace corvane
