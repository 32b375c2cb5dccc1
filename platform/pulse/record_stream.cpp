#include "platform/pulse/record_stream.h"

#include <pulse/error.h>
#include <pulse/proplist.h>

#include <cmath>
#include <cstdint>
#include <utility>

namespace corvane {
namespace {

/// Small enough that the sound is fresh when a buffer is full, large enough to wake seldom.
constexpr std::uint32_t fragmentFrames = 1024;
constexpr auto serverDefault = static_cast<std::uint32_t>(-1);

pa_sample_spec specOf(const AudioFormat& format) {
  return {.format = PA_SAMPLE_FLOAT32NE,
          .rate = static_cast<std::uint32_t>(std::lround(format.sampleRate)),
          .channels = static_cast<std::uint8_t>(format.channelCount)};
}

/// Says what the stream is for: a tuner wants the plain sound, not a caller's cleaned voice.
std::unique_ptr<pa_proplist, decltype(&pa_proplist_free)> streamProperties() {
  std::unique_ptr<pa_proplist, decltype(&pa_proplist_free)> properties(pa_proplist_new(),
                                                                       pa_proplist_free);
  pa_proplist_sets(properties.get(), PA_PROP_MEDIA_NAME, "Tuning");
  pa_proplist_sets(properties.get(), PA_PROP_MEDIA_ROLE, "production");
  pa_proplist_sets(properties.get(), PA_PROP_FILTER_SUPPRESS, "echo-cancel");
  return properties;
}

}  // namespace

RecordStream::RecordStream(const AudioFormat& recorded, const pa_channel_map& channelOrder,
                           BufferCollector receiver, Observer watching)
    : format(recorded),
      order(channelOrder),
      observer(std::move(watching)),
      collector(std::move(receiver)) {}

void RecordStream::open(PulseSession* server) {
  if (closing) return;
  if (server == nullptr) return end(PA_ERR_CONNECTIONTERMINATED);
  pa_context* const context = server->readyContext();
  const pa_sample_spec spec = specOf(format);
  stream = pa_stream_new_with_proplist(context, nullptr, &spec, &order, streamProperties().get());
  if (stream == nullptr) return end(pa_context_errno(context));
  self = shared_from_this();
  // Disconnecting makes the server forget the stream too, should it ever answer.
  deadline.emplace(server->api()).arm(context, [context] { pa_context_disconnect(context); });
  connect();
}

void RecordStream::connect() {
  pa_stream_set_state_callback(
      stream, [](pa_stream*, void* me) { static_cast<RecordStream*>(me)->stateChanged(); }, this);
  pa_stream_set_read_callback(
      stream, [](pa_stream*, std::size_t, void* me) { static_cast<RecordStream*>(me)->read(); },
      this);
  pa_stream_set_moved_callback(
      stream, [](pa_stream*, void* me) { static_cast<RecordStream*>(me)->moved(); }, this);
  const pa_sample_spec spec = specOf(format);
  const pa_buffer_attr buffering{
      .maxlength = serverDefault,
      .tlength = serverDefault,
      .prebuf = serverDefault,
      .minreq = serverDefault,
      .fragsize = fragmentFrames * static_cast<std::uint32_t>(pa_frame_size(&spec))};
  // No device: the stream follows the user's default.
  if (pa_stream_connect_record(stream, nullptr, &buffering, PA_STREAM_ADJUST_LATENCY) < 0) {
    end(pa_context_errno(pa_stream_get_context(stream)));
  }
}

void RecordStream::stateChanged() {
  switch (pa_stream_get_state(stream)) {
    case PA_STREAM_READY:
      deadline.reset();
      if (closing) return release();
      return observer.ready();
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED:
      return failed();
    default:
      return;
  }
}

void RecordStream::failed() {
  pa_context* const context = pa_stream_get_context(stream);
  const int error = pa_context_errno(context);
  const bool connected = PA_CONTEXT_IS_GOOD(pa_context_get_state(context)) != 0;
  if (error != PA_ERR_TIMEOUT || !connected) return end(error);
  // After half a minute libpulse gives up waiting, but the server may still make the stream one
  // day and record for nobody. Disconnecting comes back here as the end of the stream.
  pa_context_disconnect(context);
}

void RecordStream::read() {
  const void* data = nullptr;
  std::size_t bytes = 0;
  const std::size_t frameSize = pa_frame_size(pa_stream_get_sample_spec(stream));
  while (pa_stream_peek(stream, &data, &bytes) == 0 && bytes > 0) {
    {
      // A hole comes as null with its length: silence.
      const std::lock_guard held(gate);
      if (collector) collector->append(static_cast<const float*>(data), bytes / frameSize);
    }
    pa_stream_drop(stream);
  }
}

void RecordStream::moved() {
  // One buffer never holds the sound of two devices.
  const std::lock_guard held(gate);
  if (collector) collector->drop();
}

void RecordStream::mute() {
  std::optional<BufferCollector> last;
  const std::lock_guard held(gate);
  last.swap(collector);
}

void RecordStream::close() {
  closing = true;
  if (stream == nullptr) return;
  if (pa_stream_get_state(stream) != PA_STREAM_CREATING) return release();
  // libpulse cannot end a stream that the server has not made yet: `stateChanged` does then.
  // Nobody waits for it, so its delay is no reason to drop the connection from the next one.
  deadline.reset();
}

void RecordStream::end(int error) {
  const auto alive = shared_from_this();
  if (stream != nullptr) release();
  if (!std::exchange(closing, true)) observer.ended(error);
}

void RecordStream::release() {
  deadline.reset();
  pa_stream_set_state_callback(stream, nullptr, nullptr);
  pa_stream_set_read_callback(stream, nullptr, nullptr);
  pa_stream_set_moved_callback(stream, nullptr, nullptr);
  pa_stream_disconnect(stream);
  pa_stream_unref(std::exchange(stream, nullptr));
  self.reset();
}

}  // namespace corvane
