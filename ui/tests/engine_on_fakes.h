// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

#include "engine/apply_sink.h"
#include "tests/support/fake_platform.h"

namespace corvane {

/// A real engine with a fake platform.
struct EngineOnFakes {
  void hear(const std::optional<PitchDetector::Reading>& reading) {
    ApplySink(engine, world.mainQueue).deliver(reading);
    world.mainQueue->runAll();
  }
  /// The second guitar string, `cents` off.
  void hearA2(double cents, float rms = 0.05F) {
    hear(PitchDetector::Reading{110.0 * std::exp2(cents / 1200.0), 0.99, rms});
  }
  void hearNothing() { hear(std::nullopt); }

  fakes::World world;
  std::shared_ptr<TunerEngine> engine =
      TunerEngine::create(world.platform(), PitchCapture::create(std::make_unique<InlineQueue>()));
};

}  // namespace corvane
