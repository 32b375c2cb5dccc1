// SPDX-License-Identifier: MIT
#include "engine/apply_sink.h"

#include <utility>

#include "engine/tuner_engine.h"

namespace corvane {

ApplySink::ApplySink(std::weak_ptr<TunerEngine> tuner, std::shared_ptr<MainQueue> queue)
    : engine(std::move(tuner)), mainQueue(std::move(queue)) {}

void ApplySink::deliver(const std::optional<PitchDetector::Reading>& reading) const {
  // Weak: a strong reference could make this thread the engine's last owner.
  mainQueue->async([weak = engine, reading] {
    if (const auto tuner = weak.lock()) tuner->apply(reading);
  });
}

}  // namespace corvane
