// SPDX-License-Identifier: MIT
#include "platform/pulse/play_stream.h"

#include <pulse/def.h>
#include <pulse/timeval.h>

#include <cstdint>
#include <utility>

namespace corvane {
namespace {

/// Short enough for a prompt tone, long enough for a busy machine to keep up.
constexpr double latencySeconds = 0.05;
constexpr auto serverDefault = static_cast<std::uint32_t>(-1);

pa_channel_map mono() {
  pa_channel_map map;
  return *pa_channel_map_init_mono(&map);
}

}  // namespace

PlayStream::PlayStream(double sampleRate, std::vector<float> sound, std::function<void()> ended)
    : PulseStream({sampleRate, 1}, mono(),
                  {{PA_PROP_MEDIA_NAME, "Reference tone"}, {PA_PROP_MEDIA_ROLE, "production"}}),
      samples(std::move(sound)),
      onEnd(std::move(ended)) {}

bool PlayStream::connect() {
  const auto latencyFrames = static_cast<std::uint32_t>(spec().rate * latencySeconds);
  const pa_buffer_attr buffering{
      .maxlength = serverDefault,
      .tlength = latencyFrames * static_cast<std::uint32_t>(pa_frame_size(&spec())),
      .prebuf = serverDefault,
      .minreq = serverDefault,
      .fragsize = serverDefault};
  return pa_stream_connect_playback(stream(), nullptr, &buffering, PA_STREAM_ADJUST_LATENCY,
                                    nullptr, nullptr) == 0;
}

/// Writes the whole buffer: the server stores what it does not need yet.
void PlayStream::ready() {
  if (samples.empty()) return end(PA_OK);
  const std::size_t bytes = samples.size() * sizeof(float);
  if (pa_stream_write(stream(), samples.data(), bytes, nullptr, 0, PA_SEEK_RELATIVE) != 0) {
    return end(PA_ERR_IO);
  }
  // A hung server never completes the drain.
  armDeadline([this] { end(PA_ERR_TIMEOUT); },
              std::chrono::milliseconds(pa_bytes_to_usec(bytes, &spec()) / PA_USEC_PER_MSEC));
  drain = pa_stream_drain(
      stream(), [](pa_stream*, int, void* me) { static_cast<PlayStream*>(me)->end(PA_OK); }, this);
}

/// The server completes a drain even after the stream has ended.
void PlayStream::disconnectCallbacks() {
  if (drain == nullptr) return;
  pa_operation_cancel(drain);
  pa_operation_unref(std::exchange(drain, nullptr));
}

void PlayStream::cutOff() {
  close();
  ended(PA_OK);
}

void PlayStream::ended(int) {
  if (const auto tell = std::exchange(onEnd, nullptr)) tell();
}

}  // namespace corvane
