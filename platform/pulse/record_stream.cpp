// SPDX-License-Identifier: MIT
#include "platform/pulse/record_stream.h"

#include <pulse/def.h>

#include <cstdint>
#include <utility>

namespace corvane {
namespace {

/// Half a buffer of the tap: small enough for low latency, large enough for few wake-ups.
constexpr std::uint32_t fragmentFrames = 2048;
constexpr auto serverDefault = static_cast<std::uint32_t>(-1);

}  // namespace

RecordStream::RecordStream(const AudioFormat& format, const pa_channel_map& channelOrder,
                           std::shared_ptr<MicrophoneFeed> receiver, Observer watching)
    // A tuner needs the unprocessed sound, without echo cancelling for voice.
    : PulseStream(format, channelOrder,
                  {{PA_PROP_MEDIA_NAME, "Tuning"},
                   {PA_PROP_MEDIA_ROLE, "production"},
                   {PA_PROP_FILTER_SUPPRESS, "echo-cancel"}}),
      feed(std::move(receiver)),
      observer(std::move(watching)) {}

bool RecordStream::connect() {
  pa_stream_set_read_callback(
      stream(), [](pa_stream*, std::size_t, void* me) { static_cast<RecordStream*>(me)->read(); },
      this);
  pa_stream_set_moved_callback(
      stream(), [](pa_stream*, void* me) { static_cast<RecordStream*>(me)->feed->moved(); }, this);
  const pa_buffer_attr buffering{
      .maxlength = serverDefault,
      .tlength = serverDefault,
      .prebuf = serverDefault,
      .minreq = serverDefault,
      .fragsize = fragmentFrames * static_cast<std::uint32_t>(pa_frame_size(&spec()))};
  // Without a device name the stream follows the user's default.
  return pa_stream_connect_record(stream(), nullptr, &buffering, PA_STREAM_ADJUST_LATENCY) == 0;
}

void RecordStream::ready() {
  feed->expectSound(timers());
  observer.ready();
}

void RecordStream::disconnectCallbacks() {
  pa_stream_set_read_callback(stream(), nullptr, nullptr);
  pa_stream_set_moved_callback(stream(), nullptr, nullptr);
}

void RecordStream::read() {
  const void* data = nullptr;
  std::size_t bytes = 0;
  while (pa_stream_peek(stream(), &data, &bytes) == 0 && bytes > 0) {
    // A hole is null with a length: silence.
    feed->append(static_cast<const float*>(data), bytes / pa_frame_size(&spec()));
    // The same data would be read forever.
    if (pa_stream_drop(stream()) < 0) return end(PA_ERR_IO);
  }
}

}  // namespace corvane
