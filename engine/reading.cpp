// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/require.h"
#include "engine/equal_temperament.h"
#include "engine/rules.h"
#include "engine/tuner_engine.h"
#include "pitch/pitch_math.h"

namespace corvane {
namespace {

constexpr double acceptedConfidence = 0.82;
constexpr std::size_t historyLength = 5;

/// With an even count, the higher of the two middle values.
double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

}  // namespace

void TunerEngine::apply(const std::optional<PitchDetector::Reading>& reading) {
  const Call call(*this);
  if (platform.clock->now() < suppressUntil) {
    suppressReading();
  } else if (reading && reading->confidence >= acceptedConfidence) {
    acceptReading(*reading);
  } else {
    fallSilent();
  }
}

void TunerEngine::suppressReading() {
  current.status = current.playingReference ? "Playing reference" : "Play a note";
  current.heard = false;
  current.inTune = false;
}

void TunerEngine::acceptReading(const PitchDetector::Reading& reading) {
  current.signal = std::min(static_cast<double>(reading.rms) * 12.0, 1.0);
  const double smoothed = smooth(reading.frequency);
  current.frequency = smoothed;
  current.heard = true;
  const auto note = PitchMath::describe(smoothed, current.a4);
  if (!note) return;
  current.heardSpelling = note->name + std::to_string(note->octave);
  showTarget(smoothed, *note);
  showVerdict();
}

void TunerEngine::showTarget(double smoothed, const PitchMath::Note& note) {
  if (current.instrument == Instrument::piano || tuning().strings.empty()) {
    current.highlightedString = std::nullopt;
    current.noteLabel = note.name;
    current.octaveLabel = std::to_string(note.octave);
    current.cents = note.cents;
    return;
  }
  const auto position =
      current.lockedStringIndex ? current.lockedStringIndex : nearestString(smoothed);
  current.highlightedString = position;
  const GuitarString& string = stringAt(*position);
  current.noteLabel = string.label;
  current.octaveLabel = std::to_string(string.midi / 12 - 1);
  current.cents = centsBetween(smoothed, targetFrequency(string.midi, current.a4));
}

void TunerEngine::showVerdict() {
  current.inTune = isInTune(current.cents);
  current.status = current.inTune ? "In tune" : current.cents < 0.0 ? "Flat" : "Sharp";
}

void TunerEngine::fallSilent() {
  const double decayed = current.signal * 0.6;
  current.signal = decayed >= 0.0 ? decayed : 0.0;
  current.heard = false;
  current.inTune = false;
  current.status = current.listening ? "Play a note" : "Microphone off";
  current.highlightedString = current.lockedStringIndex;
}

/// Compares with the newest raw value, not the last median, so that a new note shows at once.
double TunerEngine::smooth(double raw) {
  if (!history.empty() && isJump(centsBetween(raw, history.back()))) history.clear();
  history.push_back(raw);
  if (history.size() > historyLength) history.erase(history.begin());
  return median(history);
}

std::optional<std::int64_t> TunerEngine::nearestString(double heardFrequency) const {
  const GuitarString* nearest = nullptr;
  double smallest = 0.0;
  for (const GuitarString& string : tuning().strings) {
    const double distance =
        std::abs(centsBetween(heardFrequency, targetFrequency(string.midi, current.a4)));
    if (nearest != nullptr && !(distance < smallest)) continue;
    nearest = &string;
    smallest = distance;
  }
  if (nearest == nullptr) return std::nullopt;
  return nearest->index;
}

bool TunerEngine::isString(std::int64_t index) const {
  return index >= 0 && static_cast<std::size_t>(index) < tuning().strings.size();
}

const GuitarString& TunerEngine::stringAt(std::int64_t index) const {
  require(isString(index), "a chosen string lies in the current tuning");
  return tuning().strings[static_cast<std::size_t>(index)];
}

}  // namespace corvane
