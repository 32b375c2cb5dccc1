#include "platform/pulse/buffer_collector.h"

#include <gmock/gmock.h>

#include <vector>

#include "tests/support/allocation_count.h"

namespace corvane {
namespace {

using testing::ElementsAre;

using Channels = std::vector<std::vector<float>>;

/// What the tap was given, buffer by buffer.
class BufferCollectorTest : public testing::Test {
 protected:
  BufferCollector collector(std::uint32_t frames, std::uint32_t channels) {
    return {frames, {48000.0, channels}, [this](const AudioBuffer& buffer) { keep(buffer); }};
  }

  void keep(const AudioBuffer& buffer) {
    Channels channels;
    for (std::uint32_t c = 0; c < buffer.channelCount; ++c) {
      channels.emplace_back(buffer.channels[c], buffer.channels[c] + buffer.frameLength);
    }
    buffers.push_back(channels);
    rate = buffer.sampleRate;
  }

  std::vector<Channels> buffers;
  double rate = 0.0;
};

const std::vector<float> sixFrames{1, -1, 2, -2, 3, -3, 4, -4, 5, -5, 6, -6};

TEST_F(BufferCollectorTest, InterleavedFramesComeOutOneChannelAfterTheOther) {
  auto two = collector(6, 2);
  two.append(sixFrames.data(), 6);
  ASSERT_EQ(buffers.size(), 1U);
  EXPECT_THAT(buffers[0],
              ElementsAre(ElementsAre(1, 2, 3, 4, 5, 6), ElementsAre(-1, -2, -3, -4, -5, -6)));
  EXPECT_EQ(rate, 48000.0);
}

TEST_F(BufferCollectorTest, FragmentsOfAnyLengthFillBuffersOfOneLength) {
  auto one = collector(4, 1);
  one.append(sixFrames.data(), 1);
  one.append(sixFrames.data() + 1, 2);
  EXPECT_TRUE(buffers.empty());
  one.append(sixFrames.data() + 3, 9);
  EXPECT_THAT(buffers, ElementsAre(ElementsAre(ElementsAre(1, -1, 2, -2)),
                                   ElementsAre(ElementsAre(3, -3, 4, -4)),
                                   ElementsAre(ElementsAre(5, -5, 6, -6))));
}

TEST_F(BufferCollectorTest, AFragmentWithoutFramesChangesNothing) {
  auto one = collector(2, 1);
  one.append(sixFrames.data(), 1);
  one.append(nullptr, 0);
  one.append(sixFrames.data() + 1, 1);
  EXPECT_THAT(buffers, ElementsAre(ElementsAre(ElementsAre(1, -1))));
}

TEST_F(BufferCollectorTest, AHoleBecomesSilenceOfItsLength) {
  auto two = collector(3, 2);
  two.append(sixFrames.data(), 1);
  two.append(nullptr, 4);
  two.append(sixFrames.data(), 1);
  EXPECT_THAT(buffers, ElementsAre(ElementsAre(ElementsAre(1, 0, 0), ElementsAre(-1, 0, 0)),
                                   ElementsAre(ElementsAre(0, 0, 1), ElementsAre(0, 0, -1))));
}

TEST_F(BufferCollectorTest, WhatIsDroppedIsNeverJoinedToWhatFollows) {
  auto one = collector(2, 1);
  one.append(sixFrames.data(), 3);
  one.drop();
  one.append(sixFrames.data() + 6, 2);
  EXPECT_THAT(buffers,
              ElementsAre(ElementsAre(ElementsAre(1, -1)), ElementsAre(ElementsAre(4, -4))));
}

TEST_F(BufferCollectorTest, CollectingAllocatesNothing) {
  std::size_t taps = 0;
  BufferCollector eight(4096, {96000.0, 8}, [&taps](const AudioBuffer&) { ++taps; });
  const std::vector<float> fragment(1000 * 8, 0.5F);
  const std::size_t before = allocationsOfThisThread();
  for (int i = 0; i < 41; ++i) eight.append(fragment.data(), 1000);
  eight.append(nullptr, 100000);
  EXPECT_EQ(allocationsOfThisThread(), before);
  EXPECT_EQ(taps, (41 * 1000 + 100000) / 4096U);
}

TEST_F(BufferCollectorTest, MakingACollectorDoesAllocate) {
  // Or the test before would pass because nothing is counted.
  const std::size_t before = allocationsOfThisThread();
  const auto made = collector(4096, 2);
  EXPECT_GT(allocationsOfThisThread(), before);
}

}  // namespace
}  // namespace corvane
