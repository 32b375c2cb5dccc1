// SPDX-License-Identifier: MIT
#include "platform/pulse/pulse_audio_input.h"

#include <pulse/def.h>

#include <utility>

#include "base/require.h"

namespace corvane {
namespace {

using std::chrono::milliseconds;

/// PipeWire sends no event when the device of a stream is removed: the stream is silent. A
/// suspended device is silent too and resumes by itself, so do not reconnect early.
constexpr milliseconds longestSilence{1500};
/// A device that is being replaced returns sooner.
constexpr milliseconds longestAbsence{1500};
/// Between recordings that the server refuses or ends immediately.
constexpr milliseconds pauseBetweenAttempts{500};

}  // namespace

PulseAudioInput::PulseAudioInput(PulseConnection& server, MainQueue& queue)
    : connection(server), mainQueue(queue) {}

PulseAudioInput::~PulseAudioInput() {
  stop();
}

void PulseAudioInput::stop() {
  if (run == nullptr) return;
  close();
  const auto last = std::exchange(run, nullptr);
  last->feed->mute();
  connection.async([feed = last->feed](PulseSession*) { feed->end(); });
}

void PulseAudioInput::reset() {
  require(run == nullptr, "reset is called while stopped");
}

AudioFormat PulseAudioInput::inputFormat() const {
  return connection.facts().device;
}

AudioFormat PulseAudioInput::outputFormat() const {
  return connection.facts().server;
}

void PulseAudioInput::installTap(std::uint32_t frames, const AudioFormat& format, Tap tap) {
  require(run == nullptr, "installTap is called while stopped");
  installed = Installed{frames, format, std::move(tap)};
}

void PulseAudioInput::start(Started started) {
  require(run == nullptr && installed.has_value(), "start is called while stopped, with a tap");
  run = std::make_shared<Run>();
  run->started = std::move(started);
  run->feed = std::make_shared<MicrophoneFeed>(installed->frames, installed->tap,
                                               [this, post = poster(run)](milliseconds lasting) {
                                                 post([this, lasting] { silent(lasting); });
                                               });
  open(installed->format);
}

void PulseAudioInput::open(const AudioFormat& format) {
  run->attempt = std::make_shared<Attempt>(Attempt{.stream = nullptr,
                                                   .format = format,
                                                   .order = channelOrder(format),
                                                   .begun = connection.now()});
  const auto stream =
      std::make_shared<RecordStream>(format, run->attempt->order, run->feed, observer());
  run->attempt->stream = stream;
  connection.async([feed = run->feed, stream, format](PulseSession* server) {
    feed->begin(format);
    stream->open(server);
  });
}

void PulseAudioInput::close() {
  const auto stream = std::exchange(run->attempt->stream, nullptr);
  if (stream == nullptr) return;
  connection.async([stream](PulseSession*) { stream->close(); });
}

RecordStream::Observer PulseAudioInput::observer() {
  const auto post = poster(run->attempt);
  return {.ready = [this, post] { post([this] { ready(); }); },
          .ended = [this, post](int error) { post([this, error] { ended(error); }); }};
}

/// Posts jobs to the main thread, which drops them once `lifetime`, part of this object, has
/// ended.
std::function<void(std::function<void()>)> PulseAudioInput::poster(
    std::weak_ptr<void> lifetime) const {
  return [&queue = mainQueue, lifetime = std::move(lifetime)](std::function<void()> job) {
    queue.async([lifetime, job = std::move(job)] {
      if (!lifetime.expired()) job();
    });
  };
}

pa_channel_map PulseAudioInput::channelOrder(const AudioFormat& format) const {
  const ServerFacts& facts = connection.facts();
  if (format.channelCount == facts.device.channelCount) return facts.deviceOrder;
  pa_channel_map order;
  pa_channel_map_init_extend(&order, format.channelCount, PA_CHANNEL_MAP_DEFAULT);
  return order;
}

void PulseAudioInput::ready() {
  run->attempt->ready = true;
  if (const Started started = std::exchange(run->started, nullptr)) {
    run->watch = connection.watch([this] { serverChanged(); });
    started(true);
  }
}

void PulseAudioInput::ended(int error) {
  run->attempt->stream = nullptr;
  // The end of the first recording is a failed start. The end of a later one causes silence, which
  // starts the next.
  const Started started = std::exchange(run->started, nullptr);
  if (started) stop();
  // Watchers of the refusal may stop the input.
  if (error == PA_ERR_ACCESS) connection.refuseRecording();
  if (started) started(false);
}

void PulseAudioInput::serverChanged() {
  const AudioFormat device = connection.recordable();
  if (device == AudioFormat{}) return reportAbsence();
  run->absentSince.reset();
  if (isOfTheDevice()) return;
  close();
  open(device);
}

/// Called when the absence begins and with each silent buffer during it.
void PulseAudioInput::reportAbsence() {
  // Without a microphone the server may deliver the sound of its loudspeakers.
  close();
  if (!run->absentSince) run->absentSince = connection.now();
  if (connection.now() - *run->absentSince < longestAbsence) return;
  run->absentSince = connection.now();
  if (const auto report = changed) report();
}

void PulseAudioInput::watch(std::function<void()> watcher) {
  changed = std::move(watcher);
  seen.reset();
  watching.reset();
  if (!changed) return;
  if (connection.state() != PulseConnection::State::unknown) seen = outlook();
  watching = connection.watch([this] { reportChange(); });
}

PulseAudioInput::Outlook PulseAudioInput::outlook() const {
  return {.denied = connection.isDenied(), .present = connection.recordable() != AudioFormat{}};
}

void PulseAudioInput::reportChange() {
  const auto before = std::exchange(seen, outlook());
  const bool delivers = run != nullptr && !run->started;
  // The first answer is not a change: the watcher has just tried to start.
  if (!before || before == seen || delivers) return;
  const auto report = changed;
  report();
}

bool PulseAudioInput::isOfTheDevice() const {
  const ServerFacts& facts = connection.facts();
  const Attempt& attempt = *run->attempt;
  return attempt.stream != nullptr && attempt.format == facts.device &&
         pa_channel_map_equal(&attempt.order, &facts.deviceOrder) != 0;
}

void PulseAudioInput::silent(milliseconds lasting) {
  const AudioFormat device = connection.recordable();
  if (device == AudioFormat{}) return reportAbsence();
  if (!isHopeless(lasting)) return;
  close();
  open(device);
}

/// A stream that the server has not created yet has its own deadline.
bool PulseAudioInput::isHopeless(milliseconds silence) const {
  const Attempt& attempt = *run->attempt;
  const auto age = connection.now() - attempt.begun;
  if (attempt.stream == nullptr) return age >= pauseBetweenAttempts;
  return attempt.ready && silence >= longestSilence && age >= longestSilence;
}

}  // namespace corvane
