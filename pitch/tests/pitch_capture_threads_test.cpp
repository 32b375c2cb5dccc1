// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <time.h>

#include <atomic>
#include <thread>

#include "pitch/tests/capture_probe.h"
#include "pitch/tests/readings.h"
#include "pitch/tests/threads.h"

namespace corvane {
namespace {

using Reading = std::optional<PitchDetector::Reading>;

class PitchCaptureThreads : public testing::Test {
 protected:
  /// A running job keeps its capture alive and uses members of the test.
  void TearDown() override {
    capture.reset();
    EXPECT_TRUE(noThreadIsLeftNamed("corvane.pitch"));
  }

  void useDetector(PitchCapture::Detect detect) {
    capture =
        PitchCapture::create(std::make_unique<SerialQueue>("corvane.pitch"), std::move(detect));
  }

  /// Blocks the detection until the test opens `finish`.
  void holdDetection() {
    useDetector([this](auto block, double) -> Reading {
      firstSamples.push(block.front());
      finish.pass();
      return PitchDetector::Reading{.frequency = 440.0};
    });
  }

  void consume(const std::vector<signals::Samples>& channels) {
    feed(*capture, channels, 48000.0, [this](const auto& reading) { readings.push(reading); });
  }

  Door finish;
  Inbox<float> firstSamples;
  Inbox<Reading> readings;
  std::shared_ptr<PitchCapture> capture = PitchCapture::create();
};

TEST_F(PitchCaptureThreads, SineGivesItsReading) {
  const signals::Samples samples = signals::sine(440.0, 48000.0, blockSamples);
  consume({samples, samples});
  ASSERT_TRUE(readings.waitFor(1));
  const Reading expected = PitchCapture::detectMusicalPitch(samples, 48000.0);
  ASSERT_TRUE(expected);
  EXPECT_TRUE(sameBits(readings.all()[0], expected));
}

TEST_F(PitchCaptureThreads, DetectionAndCallbackRunOnTheNamedQueue) {
  Inbox<std::string> names;
  feed(*capture, {signals::ramp(0, blockSamples)}, 48000.0,
       [&](const auto&) { names.push(threadName()); });
  ASSERT_TRUE(names.waitFor(1));
  useDetector([&](auto, double) {
    names.push(threadName());
    return std::nullopt;
  });
  consume({signals::ramp(0, blockSamples)});
  ASSERT_TRUE(readings.waitFor(1));
  EXPECT_EQ(names.all(), std::vector<std::string>(2, "corvane.pitch"));
}

TEST_F(PitchCaptureThreads, ConsumingNeverWaitsForASlowDetection) {
  holdDetection();
  consume({signals::ramp(0, 8192)});
  ASSERT_TRUE(firstSamples.waitFor(1));
  for (std::size_t i = 0; i < 20; ++i) consume({signals::ramp(8192 + i * 4096, 4096)});
  EXPECT_TRUE(readings.all().empty()) << "the first detection is still running";
  finish.open();
  ASSERT_TRUE(readings.waitFor(2));
  EXPECT_EQ(firstSamples.all(), (std::vector{0.0F, 81920.0F})) << "first and newest";
}

/// Memory that cannot be read until `capture` has been reset, for at most half a minute.
class Unreadable {
 public:
  explicit Unreadable(PitchCapture& capture) {
    memory = mmap(nullptr, bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    struct sigaction mine{};
    begun = over = inTime = false;
    mine.sa_handler = &isRead;
    sigaction(SIGSEGV, &mine, &before);
    resetter = std::jthread([&capture] {
      begun.wait(false);
      capture.reset();
      over = true;
    });
  }
  ~Unreadable() {
    begun = true;
    begun.notify_one();
    resetter.join();
    sigaction(SIGSEGV, &before, nullptr);
    munmap(memory, bytes);
  }
  const float* samples() const { return static_cast<const float*>(memory); }
  static bool wasResetMeanwhile() { return inTime; }

 private:
  static constexpr std::size_t bytes = blockSamples * sizeof(float);

  static void isRead(int) {
    begun = true;
    begun.notify_one();
    constexpr timespec moment{0, 1'000'000};
    for (int i = 0; i < 30'000 && !over; ++i) nanosleep(&moment, nullptr);
    inTime = over.load();
    mprotect(memory, bytes, PROT_READ);
  }

  static inline void* memory = nullptr;
  static inline std::atomic<bool> begun, over, inTime;
  struct sigaction before{};
  std::jthread resetter;
};

TEST_F(PitchCaptureThreads, ResetDoesNotWaitForTheMix) {
  const Unreadable slow(*capture);
  const float* channels[] = {slow.samples()};
  capture->consume(
      {.channels = channels, .frameLength = 4096, .channelCount = 1, .sampleRate = 48000.0},
      [](const auto&) {});
  EXPECT_TRUE(Unreadable::wasResetMeanwhile());
}

TEST_F(PitchCaptureThreads, ReleaseDuringADetectionKeepsItsResult) {
  holdDetection();
  consume({signals::ramp(0, blockSamples)});
  ASSERT_TRUE(firstSamples.waitFor(1));
  capture.reset();
  EXPECT_TRUE(readings.all().empty());
  finish.open();
  ASSERT_TRUE(readings.waitFor(1));
  EXPECT_EQ(readings.all()[0]->frequency, 440.0);
}

TEST_F(PitchCaptureThreads, CallbackMayDropTheLastReference) {
  holdDetection();
  PitchCapture& consumer = *capture;
  const std::weak_ptr<PitchCapture> alive = capture;
  auto last = std::make_shared<std::shared_ptr<PitchCapture>>(std::move(capture));
  feed(consumer, {signals::ramp(0, blockSamples)}, 48000.0, [this, last](const auto& reading) {
    last->reset();
    readings.push(reading);
  });
  last.reset();
  ASSERT_TRUE(firstSamples.waitFor(1));
  finish.open();
  ASSERT_TRUE(readings.waitFor(1));
  EXPECT_TRUE(eventually([&] { return alive.expired(); }));
}

}  // namespace
}  // namespace corvane
