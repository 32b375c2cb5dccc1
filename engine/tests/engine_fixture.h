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

/// An engine in a world of fakes, on a thread that plays the main thread.
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

  /// As if the player had begun anew: a jump empties the smoothing.
  void hearAfresh(double frequency) {
    hear(frequency * 2.0);
    hear(frequency);
  }

  /// A frequency that lies `cents` from the target of a MIDI note.
  double off(std::int64_t midi, double cents) const {
    return targetFrequency(midi, engine->a4()) * std::exp2(cents / 1200.0);
  }

  /// The fields published while `action` runs, in their order.
  template <class Action>
  std::vector<Field> published(Action action) {
    std::vector<Field> fields;
    const auto handle = engine->observe([&](Field field) { fields.push_back(field); });
    action();
    return fields;
  }

  fakes::World world;
  std::shared_ptr<PitchCapture> capture = PitchCapture::create(std::make_unique<InlineQueue>());
  std::shared_ptr<TunerEngine> engine;
  std::unique_ptr<ApplySink> sink;
};

}  // namespace corvane
