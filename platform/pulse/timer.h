#pragma once

#include <pulse/mainloop-api.h>

#include <chrono>
#include <functional>

namespace corvane {

/// Calls once, later. On the loop's thread; needs no connection, unlike libpulse's own timers that
/// the wall clock cannot disturb.
class Timer {
 public:
  explicit Timer(pa_mainloop_api& mainloop);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  /// Calls `job` after `delay` unless disarmed, armed anew or destroyed before. `job` may destroy
  /// the timer.
  void arm(std::chrono::milliseconds delay, std::function<void()> job);
  void disarm();

 private:
  static void onTime(pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* timer);

  pa_mainloop_api& api;
  const int descriptor;
  pa_io_event* const event;
  std::function<void()> job;  ///< none while disarmed
};

}  // namespace corvane
