#pragma once

#include <pulse/context.h>
#include <pulse/mainloop-api.h>
#include <pulse/timeval.h>

#include <functional>

namespace corvane {

/// The end of our patience with a server that does not answer. On the loop's thread.
class Deadline {
 public:
  /// Long enough for a server that is being started, short enough for a person who waits.
  static constexpr pa_usec_t patience = 3 * PA_USEC_PER_SEC;

  explicit Deadline(pa_mainloop_api& mainloop) : api(&mainloop) {}
  ~Deadline() { disarm(); }
  Deadline(const Deadline&) = delete;
  Deadline& operator=(const Deadline&) = delete;

  /// Calls `expired` once after `busy`, in which no answer is expected, and `patience`, unless
  /// disarmed or destroyed before.
  void arm(pa_context* context, std::function<void()> expired, pa_usec_t busy = 0);
  void disarm();

 private:
  static void onTime(pa_mainloop_api*, pa_time_event*, const struct timeval*, void* deadline);

  pa_mainloop_api* api;
  pa_time_event* event = nullptr;
  std::function<void()> expired;
};

}  // namespace corvane
