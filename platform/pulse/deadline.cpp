#include "platform/pulse/deadline.h"

#include <pulse/rtclock.h>

#include <utility>

#include "base/require.h"

namespace corvane {

void Deadline::arm(pa_context* context, std::function<void()> then, pa_usec_t busy) {
  require(event == nullptr, "a deadline is armed once at a time");
  expired = std::move(then);
  event = pa_context_rttime_new(context, pa_rtclock_now() + busy + patience, onTime, this);
}

void Deadline::disarm() {
  if (event != nullptr) api->time_free(std::exchange(event, nullptr));
}

void Deadline::onTime(pa_mainloop_api*, pa_time_event*, const struct timeval*, void* deadline) {
  auto* const self = static_cast<Deadline*>(deadline);
  self->disarm();
  // Moved out, because what is called may end the owner of this deadline.
  const auto expired = std::move(self->expired);
  expired();
}

}  // namespace corvane
