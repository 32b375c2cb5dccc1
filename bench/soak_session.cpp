// SPDX-License-Identifier: MIT
#include "bench/soak_session.h"

#include <algorithm>
#include <bit>
#include <chrono>
#include <cmath>
#include <string>
#include <vector>

#include "engine/equal_temperament.h"
#include "tunings/tuning_library.h"

namespace corvane::soak {
namespace {

constexpr std::size_t bufferFrames = 4096;
constexpr double rates[] = {44100.0, 48000.0, 96000.0};

std::uint64_t bits(double value) {
  return std::bit_cast<std::uint64_t>(value);
}

}  // namespace

void Session::play(double seconds, const OnBuffer& onBuffer) {
  beginAnew();
  while (played < seconds) {
    chooseSomething();
    format = {rates[below(std::size(rates))], 1 + below(2)};
    send(someSound(), onBuffer);
    forget();
  }
}

/// Also resets the random numbers. Plays one block of a string, so that no earlier note is shown.
void Session::beginAnew() {
  chance.seed(1);
  played = 0.0;
  passTime(2.0);  // until a reference tone has ended
  engine->stop();
  engine->setInstrument(Instrument::guitar);
  engine->setTuningID("g6-standard");
  engine->setA4(440.0);
  engine->setLeftHanded(false);
  engine->start();
  format = {48000.0, 1};
  deliver(signals::pluckedString(436, PitchCapture::blockSamples, 1), true);
}

void Session::chooseSomething() {
  switch (below(12)) {
    case 0:
      return engine->setInstrument(allInstruments[below(allInstruments.size())]);
    case 1:
    case 2:
      return chooseTuning();
    case 3:
      return engine->setA4(377.0 + below(184));
    case 4:
      return engine->playReference();
    case 5:
      engine->stop();
      return engine->start();
    case 6:
    case 7: {
      const auto strings = static_cast<std::uint32_t>(engine->tuning().strings.size());
      const std::uint32_t choice = below(strings + 1);
      return engine->setLockedStringIndex(choice < strings ? std::optional<std::int64_t>(choice)
                                                           : std::nullopt);
    }
    default:
      return engine->setLeftHanded(below(2) == 0);
  }
}

void Session::chooseTuning() {
  const auto& table = TuningLibrary::tunings(engine->state().instrument);
  engine->setTuningID(table[below(static_cast<std::uint32_t>(table.size()))].id);
}

/// A string of the tuning or a key of the piano, up to half a semitone off.
double Session::someTarget() {
  const auto& strings = engine->tuning().strings;
  const std::int64_t midi = strings.empty()
                                ? 24 + static_cast<std::int64_t>(below(80))
                                : strings[below(static_cast<std::uint32_t>(strings.size()))].midi;
  return targetFrequency(midi, engine->state().a4) * std::exp2((below(101) - 50.0) / 1200.0);
}

signals::Samples Session::someSound() {
  using namespace signals;
  const auto length = static_cast<std::size_t>(format.rate * (1.0 + 0.25 * below(16)));
  const double target = someTarget();
  switch (below(8)) {
    case 0:
      return constant(0.0F, length);
    case 1:
      return noise(length, number(), 0.3);
    case 2:
      return chirp(target * 0.97, target * 1.03, format.rate, length);
    case 3:
      return sum(pluckedString(pluckedDelay(target, format.rate), length, number()),
                 noise(length, number(), 0.05));
    default:
      return pluckedString(pluckedDelay(target, format.rate), length, number());
  }
}

/// Every sound has its own format, so it does not continue the previous one.
void Session::send(const signals::Samples& sound, const OnBuffer& onBuffer) {
  const std::span<const float> all(sound);
  for (std::size_t at = 0; at < all.size(); at += bufferFrames) {
    const auto buffer = all.subspan(at, std::min(bufferFrames, all.size() - at));
    deliver(buffer, at == 0);
    passTime(static_cast<double>(buffer.size()) / format.rate);
    onBuffer(shown());
  }
}

void Session::deliver(std::span<const float> buffer, bool afterGap) {
  const float* channels[] = {buffer.data(), buffer.data()};
  world.input->tap({.channels = channels,
                    .frameLength = static_cast<std::uint32_t>(buffer.size()),
                    .channelCount = format.channels,
                    .sampleRate = format.rate,
                    .afterGap = afterGap});
  world.mainQueue->runAll();
}

void Session::passTime(double seconds) {
  played += seconds;
  world.clock->time += std::chrono::nanoseconds(std::llround(seconds * 1e9));
}

/// The fakes record all calls.
void Session::forget() {
  for (const auto& tone : world.output->played) tone.ended();
  world.output->played.clear();
  world.output->formats.clear();
  world.input->calls.clear();
  world.preferences->writes.clear();
  world.mainQueue->runAll();
}

Shown Session::shown() const {
  const std::string texts = engine->state().noteLabel + '\t' + engine->state().octaveLabel + '\t' +
                            engine->state().heardSpelling + '\t' + engine->state().status;
  return {bits(engine->state().frequency),
          bits(engine->state().cents),
          bits(engine->state().signal),
          std::hash<std::string>{}(texts),
          engine->state().highlightedString,
          engine->state().heard,
          engine->state().inTune};
}

}  // namespace corvane::soak
