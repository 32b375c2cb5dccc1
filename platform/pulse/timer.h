#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include "platform/clock.h"

namespace corvane {

class Timer;

/// The timers of one thread, which asks when to wake up and calls what is due by then. They take
/// nothing from the system, so that they also measure the pause before the next attempt when the
/// system has had nothing left to give.
class Timers {
 public:
  /// `clock` must outlive the timers.
  explicit Timers(const Clock& time) : clock(time) {}

  /// When the first of them is due; nothing when none is armed.
  std::optional<Clock::Time> next() const;

  /// Calls what is due by now; what is armed meanwhile is not.
  void callDue();

 private:
  friend class Timer;
  Timer* first() const;

  const Clock& clock;
  std::vector<Timer*> all;  ///< a handful, armed or not
};

/// Calls once, later, on the thread of its timers. Arming it allocates nothing.
class Timer {
 public:
  explicit Timer(Timers& timers);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  /// Calls `job` after `delay` unless disarmed, armed anew or destroyed before. `job` may destroy
  /// the timer.
  void arm(std::chrono::milliseconds delay, std::function<void()> job);
  void disarm();

 private:
  friend class Timers;
  void call();

  Timers& timers;
  std::optional<Clock::Time> due;  ///< none while disarmed
  std::function<void()> job;
};

}  // namespace corvane
