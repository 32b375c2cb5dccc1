// The road of a buffer with its real threads: a tap thread, the detection queue and a main thread.

#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <numbers>
#include <thread>

#include "engine/tests/engine_fixture.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

constexpr double rate = 48000.0;

std::vector<float> sine(double frequency, std::size_t frames) {
  std::vector<float> samples(frames);
  for (std::size_t i = 0; i < frames; ++i) {
    const double phase = 2.0 * std::numbers::pi * frequency * static_cast<double>(i) / rate;
    samples[i] = static_cast<float>(0.5 * std::sin(phase));
  }
  return samples;
}

class Pipeline : public testing::Test {
 protected:
  void push(const std::vector<float>& samples) {
    const float* channels[] = {samples.data()};
    world.input->tap({channels, static_cast<std::uint32_t>(samples.size()), 1, rate});
  }

  /// Runs the main thread's jobs until `done`, or gives up.
  template <class Done>
  bool runMainUntil(Done done) {
    const auto deadline = std::chrono::steady_clock::now() + 30s;
    while (!done()) {
      if (std::chrono::steady_clock::now() > deadline) return false;
      world.mainQueue->runAll();
      std::this_thread::yield();
    }
    return true;
  }

  fakes::World world;
};

TEST_F(Pipeline, ASineAtTheTapIsNamedOnTheMainThread) {
  const auto engine = TunerEngine::create(world.platform());
  engine->start();
  std::thread tap([this] { push(sine(110.0, 8192)); });
  EXPECT_TRUE(runMainUntil([&] { return engine->heard(); }));
  tap.join();
  EXPECT_EQ(engine->noteLabel(), "A");
  EXPECT_EQ(engine->status(), "In tune");
}

// What a detection under way touches is shared with it: it may end after the test has.

TEST_F(Pipeline, StartAndStopWhileTheTapRunsJoinNoSamples) {
  struct Seen {
    std::atomic<bool> joined = false;
    std::atomic<int> blocks = 0;
  };
  const auto seen = std::make_shared<Seen>();
  const auto capture = PitchCapture::create(
      std::make_unique<SerialQueue>("corvane.pitch"), [seen](auto block, double) {
        for (const float sample : block) seen->joined = seen->joined || sample != block.front();
        ++seen->blocks;
        return std::nullopt;
      });
  const auto engine = TunerEngine::create(world.platform(), capture);
  float level = 0.0F;
  for (int run = 0; run < 20; ++run) {
    engine->start();
    level += 1.0F;
    std::thread tap([this, level] {
      for (std::size_t frames = 1000; frames <= 5000; frames += 1000) {
        push(std::vector<float>(frames, level));
      }
    });
    tap.join();  // as the adapter's stop does: when it returns, no tap call is running
    engine->stop();
  }
  engine->start();
  push(std::vector<float>(8192, -1.0F));
  EXPECT_TRUE(runMainUntil([&] { return seen->blocks.load() >= 1; }));
  EXPECT_FALSE(seen->joined);
}

/// A detection that begins when it is called and ends when it is told to.
class HeldDetection {
 public:
  std::optional<PitchDetector::Reading> detect() {
    std::unique_lock held(lock);
    begun = true;
    changed.notify_all();
    changed.wait(held, [this] { return released; });
    return PitchDetector::Reading{110.0, 0.99, 0.05F};
  }

  void waitUntilBegun() {
    std::unique_lock held(lock);
    changed.wait(held, [this] { return begun; });
  }

  void release() {
    const std::lock_guard held(lock);
    released = true;
    changed.notify_all();
  }

 private:
  std::mutex lock;
  std::condition_variable changed;
  bool begun = false;
  bool released = false;
};

TEST_F(Pipeline, ReleasingTheEngineWhileDetectionRunsCallsNothing) {
  const auto detection = std::make_shared<HeldDetection>();
  auto capture = PitchCapture::create(std::make_unique<SerialQueue>("corvane.pitch"),
                                      [detection](auto, double) { return detection->detect(); });
  const std::weak_ptr<PitchCapture> pipeline = capture;
  auto engine = TunerEngine::create(world.platform(), std::move(capture));
  int published = 0;
  const auto observation = engine->observe([&](Field) { ++published; });
  engine->start();
  published = 0;

  push(sine(110.0, 8192));
  detection->waitUntilBegun();
  world.input->tap = nullptr;  // the tap holds the pipeline, never the engine
  const std::weak_ptr<TunerEngine> gone = engine;
  engine.reset();
  EXPECT_TRUE(gone.expired());
  detection->release();
  EXPECT_TRUE(runMainUntil([&] { return pipeline.expired(); }));
  world.mainQueue->runAll();
  EXPECT_EQ(published, 0);
}

TEST_F(Pipeline, TapMainThreadAndDetectionRunAgainstEachOther) {
  const auto engine = TunerEngine::create(world.platform());
  engine->start();
  const auto tapCall = world.input->tap;
  std::atomic<bool> ending = false;
  std::thread tap([&] {
    const auto samples = sine(196.0, 4096);
    const float* channels[] = {samples.data(), samples.data()};
    while (!ending) tapCall({channels, 4096, 2, rate});
  });
  int readings = 0;
  const auto observation = engine->observe([&](Field field) {
    if (field == Field::signal) ++readings;
  });
  EXPECT_TRUE(runMainUntil([&] {
    engine->setTuningID(readings % 2 == 0 ? "g6-standard" : "g6-openg");
    if (readings % 5 == 0) engine->stop();
    engine->start();
    return readings >= 25;
  }));
  ending = true;
  tap.join();
}

}  // namespace
}  // namespace corvane
