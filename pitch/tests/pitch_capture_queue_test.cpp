#include <gtest/gtest.h>

#include <random>

#include "pitch/tests/capture_probe.h"

namespace corvane {
namespace {

/// Detection waits for the test; the probe's ramp tells which block is which.
class PitchCaptureQueue : public testing::Test {
 protected:
  std::size_t waitingJobs() const { return probe.waiting->jobs.size(); }
  std::size_t analysed() const { return probe.analysed.size(); }

  /// Runs the one job that waits, which leaves none.
  void runTheJob() {
    ASSERT_EQ(waitingJobs(), 1U);
    probe.waiting->runOne();
    EXPECT_EQ(waitingJobs(), 0U);
  }

  /// The newest of `count` blocks that were analysed began at `first`, and each gave its reading.
  void expectAnalysed(std::size_t count, std::size_t first) const {
    ASSERT_EQ(analysed(), count);
    EXPECT_TRUE(probe.analysed.back().block == signals::ramp(first, blockSamples)) << first;
    EXPECT_EQ(probe.readings.size(), count);
  }

  CaptureProbe probe;
};

TEST_F(PitchCaptureQueue, NothingIsAnalysedWithinConsume) {
  probe.consumeRamp(8191);
  EXPECT_EQ(waitingJobs(), 0U);
  probe.consumeRamp(1);
  EXPECT_EQ(analysed(), 0U);
  EXPECT_TRUE(probe.readings.empty());
  runTheJob();
  expectAnalysed(1, 0);
}

TEST_F(PitchCaptureQueue, OfThreeBlocksInOneBufferOnlyTheLastIsAnalysed) {
  probe.consumeRamp(16384);
  runTheJob();
  expectAnalysed(1, 8192);
}

TEST_F(PitchCaptureQueue, DuringASlowDetectionOneBlockAtMostWaits) {
  bool first = true;
  probe.answer = [&] {
    EXPECT_EQ(probe.readings.size() + 1, analysed()) << "its reading follows each detection";
    if (std::exchange(first, false)) {
      for (int i = 0; i < 10; ++i) probe.consumeRamp(4096);
      EXPECT_EQ(waitingJobs(), 0U) << "the running job is there to take it";
    }
    return PitchDetector::Reading{.frequency = static_cast<double>(analysed())};
  };
  probe.consumeRamp(8192);
  runTheJob();
  expectAnalysed(2, 40960);  // the newest of the ten
  EXPECT_EQ(probe.readings[0]->frequency, 1.0);
  EXPECT_EQ(probe.readings[1]->frequency, 2.0);
}

TEST_F(PitchCaptureQueue, WhatComesDuringTheCallbackIsTakenByTheSameJob) {
  probe.onReading = [&](const auto& reading) {
    probe.readings.push_back(reading);
    if (probe.readings.size() < 5) probe.consumeRamp(4096);
  };
  probe.consumeRamp(8192);
  runTheJob();
  expectAnalysed(5, 16384);
}

TEST_F(PitchCaptureQueue, AJobWhoseCaptureIsGoneCallsNothing) {
  probe.consumeRamp(8192);
  const std::weak_ptr<PitchCapture> capture = probe.capture;
  probe.capture.reset();
  EXPECT_TRUE(capture.expired()) << "the job must not keep it";
  runTheJob();
  EXPECT_EQ(analysed(), 0U);
  EXPECT_TRUE(probe.readings.empty());
}

TEST_F(PitchCaptureQueue, AJobOwnsItsCallbackUntilItIsDone) {
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

/// What the capture is meant to do, with positions on the ramp instead of samples.
struct Model {
  std::size_t end = 0;    ///< of the ramp so far
  std::size_t start = 0;  ///< of the samples that are kept
  std::optional<std::size_t> pending;
  double pendingRate = 0.0;
  std::size_t jobs = 0;

  void consume(std::size_t frames, double rate) {
    for (end += frames; end - start >= blockSamples; start += hopSamples) {
      pending = start;
      pendingRate = rate;
      jobs = 1;
    }
  }

  void reset() {
    start = end;
    pending.reset();
  }
};

TEST_F(PitchCaptureQueue, DoesWhatItsModelDoesInAnyOrderOfEvents) {
  std::mt19937 random(1);
  Model model;
  for (int step = 0; step < 400; ++step) {
    const std::size_t event = random() % 8;
    if (event == 0) {
      probe.capture->reset();
      model.reset();
    } else if (event < 3 && model.jobs == 1) {
      const std::size_t before = analysed();
      runTheJob();
      model.jobs = 0;
      ASSERT_EQ(analysed() - before, model.pending ? 1U : 0U);
      if (model.pending) {
        expectAnalysed(before + 1, *std::exchange(model.pending, {}));
        EXPECT_EQ(probe.analysed.back().rate, model.pendingRate);
      }
    } else {
      const std::size_t frames = random() % 9000;
      const double rate = 44100.0 + static_cast<double>(random() % 100);
      probe.consumeRamp(frames, rate);
      model.consume(frames, rate);
    }
    ASSERT_EQ(waitingJobs(), model.jobs) << "step " << step;
  }
  EXPECT_GT(analysed(), 50U) << "or too little was tested";
}

TEST_F(PitchCaptureQueue, AResetLetsADetectionThatIsRunningEndAndFindNothingMore) {
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

}  // namespace
}  // namespace corvane
