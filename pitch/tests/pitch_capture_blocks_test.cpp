#include <gtest/gtest.h>

#include "pitch/tests/capture_probe.h"
#include "pitch/tests/readings.h"

namespace corvane {
namespace {

/// Every block is analysed at once, so that none is replaced by the next.
class PitchCaptureBlocks : public testing::Test {
 protected:
  /// Whether block `number` is the ramp from `first` on.
  testing::AssertionResult startsAt(std::size_t first, std::size_t number) const {
    if (number >= probe.analysed.size()) return testing::AssertionFailure() << "no such block";
    const signals::Samples& block = probe.analysed[number].block;
    if (block == signals::ramp(first, blockSamples)) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << block.size() << " samples, " << block.front() << " to " << block.back();
  }

  std::size_t blocks() const { return probe.analysed.size(); }

  CaptureProbe probe{std::make_unique<InlineQueue>()};
};

TEST_F(PitchCaptureBlocks, TheFirstTwoBuffersGiveExactlyOneBlockAndEachFurtherOneOneMore) {
  probe.consumeRamp(4096);
  EXPECT_EQ(blocks(), 0U);
  for (std::size_t number = 0; number < 5; ++number) {
    probe.consumeRamp(4096);
    ASSERT_EQ(blocks(), number + 1);
    EXPECT_TRUE(startsAt(number * 4096, number));
  }
}

TEST_F(PitchCaptureBlocks, AfterEachCutExactlyHalfABlockIsKept) {
  probe.consumeRamp(8192);
  ASSERT_EQ(blocks(), 1U);
  probe.consumeRamp(4095);
  EXPECT_EQ(blocks(), 1U);
  probe.consumeRamp(1);
  ASSERT_EQ(blocks(), 2U);
  EXPECT_TRUE(startsAt(4096, 1));
}

TEST_F(PitchCaptureBlocks, OneBufferOf16384FramesGivesThreeBlocksAndKeepsHalfABlock) {
  probe.consumeRamp(16384);
  ASSERT_EQ(blocks(), 3U);
  EXPECT_TRUE(startsAt(0, 0));
  EXPECT_TRUE(startsAt(4096, 1));
  EXPECT_TRUE(startsAt(8192, 2));
  probe.consumeRamp(4096);
  ASSERT_EQ(blocks(), 4U);
  EXPECT_TRUE(startsAt(12288, 3));
}

TEST_F(PitchCaptureBlocks, BuffersOfAnyLengthGiveTheSameBlocks) {
  const std::size_t lengths[] = {1, 441, 4097, 480, 8191, 2, 10000, 1023};
  for (int round = 0; round < 4; ++round) {
    for (const std::size_t length : lengths) probe.consumeRamp(length);
  }
  // 4 x 24235 samples; a block starts every 4096 as long as 8192 are left.
  ASSERT_EQ(blocks(), (4U * 24235U - 8192U) / 4096U + 1U);
  for (std::size_t number = 0; number < blocks(); ++number) {
    EXPECT_TRUE(startsAt(number * 4096, number)) << number;
  }
}

TEST_F(PitchCaptureBlocks, TheRateIsThatOfTheBufferThatCompletedTheBlock) {
  probe.consumeRamp(4096, 48000.0);
  probe.consumeRamp(4096, 44100.0);
  probe.consumeRamp(4096, 96000.5);
  ASSERT_EQ(blocks(), 2U);
  EXPECT_EQ(probe.analysed[0].rate, 44100.0);
  EXPECT_EQ(probe.analysed[1].rate, 96000.5);
}

TEST_F(PitchCaptureBlocks, ABufferWithoutFloatSamplesIsIgnored) {
  probe.consumeRamp(8191);
  probe.capture->consume(
      {.channels = nullptr, .frameLength = 4096, .channelCount = 1, .sampleRate = 48000.0},
      probe.onReading);
  EXPECT_EQ(blocks(), 0U);
  probe.consumeRamp(1);
  EXPECT_TRUE(startsAt(0, 0));
}

TEST_F(PitchCaptureBlocks, ABufferWithoutFramesIsIgnored) {
  probe.consumeRamp(8191);
  probe.consume({signals::Samples()}, 44100.0);
  EXPECT_EQ(blocks(), 0U);
  probe.consumeRamp(1);
  EXPECT_TRUE(startsAt(0, 0));
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

/// The text's own mixing, sample by sample: a sum in channel order, times the reciprocal.
signals::Samples mixed(const std::vector<signals::Samples>& channels) {
  const float reciprocal = 1.0F / static_cast<float>(channels.size());
  signals::Samples mono;
  for (std::size_t i = 0; i < channels.front().size(); ++i) {
    float sample = 0.0F;
    for (const signals::Samples& channel : channels) sample = sample + channel[i];
    mono.push_back(sample * reciprocal);
  }
  return mono;
}

TEST_F(PitchCaptureBlocks, ChannelsAreAddedInOrderAndMultipliedByTheReciprocalOfTheirNumber) {
  for (const std::uint32_t count : {1U, 2U, 3U, 7U, 8U}) {
    std::vector<signals::Samples> channels;
    for (std::uint32_t c = 0; c < count; ++c) channels.push_back(signals::noise(8192, c + 1));
    probe.analysed.clear();
    probe.consume(channels);
    ASSERT_FALSE(probe.analysed.empty());
    EXPECT_EQ(probe.analysed[0].block, mixed(channels)) << count << " channels";
    probe.capture->reset();
  }
}

TEST_F(PitchCaptureBlocks, OneChannelPassesUnchanged) {
  const signals::Samples samples = signals::noise(8192, 9);
  probe.consume({samples});
  ASSERT_EQ(blocks(), 1U);
  EXPECT_EQ(probe.analysed[0].block, samples);
}

TEST_F(PitchCaptureBlocks, AReportedCountOfNoChannelsIsReadAsOne) {
  const signals::Samples samples = signals::noise(8192, 10);
  const float* channels[] = {samples.data()};
  probe.capture->consume(
      {.channels = channels, .frameLength = 8192, .channelCount = 0, .sampleRate = 48000.0},
      probe.onReading);
  ASSERT_EQ(blocks(), 1U);
  EXPECT_EQ(probe.analysed[0].block, samples);
}

TEST_F(PitchCaptureBlocks, OppositeChannelsGiveABlockOfZeros) {
  probe.consume({signals::constant(0.5F, 8192), signals::constant(-0.5F, 8192)});
  ASSERT_EQ(blocks(), 1U);
  EXPECT_EQ(probe.analysed[0].block, signals::constant(0.0F, 8192));
}

TEST_F(PitchCaptureBlocks, TheSamplesAreCopiedDuringTheCall) {
  signals::Samples samples = signals::ramp(0, 4096);
  probe.consume({samples});
  samples.assign(samples.size(), -1.0F);
  probe.consume({signals::ramp(4096, 4096)});
  EXPECT_TRUE(startsAt(0, 0));
}

}  // namespace
}  // namespace corvane
