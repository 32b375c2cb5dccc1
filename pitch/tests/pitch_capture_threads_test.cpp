#include <gtest/gtest.h>

#include <atomic>

#include "pitch/tests/capture_probe.h"
#include "pitch/tests/readings.h"
#include "pitch/tests/threads.h"

namespace corvane {
namespace {

using Reading = std::optional<PitchDetector::Reading>;

std::unique_ptr<SerialQueue> pitchQueue() {
  return std::make_unique<SerialQueue>("corvane.pitch");
}

bool noPitchThreadIsLeft() {
  return eventually([] { return threadsNamed("corvane.pitch") == 0; });
}

TEST(PitchCaptureThreads, ASineComesOutAsItsReading) {
  const signals::Samples samples = signals::sine(440.0, 48000.0, blockSamples);
  Inbox<Reading> readings;
  const auto capture = PitchCapture::create();
  feed(*capture, {samples, samples}, 48000.0, [&](const auto& reading) { readings.push(reading); });
  ASSERT_TRUE(readings.waitFor(1));
  const Reading expected = PitchDetector::detect(samples, 48000.0, 27.0, 4300.0, 0.15);
  ASSERT_TRUE(expected);
  EXPECT_TRUE(sameBits(readings.all()[0], expected));
}

TEST(PitchCaptureThreads, OppositeChannelsComeOutAsNoPitch) {
  const signals::Samples samples = signals::sine(440.0, 48000.0, blockSamples);
  Inbox<Reading> readings;
  const auto capture = PitchCapture::create();
  feed(*capture, {samples, signals::scaled(samples, -1.0F)}, 48000.0,
       [&](const auto& reading) { readings.push(reading); });
  ASSERT_TRUE(readings.waitFor(1));
  EXPECT_FALSE(readings.all()[0]);
}

TEST(PitchCaptureThreads, ItsOwnQueueIsTheOneThreadNamedAfterItsWork) {
  Inbox<std::string> names;
  Inbox<std::size_t> count;
  const auto capture = PitchCapture::create();
  feed(*capture, {signals::ramp(0, blockSamples)}, 48000.0, [&](const auto&) {
    names.push(threadName());
    count.push(threadsNamed("corvane.pitch"));
  });
  ASSERT_TRUE(count.waitFor(1));
  EXPECT_EQ(names.all()[0], "corvane.pitch");
  EXPECT_EQ(count.all()[0], 1U);
}

TEST(PitchCaptureThreads, DetectionAndCallbackRunOnTheQueue) {
  Inbox<std::string> names;
  const auto capture =
      PitchCapture::create(std::make_unique<SerialQueue>("detection"), [&](auto, double) {
        names.push(threadName());
        return std::nullopt;
      });
  feed(*capture, {signals::ramp(0, blockSamples)}, 48000.0,
       [&](const auto&) { names.push(threadName()); });
  ASSERT_TRUE(names.waitFor(2));
  EXPECT_EQ(names.all(), (std::vector<std::string>{"detection", "detection"}));
}

TEST(PitchCaptureThreads, ConsumingNeverWaitsForASlowDetection) {
  Door started;
  Door finish;
  Inbox<float> firstSamples;
  Inbox<Reading> readings;
  const auto capture = PitchCapture::create(pitchQueue(), [&](auto block, double) {
    firstSamples.push(block.front());
    started.open();
    finish.pass();
    return std::nullopt;
  });
  const auto consume = [&](std::size_t first, std::size_t length) {
    feed(*capture, {signals::ramp(first, length)}, 48000.0,
         [&](const auto& reading) { readings.push(reading); });
  };
  consume(0, 8192);
  ASSERT_TRUE(started.pass());
  for (std::size_t i = 0; i < 20; ++i) consume(8192 + i * 4096, 4096);
  EXPECT_TRUE(readings.all().empty()) << "the first detection is still running";
  finish.open();
  ASSERT_TRUE(readings.waitFor(2));
  EXPECT_EQ(firstSamples.all(), (std::vector{0.0F, 81920.0F})) << "the first and the newest";
}

TEST(PitchCaptureThreads, AReleaseDuringADetectionNeitherWaitsForItNorLosesItsResult) {
  Door started;
  Door finish;
  Inbox<Reading> readings;
  auto capture = PitchCapture::create(pitchQueue(), [&](auto, double) {
    started.open();
    finish.pass();
    return PitchDetector::Reading{.frequency = 440.0};
  });
  feed(*capture, {signals::ramp(0, blockSamples)}, 48000.0,
       [&](const auto& reading) { readings.push(reading); });
  ASSERT_TRUE(started.pass());
  capture.reset();
  EXPECT_TRUE(readings.all().empty());
  finish.open();
  ASSERT_TRUE(readings.waitFor(1));
  EXPECT_EQ(readings.all()[0]->frequency, 440.0);
  EXPECT_TRUE(noPitchThreadIsLeft()) << "the job held the last reference and ended its own thread";
}

TEST(PitchCaptureThreads, TheCallbackMayDropTheLastReference) {
  Door consumed;
  Door dropped;
  auto capture = PitchCapture::create(pitchQueue(), [&](auto, double) -> Reading {
    consumed.pass();
    return std::nullopt;
  });
  const std::weak_ptr<PitchCapture> alive = capture;
  PitchCapture& consumer = *capture;
  auto last = std::make_shared<std::shared_ptr<PitchCapture>>(std::move(capture));
  feed(consumer, {signals::ramp(0, blockSamples)}, 48000.0, [&, last](const auto&) {
    last->reset();
    dropped.open();
  });
  last.reset();
  consumed.open();
  ASSERT_TRUE(dropped.pass());
  EXPECT_TRUE(eventually([&] { return alive.expired(); }));
  EXPECT_TRUE(noPitchThreadIsLeft());
}

TEST(PitchCaptureThreads, AJobStillQueuedWhenTheCaptureIsReleasedCallsNothing) {
  std::atomic<int> calls = 0;
  auto queue = pitchQueue();
  SerialQueue& submit = *queue;
  auto capture = PitchCapture::create(std::move(queue), [&](auto, double) {
    ++calls;
    return std::nullopt;
  });
  const std::weak_ptr<PitchCapture> alive = capture;
  submit.async([alive] { eventually([&] { return alive.expired(); }); });
  feed(*capture, {signals::ramp(0, blockSamples)}, 48000.0, [&](const auto&) { ++calls; });
  capture.reset();
  EXPECT_TRUE(noPitchThreadIsLeft());
  EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace corvane
