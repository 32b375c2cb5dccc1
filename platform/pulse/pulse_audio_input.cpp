#include "platform/pulse/pulse_audio_input.h"

#include <pulse/def.h>

#include <utility>

#include "base/require.h"

namespace corvane {
namespace {

using std::chrono::milliseconds;

/// PipeWire lets a stream fall silent without a word when its device has gone. A device that sleeps
/// is silent too and wakes up by itself, so this is no reason for haste.
constexpr milliseconds longestSilence{1500};
/// A device that is being replaced is back sooner.
constexpr milliseconds longestAbsence{1500};
/// Between recordings that the server does not allow or ends at once.
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

/// Carries jobs to the main thread, where they count only during `lifetime`, which ends, at the
/// latest, with this object.
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
  // The first recording's end is how the start ended; that of a later one leaves silence, which
  // leads to the next.
  const Started started = std::exchange(run->started, nullptr);
  if (started) stop();
  // Who hears of the refusal may stop the input.
  if (error == PA_ERR_ACCESS) connection.refuseRecording();
  if (started) started(false);
}

void PulseAudioInput::serverChanged() {
  const AudioFormat device = connection.recordable();
  if (device == AudioFormat{}) return goWithout();
  run->deafSince.reset();
  if (isOfTheDevice()) return;
  close();
  open(device);
}

/// Called at the start of an absence and with each silent buffer during it.
void PulseAudioInput::goWithout() {
  // Without a microphone the server may let us hear its loudspeakers instead.
  close();
  if (!run->deafSince) run->deafSince = connection.now();
  if (connection.now() - *run->deafSince < longestAbsence) return;
  run->deafSince = connection.now();
  if (const auto report = changed) report();
}

void PulseAudioInput::watch(std::function<void()> watcher) {
  changed = std::move(watcher);
  seen.reset();
  watching.reset();
  if (!changed) return;
  if (connection.state() == PulseConnection::State::connected) seen = outlook();
  watching = connection.watch([this] { lookAgain(); });
}

PulseAudioInput::Outlook PulseAudioInput::outlook() const {
  return {.denied = connection.isDenied(), .present = connection.recordable() != AudioFormat{}};
}

void PulseAudioInput::lookAgain() {
  const auto before = std::exchange(seen, outlook());
  const bool delivers = run != nullptr && !run->started;
  // The first answer is no change: whoever watches has just tried to start.
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
  if (device == AudioFormat{}) return goWithout();
  if (!isHopeless(lasting)) return;
  close();
  open(device);
}

/// A stream that the server has not made yet has a deadline of its own.
bool PulseAudioInput::isHopeless(milliseconds silence) const {
  const Attempt& attempt = *run->attempt;
  const auto age = connection.now() - attempt.begun;
  if (attempt.stream == nullptr) return age >= pauseBetweenAttempts;
  return attempt.ready && silence >= longestSilence && age >= longestSilence;
}

}  // namespace corvane
