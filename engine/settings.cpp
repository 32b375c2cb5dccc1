// SPDX-License-Identifier: MIT
#include "engine/tuner_engine.h"
#include "tunings/tuning_library.h"

namespace corvane {
namespace {

constexpr double lowestA4 = 377.0;
constexpr double highestA4 = 560.0;
constexpr double defaultA4 = 440.0;

constexpr auto instrumentKey = "tuner.instrument";
constexpr auto tuningKey = "tuner.tuning";
constexpr auto a4Key = "tuner.a4";
constexpr auto leftKey = "tuner.left";

Instrument storedInstrument(const Preferences& preferences) {
  const auto text = preferences.string(instrumentKey).value_or("");
  return instrumentFromRawValue(text).value_or(Instrument::guitar);
}

std::string storedTuningID(const Preferences& preferences, Instrument instrument) {
  const auto id = preferences.string(tuningKey).value_or("");
  return TuningLibrary::resolve(instrument, id).id;
}

double storedA4(const Preferences& preferences) {
  const double hertz = preferences.number(a4Key).value_or(0.0);
  return lowestA4 <= hertz && hertz <= highestA4 ? hertz : defaultA4;
}

/// NaN becomes the lowest pitch.
double clampedA4(double hertz) {
  const double raised = hertz > lowestA4 ? hertz : lowestA4;
  return raised > highestA4 ? highestA4 : raised;
}

}  // namespace

DisplayState TunerEngine::stored(const Preferences& preferences) {
  DisplayState state;
  state.instrument = storedInstrument(preferences);
  state.tuningID = storedTuningID(preferences, state.instrument);
  state.a4 = storedA4(preferences);
  state.leftHanded = preferences.boolean(leftKey).value_or(false);
  return state;
}

void TunerEngine::setInstrument(Instrument next) {
  const Call call(*this);
  current.instrument = next;
  persist();
  adoptTuningIfNeeded();
}

void TunerEngine::setTuningID(const std::string& next) {
  const Call call(*this);
  current.tuningID = next;
  persist();
  current.lockedStringIndex = std::nullopt;
  dropForeignHighlight();
}

void TunerEngine::setA4(double hertz) {
  const Call call(*this);
  current.a4 = clampedA4(hertz);
  persist();
}

void TunerEngine::setLeftHanded(bool next) {
  const Call call(*this);
  current.leftHanded = next;
  persist();
}

void TunerEngine::setLockedStringIndex(std::optional<std::int64_t> index) {
  const Call call(*this);
  current.lockedStringIndex = index;
}

void TunerEngine::persist() {
  Preferences& preferences = *platform.preferences;
  preferences.setString(instrumentKey, rawValue(current.instrument));
  preferences.setString(tuningKey, current.tuningID);
  preferences.setNumber(a4Key, current.a4);
  preferences.setBoolean(leftKey, current.leftHanded);
}

/// The highlight may be of a tuning with more strings, and the reference tone may read it before
/// the next reading sets it.
void TunerEngine::dropForeignHighlight() {
  if (current.highlightedString && !isString(*current.highlightedString))
    current.highlightedString = std::nullopt;
}

/// Smoothing must not mix readings of two instruments.
void TunerEngine::adoptTuningIfNeeded() {
  if (TuningLibrary::find(current.instrument, current.tuningID) == nullptr)
    setTuningID(tuning().id);
  current.lockedStringIndex = std::nullopt;
  dropForeignHighlight();
  history.clear();
}

}  // namespace corvane
