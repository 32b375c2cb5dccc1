// SPDX-License-Identifier: MIT
#include "platform/pulse/pulse_stream.h"

#include <pulse/error.h>

#include <cmath>
#include <cstdint>

namespace corvane {
namespace {

pa_sample_spec specOf(const AudioFormat& format) {
  return {.format = PA_SAMPLE_FLOAT32NE,
          .rate = static_cast<std::uint32_t>(std::lround(format.sampleRate)),
          .channels = static_cast<std::uint8_t>(format.channelCount)};
}

}  // namespace

PulseStream::PulseStream(const AudioFormat& format, const pa_channel_map& channelOrder,
                         Properties named)
    : sampleSpec(specOf(format)),
      order(channelOrder),
      properties(pa_proplist_new(), pa_proplist_free) {
  for (const auto& [name, value] : named) pa_proplist_sets(properties.get(), name, value);
}

void PulseStream::open(PulseSession* server) {
  if (closing) return;
  if (server == nullptr) return end(PA_ERR_CONNECTIONTERMINATED);
  pa_context* const context = server->readyContext();
  current = pa_stream_new_with_proplist(context, nullptr, &sampleSpec, &order, properties.get());
  if (current == nullptr) return end(pa_context_errno(context));
  self = shared_from_this();
  loopTimers = &server->timers();
  deadline.emplace(*loopTimers);
  // Disconnecting makes the server drop the stream too, if it ever answers.
  armDeadline([context] { pa_context_disconnect(context); });
  pa_stream_set_state_callback(
      current, [](pa_stream*, void* me) { static_cast<PulseStream*>(me)->stateChanged(); }, this);
  if (!connect()) end(pa_context_errno(context));
}

void PulseStream::armDeadline(std::function<void()> then, std::chrono::milliseconds busy) {
  deadline->arm(busy + serverTimeout, std::move(then));
}

void PulseStream::stateChanged() {
  switch (pa_stream_get_state(current)) {
    case PA_STREAM_READY:
      deadline->disarm();
      if (closing) return release();
      return ready();
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED:
      return failed();
    default:
      return;
  }
}

void PulseStream::failed() {
  pa_context* const context = pa_stream_get_context(current);
  const int error = pa_context_errno(context);
  const bool connected = PA_CONTEXT_IS_GOOD(pa_context_get_state(context)) != 0;
  if (error != PA_ERR_TIMEOUT || !connected) return end(error);
  // libpulse gives up after 30 s, but the server may still create the stream later and keep it.
  // Disconnecting calls this function again, as the end of the stream.
  pa_context_disconnect(context);
}

void PulseStream::close() {
  closing = true;
  if (current == nullptr) return;
  if (pa_stream_get_state(current) != PA_STREAM_CREATING) return release();
  // libpulse cannot end a stream that the server has not created yet; `stateChanged` does so later.
  // A late answer must not end the connection, which the next stream uses.
  deadline->disarm();
}

void PulseStream::end(int error) {
  const auto alive = shared_from_this();
  if (current != nullptr) release();
  if (!std::exchange(closing, true)) ended(error);
}

void PulseStream::release() {
  const auto alive = std::exchange(self, nullptr);
  deadline.reset();
  pa_stream_set_state_callback(current, nullptr, nullptr);
  disconnectCallbacks();
  pa_context* const context = pa_stream_get_context(current);
  const bool isKnown = pa_stream_get_state(current) == PA_STREAM_READY;
  const bool isForgotten = pa_stream_disconnect(current) == 0;
  // Before disconnecting, which waits until the stream's memory is released.
  pa_stream_unref(std::exchange(current, nullptr));
  // Otherwise the stream would stay on the server forever.
  if (isKnown && !isForgotten) pa_context_disconnect(context);
}

}  // namespace corvane
