#include <gtest/gtest.h>

#include "pitch/tests/capture_probe.h"

namespace corvane {
namespace {

class PitchCaptureReset : public testing::Test {
 protected:
  std::size_t waitingJobs() const { return probe.waiting->jobs.size(); }

  CaptureProbe probe;
};

TEST_F(PitchCaptureReset, ForgetsTheSamplesThatHaveNotMadeABlockYet) {
  probe.consumeRamp(8191);
  probe.capture->reset();
  probe.consumeRamp(8191);
  EXPECT_EQ(waitingJobs(), 0U);
  probe.consumeRamp(1);
  ASSERT_EQ(waitingJobs(), 1U);
  probe.waiting->runOne();
  ASSERT_EQ(probe.analysed.size(), 1U);
  EXPECT_EQ(probe.analysed[0].block, signals::ramp(8191, blockSamples))
      << "what came before is never joined to what came after";
}

TEST_F(PitchCaptureReset, ForgetsTheHalfBlockThatIsKeptForTheNextOne) {
  probe.consumeRamp(8192);
  probe.waiting->runOne();
  probe.capture->reset();
  probe.consumeRamp(4096);
  EXPECT_EQ(waitingJobs(), 0U);
  probe.consumeRamp(4096);
  ASSERT_EQ(waitingJobs(), 1U);
  probe.waiting->runOne();
  EXPECT_EQ(probe.analysed.at(1).block, signals::ramp(8192, blockSamples));
}

TEST_F(PitchCaptureReset, DropsTheBlockThatWaits) {
  probe.consumeRamp(8192);
  probe.capture->reset();
  ASSERT_EQ(waitingJobs(), 1U);
  probe.waiting->runOne();
  EXPECT_TRUE(probe.analysed.empty());
  EXPECT_TRUE(probe.readings.empty());
}

TEST_F(PitchCaptureReset, AJobThatFoundNothingMakesRoomForTheNext) {
  probe.consumeRamp(8192);
  probe.capture->reset();
  probe.waiting->runOne();
  probe.consumeRamp(8192);
  ASSERT_EQ(waitingJobs(), 1U);
  probe.waiting->runOne();
  EXPECT_EQ(probe.analysed.size(), 1U);
}

TEST_F(PitchCaptureReset, AJobThatIsStillQueuedTakesTheNextBlock) {
  probe.consumeRamp(8192);
  probe.capture->reset();
  probe.consumeRamp(8192);
  ASSERT_EQ(waitingJobs(), 1U) << "one job is enough for both";
  probe.waiting->runOne();
  ASSERT_EQ(probe.analysed.size(), 1U);
  EXPECT_EQ(probe.analysed[0].block.front(), 8192.0F);
}

TEST_F(PitchCaptureReset, ADetectionThatIsRunningEndsNormallyAndFindsNothingMore) {
  probe.answer = [&] {
    probe.consumeRamp(4096);
    probe.capture->reset();
    return PitchDetector::Reading{.frequency = 440.0};
  };
  probe.consumeRamp(8192);
  probe.waiting->runOne();
  EXPECT_EQ(probe.analysed.size(), 1U);
  ASSERT_EQ(probe.readings.size(), 1U);
  EXPECT_EQ(probe.readings[0]->frequency, 440.0);
  EXPECT_EQ(waitingJobs(), 0U);
}

TEST_F(PitchCaptureReset, WithNothingToForgetChangesNothing) {
  probe.capture->reset();
  probe.capture->reset();
  probe.consumeRamp(8192);
  ASSERT_EQ(waitingJobs(), 1U);
  probe.waiting->runOne();
  EXPECT_EQ(probe.analysed.at(0).block, signals::ramp(0, blockSamples));
}

}  // namespace
}  // namespace corvane
