#include "platform/pulse/tests/joints.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

/// Stretches of buffers as a tap gets them, in which joints are sought.
class JointsTest : public testing::Test {
 protected:
  /// The frames that are numbered from `first` to `last`.
  static std::vector<float> sound(std::uint32_t room, std::uint32_t first, std::uint32_t last) {
    std::vector<float> samples;
    for (std::uint32_t number = first; number <= last; ++number) {
      samples.push_back(coded_signal::sample({room, number}, 0));
    }
    return samples;
  }
  static std::vector<float> silence(std::size_t frames) { return std::vector<float>(frames); }

  /// Whether a joint is found in the next buffer, which holds `parts`.
  bool joined(std::initializer_list<std::vector<float>> parts, bool afterGap = false,
              double sampleRate = 48000.0) {
    std::vector<float> samples;
    for (const auto& part : parts) samples.insert(samples.end(), part.begin(), part.end());
    const float* const channel = samples.data();
    return !joints
                .in(RecordedBuffer({.channels = &channel,
                                    .frameLength = static_cast<std::uint32_t>(samples.size()),
                                    .channelCount = 1,
                                    .sampleRate = sampleRate,
                                    .afterGap = afterGap}))
                .empty();
  }

  static constexpr bool gap = true;
  Joints joints;
};

TEST_F(JointsTest, AreNotFoundInOneStretchOfSoundOverSeveralBuffers) {
  EXPECT_FALSE(joined({sound(1, 1, 10)}));
  EXPECT_FALSE(joined({sound(1, 11, 20)}));
  EXPECT_FALSE(joined({sound(1, 21, 25), silence(5)}));
}

TEST_F(JointsTest, AreNotFoundWhereTheNumbersBeginAgain) {
  EXPECT_FALSE(joined({sound(1, 65530, 65535), sound(1, 1, 10)}));
}

TEST_F(JointsTest, AreWhereTwoRoomsMeetInABuffer) {
  EXPECT_TRUE(joined({sound(1, 1, 10), sound(2, 11, 20)}));
}

TEST_F(JointsTest, AreWhereTwoRoomsMeetBetweenBuffers) {
  EXPECT_FALSE(joined({sound(1, 1, 10)}));
  EXPECT_TRUE(joined({sound(2, 11, 20)}));
}

TEST_F(JointsTest, AreWhereTwoMomentsMeet) {
  EXPECT_TRUE(joined({sound(1, 1, 10), sound(1, 12, 20)}));
  EXPECT_FALSE(joined({sound(1, 21, 30)}));
  EXPECT_TRUE(joined({sound(1, 21, 30)}));
}

TEST_F(JointsTest, AreWhereSilenceHidesThatTimeIsMissing) {
  EXPECT_FALSE(joined({sound(1, 1, 10), silence(5)}));
  EXPECT_FALSE(joined({silence(10)}));
  EXPECT_TRUE(joined({silence(5), sound(1, 1000, 1010)}));
}

TEST_F(JointsTest, AreNotWhereTheSoundWentOnUnheardOrWaited) {
  EXPECT_FALSE(joined({sound(1, 1, 10), silence(5), sound(1, 16, 20)}));
  EXPECT_FALSE(joined({silence(5), sound(1, 21, 30)}));
}

TEST_F(JointsTest, AreNotWhereABufferSaysThatItComesAfterAGap) {
  EXPECT_FALSE(joined({sound(1, 1, 10)}));
  EXPECT_FALSE(joined({sound(2, 500, 510)}, gap));
  EXPECT_FALSE(joined({sound(1, 11, 20)}, gap, 44100.0));
}

TEST_F(JointsTest, AreWithinABufferThatComesAfterAGap) {
  EXPECT_TRUE(joined({sound(1, 1, 10), sound(2, 11, 20)}, gap));
}

TEST_F(JointsTest, AreWhereAnotherFormatComesWithoutAGap) {
  EXPECT_FALSE(joined({silence(10)}));
  EXPECT_TRUE(joined({silence(10)}, !gap, 44100.0));
}

}  // namespace
}  // namespace corvane
