// SPDX-License-Identifier: MIT
// The path of a buffer with real threads: tap, detection queue and main thread.

#include "engine/tests/engine_fixture.h"
#include "pitch/tests/threads.h"
#include "tests/support/signals.h"

namespace corvane {
namespace {

constexpr double rate = 48000.0;

class Pipeline : public EngineTest {
 protected:
  Pipeline() { capture = PitchCapture::create(); }

  static void push(const AudioInput::Tap& tap, const signals::Samples& samples) {
    const float* channels[] = {samples.data()};
    tap({channels, static_cast<std::uint32_t>(samples.size()), 1, rate});
  }

  /// Runs the main thread's jobs until `done`, or gives up.
  template <class Done>
  bool runMainUntil(Done done) {
    return eventually([&] {
      world.mainQueue->runAll();
      return done();
    });
  }
};

TEST_F(Pipeline, ASineAtTheTapIsNamedOnTheMainThread) {
  engine->start();
  std::thread tap([this] { push(world.input->tap, signals::sine(110.0, rate, 8192)); });
  EXPECT_TRUE(runMainUntil([&] { return engine->state().heard; }));
  tap.join();
  EXPECT_EQ(engine->state().noteLabel, "A");
  EXPECT_EQ(engine->state().status, "In tune");
}

TEST_F(Pipeline, ReleasingTheEngineWhileDetectionRunsCallsNothing) {
  // Shared with a detection that may end after the test has.
  const auto begun = std::make_shared<Door>();
  const auto released = std::make_shared<Door>();
  capture = PitchCapture::create(std::make_unique<SerialQueue>("corvane.pitch"),
                                 [begun, released](auto, double) {
                                   begun->open();
                                   released->pass();
                                   return PitchDetector::Reading{110.0, 0.99, 0.05F};
                                 });
  makeEngine();
  const std::weak_ptr<PitchCapture> pipeline = std::exchange(capture, nullptr);
  engine->start();
  int notifications = 0;
  const auto observation = engine->observe([&](auto&, auto&) { ++notifications; });

  push(world.input->tap, signals::constant(0.5F, 8192));
  ASSERT_TRUE(begun->pass());
  world.input->tap = nullptr;  // the tap holds the pipeline, never the engine
  const std::weak_ptr<TunerEngine> gone = engine;
  engine.reset();
  EXPECT_TRUE(gone.expired());
  released->open();
  EXPECT_TRUE(runMainUntil([&] { return pipeline.expired(); }));
  world.mainQueue->runAll();
  EXPECT_EQ(notifications, 0);
}

TEST_F(Pipeline, TapMainThreadAndDetectionRunAgainstEachOther) {
  engine->start();
  const std::jthread tap([call = world.input->tap](const std::stop_token& ending) {
    // Two notes in turn, because an equal reading notifies nobody.
    const std::vector notes{signals::sine(196.0, rate, 32768), signals::sine(147.0, rate, 32768)};
    for (std::size_t i = 0; !ending.stop_requested(); ++i) push(call, notes[i % 2]);
  });
  int readings = 0;
  const auto observation =
      engine->observe([&](const DisplayState& before, const DisplayState& now) {
        if (now.frequency != before.frequency) ++readings;
      });
  for (int seen = 0; seen < 10; seen = readings) {
    engine->setTuningID(seen % 2 == 0 ? "g6-standard" : "g6-openg");
    engine->stop();
    engine->start();
    ASSERT_TRUE(runMainUntil([&] { return readings > seen; }));
  }
}

}  // namespace
}  // namespace corvane
