// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "pitch/tests/capture_probe.h"

namespace corvane {
namespace {

/// Analyses every block at once, so that none is replaced by the next.
class PitchCaptureBlocks : public testing::Test {
 protected:
  std::size_t blocks() const { return probe.analysed.size(); }

  /// The blocks are those of the ramp, one per hop.
  void expectBlocksOfTheRamp(std::size_t count) const {
    ASSERT_EQ(blocks(), count);
    for (std::size_t number = 0; number < count; ++number) {
      EXPECT_TRUE(probe.analysed[number].block == signals::ramp(number * hopSamples, blockSamples))
          << "block " << number;
    }
  }

  CaptureProbe probe{std::make_unique<InlineQueue>()};
};

TEST_F(PitchCaptureBlocks, FirstTwoBuffersGiveOneBlockThenOneEach) {
  probe.consumeRamp(4096);
  EXPECT_EQ(blocks(), 0U);
  for (std::size_t number = 1; number <= 3; ++number) {
    probe.consumeRamp(4096);
    expectBlocksOfTheRamp(number);
  }
  probe.consumeRamp(4095);
  EXPECT_EQ(blocks(), 3U) << "half a block is kept";
  probe.consumeRamp(1);
  expectBlocksOfTheRamp(4);
}

TEST_F(PitchCaptureBlocks, OneBufferOf16384FramesGivesThreeBlocks) {
  probe.consumeRamp(16384);
  expectBlocksOfTheRamp(3);
  probe.consumeRamp(4096);
  expectBlocksOfTheRamp(4);
}

TEST_F(PitchCaptureBlocks, BufferWithoutFloatSamplesOrFramesIsIgnored) {
  probe.consumeRamp(8191);
  probe.capture->consume(
      {.channels = nullptr, .frameLength = 4096, .channelCount = 1, .sampleRate = 44100.0},
      probe.onReading);
  probe.consume({signals::Samples()}, 44100.0);
  EXPECT_EQ(blocks(), 0U);
  probe.consumeRamp(1);
  expectBlocksOfTheRamp(1);
  EXPECT_EQ(probe.analysed[0].rate, 48000.0);
}

TEST_F(PitchCaptureBlocks, OppositeChannelsGiveABlockOfZeros) {
  probe.consume({signals::constant(0.5F, 8192), signals::constant(-0.5F, 8192)});
  ASSERT_EQ(blocks(), 1U);
  EXPECT_EQ(probe.analysed[0].block, signals::constant(0.0F, 8192));
}

TEST_F(PitchCaptureBlocks, ChannelCountZeroIsReadAsOne) {
  const signals::Samples samples = signals::ramp(0, 8192);
  const float* channels[] = {samples.data()};
  probe.capture->consume(
      {.channels = channels, .frameLength = 8192, .channelCount = 0, .sampleRate = 48000.0},
      probe.onReading);
  expectBlocksOfTheRamp(1);
}

}  // namespace
}  // namespace corvane
