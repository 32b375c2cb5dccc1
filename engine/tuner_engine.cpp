// SPDX-License-Identifier: MIT
#include "engine/tuner_engine.h"

#include <utility>

#include "tunings/tuning_library.h"

namespace corvane {

std::shared_ptr<TunerEngine> TunerEngine::create(Platform platform,
                                                 std::shared_ptr<PitchCapture> capture) {
  return std::shared_ptr<TunerEngine>(new TunerEngine(std::move(platform), std::move(capture)));
}

TunerEngine::TunerEngine(Platform outside, std::shared_ptr<PitchCapture> pipeline)
    : platform(std::move(outside)),
      capture(std::move(pipeline)),
      current(stored(*platform.preferences)) {
  persist();
}

TunerEngine::~TunerEngine() {
  platform.audioInput->watch(nullptr);
  platform.audioInput->stop();
}

std::shared_ptr<const void> TunerEngine::observe(Observers::Observer observer) {
  return observers.add(std::move(observer));
}

const Tuning& TunerEngine::tuning() const {
  return TuningLibrary::resolve(current.instrument, current.tuningID);
}

}  // namespace corvane
