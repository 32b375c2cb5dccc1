// SPDX-License-Identifier: MIT
#include <chrono>

#include "engine/equal_temperament.h"
#include "engine/rules.h"
#include "engine/tone_buffer.h"
#include "engine/tuner_engine.h"
#include "pitch/pitch_math.h"

namespace corvane {
namespace {

/// The tone's 1.05 s, and the time until its echo has left the analysed blocks.
constexpr auto suppression = std::chrono::milliseconds(1350);

}  // namespace

double TunerEngine::referenceFrequency() const {
  const auto count = static_cast<std::int64_t>(tuning().strings.size());
  if (current.instrument != Instrument::piano && count > 0) {
    const auto chosen =
        current.lockedStringIndex ? current.lockedStringIndex : current.highlightedString;
    return targetFrequency(stringAt(chosen.value_or(defaultString(count))).midi, current.a4);
  }
  const auto note =
      current.heard ? PitchMath::describe(current.frequency, current.a4) : std::nullopt;
  return note ? targetFrequency(note->midi, current.a4) : current.a4;
}

bool TunerEngine::prepareToneEngine(double sampleRate) {
  if (toneReady && platform.audioOutput->isRunning()) return true;
  toneReady = platform.audioOutput->start({sampleRate, 1});
  return toneReady;
}

void TunerEngine::playReference() {
  const Call call(*this);
  const double hertz = referenceFrequency();
  if (!(hertz > 0.0)) return;
  if (!prepareToneEngine(toneSampleRate)) return;

  suppressUntil = platform.clock->now() + suppression;
  current.playingReference = true;
  platform.audioOutput->play(toneBuffer(hertz, toneSampleRate),
                             [weak = weak_from_this(), queue = platform.mainQueue] {
                               queue->async([weak] {
                                 if (const auto engine = weak.lock()) engine->referenceEnded();
                               });
                             });
}

void TunerEngine::referenceEnded() {
  const Call call(*this);
  current.playingReference = false;
}

}  // namespace corvane
