// SPDX-License-Identifier: MIT
// Actions of the user.

#include <algorithm>
#include <array>

#include "base/require.h"
#include "fuzz/engine_session.h"
#include "tunings/tuning_library.h"

namespace corvane::fuzz {
namespace {

constexpr double usualPitches[] = {440.0, 415.0, 377.0, 560.0, 300.0, 600.0};
constexpr std::array keys = {"tuner.instrument", "tuner.tuning", "tuner.a4", "tuner.left"};

fakes::MemoryPreferences::Value anyValue(Bytes& input) {
  switch (input.below(3)) {
    case 0:
      return input.text(24);
    case 1:
      return input.usualOrAny(usualPitches);
    default:
      return input.flag();
  }
}

bool isWithinPeak(float sample) {
  return sample >= -0.22F && sample <= 0.22F;
}

}  // namespace

void EngineSession::chooseInstrument() {
  engine->setInstrument(allInstruments[input.below(allInstruments.size())]);
  raw.clear();
}

/// Mostly a tuning of the instrument, as in the menu.
void EngineSession::chooseTuning() {
  const std::size_t which = input.below(8);
  if (which == 0) return engine->setTuningID(input.text(16));
  const Instrument instrument = which < 4 ? allInstruments[which - 1] : engine->state().instrument;
  const auto& table = TuningLibrary::tunings(instrument);
  engine->setTuningID(table[input.below(table.size())].id);
}

void EngineSession::lockOrRelease() {
  const std::size_t choice = input.below(engine->tuning().strings.size() + 1);
  if (choice == 0) return engine->setLockedStringIndex(std::nullopt);
  engine->setLockedStringIndex(static_cast<std::int64_t>(choice - 1));
}

void EngineSession::choosePitch() {
  engine->setA4(input.usualOrAny(usualPitches));
}

void EngineSession::flipHand() {
  engine->setLeftHanded(input.flag());
}

void EngineSession::start() {
  if (onScreen) engine->start();
}

void EngineSession::stop() {
  engine->stop();
  require(!engine->state().listening && !engine->state().playingReference,
          "nothing runs after a stop");
}

void EngineSession::hideOrShow() {
  onScreen = input.flag();
  onScreen ? engine->start() : engine->stop();
}

void EngineSession::openMicSettings() {
  world.urlOpener->failures = input.below(3);
  world.urlOpener->opened.clear();
  engine->openMicSettings();
  require(world.urlOpener->opened.size() == std::min<std::size_t>(world.urlOpener->failures + 1, 2),
          "the second address is tried only if the first fails");
}

void EngineSession::allowMicrophone() {
  if (onScreen) engine->allowMicrophone();
}

/// Limited: a second of sine takes longer than a hundred other actions.
void EngineSession::pressReference() {
  if (++presses > 4) return;
  const std::size_t before = world.output->played.size();
  engine->playReference();
  if (world.output->played.size() == before) return;
  require(engine->state().playingReference, "an accepted tone is playing");
  // On the piano the tone follows the heard frequency, and far above any detector's range a double
  // has no precision left for the phase.
  const bool bounded = engine->state().frequency < 1e9;
  require(!bounded || std::ranges::all_of(world.output->played.back().samples, isWithinPeak),
          "the samples are within the peak");
  quietUntil = world.clock->time + std::chrono::milliseconds(1350);
}

/// Restarts the program, perhaps with other preferences than it saved.
void EngineSession::restart() {
  sink.reset();
  std::weak_ptr<TunerEngine> gone = engine;
  engine.reset();
  require(gone.expired(), "nothing keeps the engine alive");
  inFlight.clear();
  if (input.flag()) world.preferences->values[keys[input.below(keys.size())]] = anyValue(input);
  launch();
  require(engine->state().tuningID == engine->tuning().id, "the tuning is valid at the start");
  if (onScreen && input.flag()) engine->start();
}

}  // namespace corvane::fuzz
