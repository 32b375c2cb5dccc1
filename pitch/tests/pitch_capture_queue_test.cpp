// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "pitch/tests/capture_probe.h"
#include "tests/support/fuzzer_inputs.h"

namespace corvane {
namespace {

/// Detection waits for the test; the probe's ramp identifies the blocks.
class PitchCaptureQueue : public testing::Test {
 protected:
  std::size_t waitingJobs() const { return probe.waiting->jobs.size(); }
  std::size_t analysed() const { return probe.analysed.size(); }

  /// Runs the only waiting job; none is left.
  void runTheJob() {
    ASSERT_EQ(waitingJobs(), 1U);
    probe.waiting->runOne();
    EXPECT_EQ(waitingJobs(), 0U);
  }

  /// `count` blocks were analysed, each gave its reading, and the newest began at `first`.
  void expectAnalysed(std::size_t count, std::size_t first) const {
    ASSERT_EQ(analysed(), count);
    EXPECT_TRUE(probe.analysed.back().block == signals::ramp(first, blockSamples)) << first;
    EXPECT_EQ(probe.readings.size(), count);
  }

  CaptureProbe probe;
};

TEST_F(PitchCaptureQueue, ConsumeAnalysesNothingItself) {
  probe.consumeRamp(8191);
  EXPECT_EQ(waitingJobs(), 0U);
  probe.consumeRamp(1);
  EXPECT_EQ(analysed(), 0U);
  EXPECT_TRUE(probe.readings.empty());
  runTheJob();
  expectAnalysed(1, 0);
}

TEST_F(PitchCaptureQueue, AnalysesOnlyTheLastOfThreeBlocksInOneBuffer) {
  probe.consumeRamp(16384);
  runTheJob();
  expectAnalysed(1, 8192);
}

TEST_F(PitchCaptureQueue, AtMostOneBlockWaitsDuringASlowDetection) {
  bool first = true;
  probe.answer = [&] {
    EXPECT_EQ(probe.readings.size() + 1, analysed()) << "its reading follows each detection";
    if (std::exchange(first, false)) {
      for (int i = 0; i < 10; ++i) probe.consumeRamp(4096);
      EXPECT_EQ(waitingJobs(), 0U) << "the running job takes it";
    }
    return PitchDetector::Reading{.frequency = static_cast<double>(analysed())};
  };
  probe.consumeRamp(8192);
  runTheJob();
  expectAnalysed(2, 40960);  // the newest of the ten
  EXPECT_EQ(probe.readings[0]->frequency, 1.0);
  EXPECT_EQ(probe.readings[1]->frequency, 2.0);
}

TEST_F(PitchCaptureQueue, SameJobTakesABlockThatArrivesDuringTheCallback) {
  probe.onReading = [&](const auto& reading) {
    probe.readings.push_back(reading);
    if (probe.readings.size() < 5) probe.consumeRamp(4096);
  };
  probe.consumeRamp(8192);
  runTheJob();
  expectAnalysed(5, 16384);
}

TEST_F(PitchCaptureQueue, JobOfAReleasedCaptureCallsNothing) {
  probe.consumeRamp(8192);
  const std::weak_ptr<PitchCapture> capture = probe.capture;
  probe.capture.reset();
  EXPECT_TRUE(capture.expired()) << "the job does not keep it alive";
  runTheJob();
  EXPECT_EQ(analysed(), 0U);
  EXPECT_TRUE(probe.readings.empty());
}

TEST_F(PitchCaptureQueue, JobOwnsItsCallbackUntilItEnds) {
  auto token = std::make_shared<int>(0);
  const std::weak_ptr<int> alive = token;
  probe.onReading = [token = std::move(token)](const auto&) { ++*token; };
  probe.consumeRamp(8192);
  probe.onReading = nullptr;
  EXPECT_FALSE(alive.expired());
  runTheJob();
  EXPECT_EQ(analysed(), 1U);
  EXPECT_TRUE(alive.expired());
}

TEST_F(PitchCaptureQueue, ResetLetsARunningDetectionEnd) {
  probe.answer = [&] {
    probe.consumeRamp(4096);
    probe.capture->reset();
    return PitchDetector::Reading{.frequency = 440.0};
  };
  probe.consumeRamp(8192);
  runTheJob();
  expectAnalysed(1, 0);
  EXPECT_EQ(probe.readings[0]->frequency, 440.0);
}

TEST(PitchCaptureModel, MatchesThePipelineForAnyInput) {
  runFuzzer(12, 200);
}

}  // namespace
}  // namespace corvane
