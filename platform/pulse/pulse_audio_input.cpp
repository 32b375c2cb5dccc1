#include "platform/pulse/pulse_audio_input.h"

#include <pulse/def.h>

#include <utility>

#include "base/require.h"

namespace corvane {

PulseAudioInput::PulseAudioInput(PulseConnection& server, MainQueue& queue)
    : connection(server), mainQueue(queue) {}

PulseAudioInput::~PulseAudioInput() {
  stop();
}

void PulseAudioInput::stop() {
  const auto last = std::exchange(run, nullptr);
  if (last == nullptr) return;
  last->stream->mute();
  connection.async([stream = last->stream](PulseSession*) { stream->close(); });
}

void PulseAudioInput::reset() {
  require(run == nullptr, "a running input is not reset");
}

AudioFormat PulseAudioInput::inputFormat() const {
  return connection.facts().device;
}

AudioFormat PulseAudioInput::outputFormat() const {
  return connection.facts().server;
}

void PulseAudioInput::installTap(std::uint32_t frames, const AudioFormat& format, Tap tap) {
  require(run == nullptr, "a tap is installed while stopped");
  installed = Installed{frames, format, std::move(tap)};
}

void PulseAudioInput::start(Started started) {
  require(run == nullptr && installed.has_value(), "a stopped input with a tap is started");
  const auto& [frames, format, tap] = *installed;
  run = std::make_shared<Run>(Run{.started = std::move(started), .stream = nullptr});
  run->stream = std::make_shared<RecordStream>(format, channelOrder(format),
                                               BufferCollector(frames, format, tap), observer());
  connection.async([stream = run->stream](PulseSession* server) { stream->open(server); });
}

/// Carries what the stream tells to the main thread, where it counts only for the run it is of;
/// a run ends, at the latest, with this object.
RecordStream::Observer PulseAudioInput::observer() {
  const auto post = [&queue = mainQueue, weak = std::weak_ptr(run)](std::function<void()> job) {
    queue.async([weak, job = std::move(job)] {
      if (!weak.expired()) job();
    });
  };
  return {.ready = [this, post] { post([this] { ready(); }); },
          .ended = [this, post](int error) { post([this, error] { ended(error); }); }};
}

pa_channel_map PulseAudioInput::channelOrder(const AudioFormat& format) const {
  const ServerFacts& facts = connection.facts();
  if (format.channelCount == facts.device.channelCount) return facts.deviceOrder;
  pa_channel_map order;
  pa_channel_map_init_extend(&order, format.channelCount, PA_CHANNEL_MAP_DEFAULT);
  return order;
}

void PulseAudioInput::ready() {
  if (const Started started = std::exchange(run->started, nullptr)) started(true);
}

void PulseAudioInput::ended(int error) {
  const auto last = std::exchange(run, nullptr);
  last->stream->mute();
  if (error == PA_ERR_ACCESS) connection.refuse();
  if (last->started) last->started(false);
}

}  // namespace corvane
