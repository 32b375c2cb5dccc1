#include <gtest/gtest.h>

#include <array>

#include "platform/pulse/microphone_feed.h"
#include "tests/support/allocation_count.h"

namespace corvane {
namespace {

TEST(MicrophoneFeedAllocation, NoSoundAfterTheFirstBufferAllocates) {
  Timers timers;
  int buffers = 0;
  MicrophoneFeed feed(
      4096, [&buffers](const AudioBuffer&) { ++buffers; }, [](auto) {});
  feed.begin({48000.0, 2});
  feed.expectSound(timers);
  const std::array<float, 2 * 1024> fragment{};
  const auto hearUntil = [&](int count) {
    while (buffers < count) feed.append(fragment.data(), fragment.size() / 2);
  };
  hearUntil(1);
  const std::size_t before = allocationsOfThisThread();
  hearUntil(10);
  EXPECT_EQ(allocationsOfThisThread() - before, 0U);
  EXPECT_TRUE(timers.next()) << "or nobody watches over the sound";
  feed.end();
}

}  // namespace
}  // namespace corvane
