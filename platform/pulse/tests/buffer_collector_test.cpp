// SPDX-License-Identifier: MIT
#include "platform/pulse/buffer_collector.h"

#include <gmock/gmock.h>

#include <vector>

namespace corvane {
namespace {

using testing::ElementsAre;

/// Records the channels of each buffer that the tap gets.
class BufferCollectorTest : public testing::Test {
 protected:
  BufferCollector collector(std::uint32_t frames, std::uint32_t channels) {
    return {frames, {48000.0, channels}, [this](const AudioBuffer& buffer) {
              EXPECT_EQ(buffer.sampleRate, 48000.0);
              for (std::uint32_t c = 0; c < buffer.channelCount; ++c) {
                tapped.emplace_back(buffer.channels[c], buffer.channels[c] + buffer.frameLength);
              }
            }};
  }

  std::vector<std::vector<float>> tapped;
  const std::vector<float> sixFrames{1, -1, 2, -2, 3, -3, 4, -4, 5, -5, 6, -6};
};

TEST_F(BufferCollectorTest, SeparatesInterleavedChannels) {
  auto two = collector(6, 2);
  two.append(sixFrames.data(), 6);
  EXPECT_THAT(tapped,
              ElementsAre(ElementsAre(1, 2, 3, 4, 5, 6), ElementsAre(-1, -2, -3, -4, -5, -6)));
}

TEST_F(BufferCollectorTest, FragmentsOfAnyLengthFillBuffersOfOneLength) {
  auto one = collector(4, 1);
  one.append(sixFrames.data(), 1);
  one.append(nullptr, 0);
  one.append(sixFrames.data() + 1, 2);
  EXPECT_TRUE(tapped.empty());
  one.append(sixFrames.data() + 3, 9);
  EXPECT_THAT(tapped, ElementsAre(ElementsAre(1, -1, 2, -2), ElementsAre(3, -3, 4, -4),
                                  ElementsAre(5, -5, 6, -6)));
}

TEST_F(BufferCollectorTest, HoleBecomesSilenceOfItsLength) {
  auto two = collector(3, 2);
  two.append(sixFrames.data(), 1);
  two.append(nullptr, 4);
  two.append(sixFrames.data(), 1);
  EXPECT_THAT(tapped, ElementsAre(ElementsAre(1, 0, 0), ElementsAre(-1, 0, 0), ElementsAre(0, 0, 1),
                                  ElementsAre(0, 0, -1)));
}

TEST_F(BufferCollectorTest, DroppedFramesNeverJoinLaterOnes) {
  auto one = collector(2, 1);
  one.append(sixFrames.data(), 3);
  one.drop();
  one.append(sixFrames.data() + 6, 2);
  EXPECT_THAT(tapped, ElementsAre(ElementsAre(1, -1), ElementsAre(4, -4)));
}

}  // namespace
}  // namespace corvane
