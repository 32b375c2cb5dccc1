// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include "platform/clock.h"

namespace corvane {

class Timer;

/// The timers of one thread, which sleeps until `next` and then calls `callDue`. A test clock can
/// drive them.
class Timers {
 public:
  /// `clock` must outlive the timers.
  explicit Timers(const Clock& time) : clock(time) {}

  /// When the first timer is due; nothing if none is armed.
  std::optional<Clock::Time> next() const;

  /// Calls the timers that are due. Timers armed during the call are not due before time passes.
  void callDue();

 private:
  friend class Timer;
  Timer* first() const;

  const Clock& clock;
  std::vector<Timer*> all;  ///< few, armed or not
};

/// Calls a job once, later, on the thread of its timers. Arming it does not allocate.
class Timer {
 public:
  explicit Timer(Timers& timers);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  /// Calls `job` after `delay` unless disarmed, armed again or destroyed before. `job` may destroy
  /// the timer.
  void arm(std::chrono::milliseconds delay, std::function<void()> job);
  void disarm();

 private:
  friend class Timers;
  void call();

  Timers& timers;
  std::optional<Clock::Time> due;  ///< nothing while disarmed
  std::function<void()> job;
};

}  // namespace corvane
