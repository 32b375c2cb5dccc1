// SPDX-License-Identifier: MIT
#include "platform/pulse/microphone_feed.h"

#include <gmock/gmock.h>

#include <numeric>
#include <vector>

#include "platform/pulse/tests/test_clock.h"
#include "tests/support/allocation_count.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

struct Delivered {
  double rate;
  bool afterGap;
  float first;
  float last;

  bool operator==(const Delivered&) const = default;
};

void PrintTo(const Delivered& buffer, std::ostream* out) {
  *out << (buffer.afterGap ? "gap " : "") << buffer.first << " to " << buffer.last << " at "
       << buffer.rate << " Hz";
}

constexpr bool gap = true;

/// A feed of buffers of ten frames at 1000 Hz.
class MicrophoneFeedTest : public testing::Test {
 protected:
  ~MicrophoneFeedTest() override { feed.end(); }

  /// The frames `from`, `from` + 1 and so on, of one channel.
  void append(int from, std::size_t frames) {
    std::vector<float> samples(frames);
    std::iota(samples.begin(), samples.end(), static_cast<float>(from));
    feed.append(samples.data(), frames);
  }
  void beginSettled() {
    feed.begin({1000.0, 1});
    settle();
  }
  /// The sound that is dropped after each gap.
  void settle() { append(9000, 50); }
  void advance(std::chrono::milliseconds time) {
    clock.advance(time);
    timers.callDue();
  }

  std::vector<Delivered> buffers;
  std::vector<std::chrono::milliseconds> silent;
  TestClock clock;
  Timers timers{clock};
  MicrophoneFeed feed{10,
                      [this](const AudioBuffer& buffer) {
                        buffers.push_back({buffer.sampleRate, buffer.afterGap,
                                           buffer.channels[0][0], buffer.channels[0][9]});
                      },
                      [this](std::chrono::milliseconds lasting) { silent.push_back(lasting); }};
};

TEST_F(MicrophoneFeedTest, OnlyTheFirstBufferIsMarkedAsAGap) {
  beginSettled();
  append(1, 20);
  EXPECT_THAT(buffers, ElementsAre(Delivered{1000.0, gap, 1, 10}, Delivered{1000.0, !gap, 11, 20}));
}

TEST_F(MicrophoneFeedTest, InterruptionDropsIncompleteAndUnsettledBuffers) {
  beginSettled();
  append(1, 15);
  feed.interrupt();
  settle();
  append(101, 10);
  EXPECT_THAT(buffers,
              ElementsAre(Delivered{1000.0, gap, 1, 10}, Delivered{1000.0, gap, 101, 110}));
}

TEST_F(MicrophoneFeedTest, DropsWholeBuffersWhileSettling) {
  feed.begin({1100.0, 1});
  append(1, 55);  // 50 ms.
  append(56, 5);
  append(61, 10);
  EXPECT_THAT(buffers, ElementsAre(Delivered{1100.0, gap, 61, 70}));
}

TEST_F(MicrophoneFeedTest, ANewFormatStartsANewBuffer) {
  beginSettled();
  append(1, 15);
  feed.begin({2000.0, 1});
  append(9000, 100);
  append(101, 10);
  EXPECT_THAT(buffers,
              ElementsAre(Delivered{1000.0, gap, 1, 10}, Delivered{2000.0, gap, 101, 110}));
}

TEST_F(MicrophoneFeedTest, MissingSoundBecomesSilence) {
  beginSettled();
  append(1, 15);
  feed.expectSound(timers);
  advance(499ms);
  EXPECT_EQ(buffers.size(), 1U);
  advance(1ms);
  for (int i = 0; i < 2; ++i) advance(10ms);
  const Delivered silence{1000.0, !gap, 0, 0};
  EXPECT_THAT(buffers, ElementsAre(Delivered{1000.0, gap, 1, 10}, Delivered{1000.0, gap, 0, 0},
                                   silence, silence, silence));
  EXPECT_THAT(silent, ElementsAre(500ms, 510ms, 520ms));
}

TEST_F(MicrophoneFeedTest, SoundInTimePreventsSilence) {
  beginSettled();
  feed.expectSound(timers);
  for (int i = 0; i < 3; ++i) {
    advance(499ms);
    append(1, 1);
  }
  EXPECT_TRUE(buffers.empty());
}

TEST_F(MicrophoneFeedTest, SoundAfterSilenceIsNotJoinedToIt) {
  feed.begin({1000.0, 1});
  feed.expectSound(timers);
  advance(500ms);
  buffers.clear();
  // After a stall settling takes ten times as long.
  append(9000, 500);
  append(1, 10);
  EXPECT_THAT(buffers, ElementsAre(Delivered{1000.0, gap, 1, 10}));
}

TEST_F(MicrophoneFeedTest, LateSoundOfTheOldDeviceIsDroppedAfterAMove) {
  beginSettled();
  append(1, 15);
  feed.moved();
  append(16, 500);
  feed.interrupt();
  append(9000, 500);
  append(101, 10);
  EXPECT_THAT(buffers,
              ElementsAre(Delivered{1000.0, gap, 1, 10}, Delivered{1000.0, gap, 101, 110}));
}

TEST_F(MicrophoneFeedTest, NothingIsDeliveredAfterMute) {
  beginSettled();
  feed.mute();
  append(1, 10);
  beginSettled();
  append(1, 100);
  EXPECT_TRUE(buffers.empty());
}

TEST_F(MicrophoneFeedTest, OnlyTheFirstBufferAllocates) {
  buffers.reserve(20);
  beginSettled();
  feed.expectSound(timers);
  const std::vector<float> fragment(5);
  const auto hearUntil = [&](std::size_t count) {
    while (buffers.size() < count) feed.append(fragment.data(), fragment.size());
  };
  hearUntil(1);
  const std::size_t before = allocationsOfThisThread();
  hearUntil(10);
  EXPECT_EQ(allocationsOfThisThread() - before, 0U);
  EXPECT_TRUE(timers.next()) << "silence must still begin without sound";
}

}  // namespace
}  // namespace corvane
