#include <gtest/gtest.h>

#include "pitch/tests/capture_probe.h"
#include "pitch/tests/readings.h"

namespace corvane {
namespace {

/// Detection waits for the test; the probe's ramp tells which block is which.
class PitchCaptureQueue : public testing::Test {
 protected:
  std::size_t waitingJobs() const { return probe.waiting->jobs.size(); }
  std::size_t analysed() const { return probe.analysed.size(); }
  float firstSampleOf(std::size_t number) const { return probe.analysed.at(number).block.front(); }

  CaptureProbe probe;
};

TEST_F(PitchCaptureQueue, NothingIsAnalysedWithinConsume) {
  probe.consumeRamp(8192);
  EXPECT_EQ(analysed(), 0U);
  EXPECT_TRUE(probe.readings.empty());
  ASSERT_EQ(waitingJobs(), 1U);
  probe.waiting->runOne();
  EXPECT_EQ(analysed(), 1U);
  EXPECT_EQ(probe.readings.size(), 1U);
}

TEST_F(PitchCaptureQueue, NothingIsSubmittedBeforeABlockIsComplete) {
  probe.consumeRamp(8191);
  EXPECT_EQ(waitingJobs(), 0U);
}

TEST_F(PitchCaptureQueue, OfThreeBlocksInOneBufferOnlyTheLastIsAnalysed) {
  probe.consumeRamp(16384);
  ASSERT_EQ(waitingJobs(), 1U);
  probe.waiting->runOne();
  ASSERT_EQ(analysed(), 1U);
  EXPECT_EQ(firstSampleOf(0), 8192.0F);
  EXPECT_EQ(probe.readings.size(), 1U);
  EXPECT_EQ(waitingJobs(), 0U);
}

TEST_F(PitchCaptureQueue, ABlockThatWaitsIsReplacedTogetherWithItsRate) {
  probe.consumeRamp(8192, 48000.0);
  probe.consumeRamp(4096, 44100.0);
  probe.waiting->runOne();
  ASSERT_EQ(analysed(), 1U);
  EXPECT_EQ(firstSampleOf(0), 4096.0F);
  EXPECT_EQ(probe.analysed[0].rate, 44100.0);
}

TEST_F(PitchCaptureQueue, WhatComesDuringASlowDetectionWaitsAsOneBlockForTheSameJob) {
  bool first = true;
  probe.answer = [&] {
    if (std::exchange(first, false)) {
      for (int i = 0; i < 10; ++i) probe.consumeRamp(4096);
      EXPECT_EQ(waitingJobs(), 0U) << "the running job is there to take it";
    }
    return std::nullopt;
  };
  probe.consumeRamp(8192);
  probe.waiting->runOne();
  ASSERT_EQ(analysed(), 2U);
  EXPECT_EQ(firstSampleOf(1), 40960.0F) << "the newest of the ten";
  EXPECT_EQ(probe.readings.size(), 2U) << "one for each finished detection";
  EXPECT_EQ(waitingJobs(), 0U);
}

TEST_F(PitchCaptureQueue, WhatComesDuringTheCallbackIsTakenByTheSameJob) {
  probe.onReading = [&](const auto& reading) {
    probe.readings.push_back(reading);
    if (probe.readings.size() < 5) probe.consumeRamp(4096);
  };
  probe.consumeRamp(8192);
  probe.waiting->runOne();
  EXPECT_EQ(analysed(), 5U);
  EXPECT_EQ(probe.readings.size(), 5U);
  EXPECT_EQ(waitingJobs(), 0U);
}

TEST_F(PitchCaptureQueue, AfterAJobFoundNothingMoreTheNextBlockGetsAJobOfItsOwn) {
  for (std::size_t number = 0; number < 4; ++number) {
    probe.consumeRamp(number == 0 ? 8192 : 4096);
    ASSERT_EQ(waitingJobs(), 1U);
    probe.waiting->runOne();
    ASSERT_EQ(analysed(), number + 1);
    EXPECT_EQ(firstSampleOf(number), static_cast<float>(number * 4096));
  }
}

TEST_F(PitchCaptureQueue, EachDetectionIsFollowedByItsReadingBeforeTheNextOneStarts) {
  bool more = true;
  probe.answer = [&] {
    EXPECT_EQ(probe.readings.size() + 1, analysed());
    if (std::exchange(more, false)) probe.consumeRamp(4096);
    return PitchDetector::Reading{.frequency = static_cast<double>(analysed())};
  };
  probe.consumeRamp(8192);
  probe.waiting->runOne();
  ASSERT_EQ(probe.readings.size(), 2U);
  EXPECT_EQ(probe.readings[0]->frequency, 1.0);
  EXPECT_EQ(probe.readings[1]->frequency, 2.0);
}

TEST_F(PitchCaptureQueue, AJobWhoseCaptureIsGoneCallsNothing) {
  probe.consumeRamp(8192);
  ASSERT_EQ(waitingJobs(), 1U);
  const std::weak_ptr<PitchCapture> capture = probe.capture;
  probe.capture.reset();
  EXPECT_TRUE(capture.expired()) << "the job must not keep it";
  probe.waiting->runOne();
  EXPECT_EQ(analysed(), 0U);
  EXPECT_TRUE(probe.readings.empty());
}

TEST_F(PitchCaptureQueue, AJobThatRunsKeepsItsCaptureUntilItIsDone) {
  const std::weak_ptr<PitchCapture> capture = probe.capture;
  probe.answer = [&] {
    probe.capture.reset();
    EXPECT_FALSE(capture.expired());
    return std::nullopt;
  };
  probe.consumeRamp(8192);
  probe.waiting->runOne();
  EXPECT_EQ(probe.readings.size(), 1U) << "the result of a running detection is delivered";
  EXPECT_TRUE(capture.expired());
}

TEST_F(PitchCaptureQueue, AJobOwnsItsCallback) {
  auto token = std::make_shared<int>(0);
  const std::weak_ptr<int> alive = token;
  probe.onReading = [token = std::move(token)](const auto&) { ++*token; };
  probe.consumeRamp(8192);
  probe.onReading = nullptr;
  EXPECT_FALSE(alive.expired());
  probe.waiting->runOne();
  EXPECT_EQ(analysed(), 1U);
  EXPECT_TRUE(alive.expired()) << "and gives it back when it is done";
}

}  // namespace
}  // namespace corvane
