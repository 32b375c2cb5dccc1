#include "platform/pulse/timer.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <cstdint>
#include <utility>

#include "base/require.h"

namespace corvane {
namespace {

/// No delay at all would disarm it.
void set(int descriptor, std::chrono::milliseconds delay) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(delay);
  const std::chrono::nanoseconds rest = delay - seconds;
  const itimerspec time{.it_interval = {},
                        .it_value = {.tv_sec = seconds.count(), .tv_nsec = rest.count()}};
  const int result = timerfd_settime(descriptor, 0, &time, nullptr);
  require(result == 0, "a timer takes any delay");
}

int newDescriptor() {
  const int descriptor = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK);
  require(descriptor >= 0, "the system has a timer for us");
  return descriptor;
}

}  // namespace

Timer::Timer(pa_mainloop_api& mainloop)
    : api(mainloop),
      descriptor(newDescriptor()),
      event(api.io_new(&api, descriptor, PA_IO_EVENT_INPUT, onTime, this)) {}

Timer::~Timer() {
  api.io_free(event);
  close(descriptor);
}

void Timer::arm(std::chrono::milliseconds delay, std::function<void()> then) {
  require(delay.count() > 0, "a timer calls later");
  job = std::move(then);
  set(descriptor, delay);
}

void Timer::disarm() {
  if (std::exchange(job, nullptr)) set(descriptor, {});
}

void Timer::onTime(pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* timer) {
  auto* const self = static_cast<Timer*>(timer);
  // Armed anew by another callback since the loop saw that the time had come, it has not come yet.
  std::uint64_t expirations = 0;
  if (read(self->descriptor, &expirations, sizeof expirations) != sizeof expirations) return;
  // Moved out, because what is called may end this timer.
  const auto job = std::exchange(self->job, nullptr);
  set(self->descriptor, {});
  if (job) job();
}

}  // namespace corvane
