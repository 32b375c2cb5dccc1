// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

#include "engine/apply_sink.h"
#include "engine/equal_temperament.h"
#include "engine/tuner_engine.h"
#include "tests/support/fake_platform.h"

namespace corvane {

/// An engine with a fake platform, on a thread that acts as the main thread.
class EngineTest : public testing::Test {
 protected:
  void SetUp() override { makeEngine(); }

  void makeEngine() {
    engine = TunerEngine::create(world.platform(), capture);
    sink = std::make_unique<ApplySink>(engine, world.mainQueue);
  }

  void hear(const std::optional<PitchDetector::Reading>& reading) {
    sink->deliver(reading);
    world.mainQueue->runAll();
  }
  void hear(double frequency, double confidence = 0.99, float rms = 0.05F) {
    hear(PitchDetector::Reading{frequency, confidence, rms});
  }
  void hearNothing() { hear(std::nullopt); }

  /// With an empty history, after a jump.
  void hearAfresh(double frequency) {
    hear(frequency * 2.0);
    hear(frequency);
  }

  /// A frequency that lies `cents` from the target of a MIDI note.
  double off(std::int64_t midi, double cents) const {
    return targetFrequency(midi, engine->state().a4) * std::exp2(cents / 1200.0);
  }

  /// How often observers are called while `action` runs.
  template <class Action>
  int notifications(Action action) {
    int count = 0;
    const auto handle = engine->observe([&](const DisplayState& before, const DisplayState& now) {
      EXPECT_NE(before, now);
      EXPECT_EQ(now, engine->state());
      ++count;
    });
    action();
    return count;
  }

  fakes::World world;
  std::shared_ptr<PitchCapture> capture = PitchCapture::create(std::make_unique<InlineQueue>());
  std::shared_ptr<TunerEngine> engine;
  std::unique_ptr<ApplySink> sink;
};

}  // namespace corvane
