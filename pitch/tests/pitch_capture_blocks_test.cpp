#include <gtest/gtest.h>

#include "pitch/tests/capture_probe.h"
#include "pitch/tests/readings.h"

namespace corvane {
namespace {

/// Every block is analysed at once, so that none is replaced by the next.
class PitchCaptureBlocks : public testing::Test {
 protected:
  std::size_t blocks() const { return probe.analysed.size(); }

  /// The blocks are those of the ramp, one at each hop.
  void expectBlocksOfTheRamp(std::size_t count) const {
    ASSERT_EQ(blocks(), count);
    for (std::size_t number = 0; number < count; ++number) {
      EXPECT_TRUE(probe.analysed[number].block == signals::ramp(number * hopSamples, blockSamples))
          << "block " << number;
    }
  }

  /// What one buffer of a whole block is mixed to.
  signals::Samples mixOf(const std::vector<signals::Samples>& channels) {
    probe.capture->reset();
    probe.analysed.clear();
    probe.consume(channels);
    EXPECT_EQ(blocks(), 1U);
    return probe.analysed.at(0).block;
  }

  CaptureProbe probe{std::make_unique<InlineQueue>()};
};

TEST_F(PitchCaptureBlocks, TheFirstTwoBuffersGiveOneBlockAndEachFurtherOneMore) {
  probe.consumeRamp(4096);
  EXPECT_EQ(blocks(), 0U);
  for (std::size_t number = 1; number <= 3; ++number) {
    probe.consumeRamp(4096);
    expectBlocksOfTheRamp(number);
  }
  probe.consumeRamp(4095);
  EXPECT_EQ(blocks(), 3U) << "exactly half a block is kept";
  probe.consumeRamp(1);
  expectBlocksOfTheRamp(4);
}

TEST_F(PitchCaptureBlocks, OneBufferOf16384FramesGivesThreeBlocksAndKeepsHalfABlock) {
  probe.consumeRamp(16384);
  expectBlocksOfTheRamp(3);
  probe.consumeRamp(4096);
  expectBlocksOfTheRamp(4);
}

TEST_F(PitchCaptureBlocks, ABufferWithoutFloatSamplesOrFramesIsIgnored) {
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

TEST_F(PitchCaptureBlocks, EveryReadingIsDeliveredAndSoIsEveryAbsenceOfOne) {
  const PitchDetector::Reading a4{440.0, 0.9, 0.25F};
  probe.answer = [&]() -> std::optional<PitchDetector::Reading> {
    return blocks() % 2 == 1 ? std::optional(a4) : std::nullopt;
  };
  probe.consumeRamp(16384);
  ASSERT_EQ(probe.readings.size(), 3U);
  EXPECT_TRUE(sameBits(probe.readings[0], a4));
  EXPECT_TRUE(sameBits(probe.readings[1], std::nullopt));
  EXPECT_TRUE(sameBits(probe.readings[2], a4));
}

TEST_F(PitchCaptureBlocks, ChannelsAreAddedInOrderAndMultipliedByTheReciprocalOfTheirNumber) {
  for (const std::uint32_t count : {1U, 2U, 3U, 7U, 8U}) {
    const float reciprocal = 1.0F / static_cast<float>(count);
    std::vector<signals::Samples> channels;
    signals::Samples sum = signals::constant(0.0F, blockSamples);
    for (std::uint32_t c = 0; c < count; ++c) {
      channels.push_back(signals::noise(blockSamples, c + 1));
      sum = signals::sum(std::move(sum), channels.back());
    }
    EXPECT_TRUE(mixOf(channels) == signals::scaled(sum, reciprocal)) << count << " channels";
  }
}

TEST_F(PitchCaptureBlocks, OppositeChannelsGiveABlockOfZeros) {
  EXPECT_EQ(mixOf({signals::constant(0.5F, 8192), signals::constant(-0.5F, 8192)}),
            signals::constant(0.0F, 8192));
}

TEST_F(PitchCaptureBlocks, AReportedCountOfNoChannelsIsReadAsOne) {
  const signals::Samples samples = signals::noise(8192, 10);
  const float* channels[] = {samples.data()};
  probe.capture->consume(
      {.channels = channels, .frameLength = 8192, .channelCount = 0, .sampleRate = 48000.0},
      probe.onReading);
  ASSERT_EQ(blocks(), 1U);
  EXPECT_TRUE(probe.analysed[0].block == samples);
}

}  // namespace
}  // namespace corvane
