#include "platform/pulse/microphone_feed.h"

#include <gmock/gmock.h>

#include <condition_variable>
#include <future>
#include <vector>

#include "platform/pulse/pulse_loop.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;
using testing::Each;

struct Delivered {
  double rate;
  std::uint32_t channels;
  bool afterGap;
  float first;
  float last;
};

/// A feed of buffers of ten frames at 1000 Hz on a loop of its own.
class MicrophoneFeedTest : public testing::Test {
 protected:
  ~MicrophoneFeedTest() override {
    onLoop([this] { feed.end(); });
  }

  void onLoop(const std::function<void()>& step) {
    std::promise<void> done;
    loop.async([&] {
      step();
      done.set_value();
    });
    done.get_future().wait();
  }

  void begin(double rate = 1000.0, std::uint32_t channels = 1) {
    onLoop([&] { feed.begin({rate, channels}); });
  }

  /// The frames `from`, `from` + 1 and so on, of one channel.
  void append(int from, int frames) {
    std::vector<float> samples;
    for (int i = 0; i < frames; ++i) samples.push_back(static_cast<float>(from + i));
    onLoop([&] { feed.append(samples.data(), samples.size()); });
  }

  /// The sound that is left out after each gap.
  void settle() { append(9000, 50); }

  std::vector<Delivered> delivered() {
    const std::lock_guard held(lock);
    return buffers;
  }

  bool waitForBuffers(std::size_t count) {
    std::unique_lock held(lock);
    return more.wait_for(held, 10s, [&] { return buffers.size() >= count; });
  }

  void keep(const AudioBuffer& buffer) {
    const std::lock_guard held(lock);
    const float* const samples = buffer.channels[0];
    buffers.push_back({buffer.sampleRate, buffer.channelCount, buffer.afterGap, samples[0],
                       samples[buffer.frameLength - 1]});
    more.notify_all();
  }

  std::mutex lock;
  std::condition_variable more;
  std::vector<Delivered> buffers;                 ///< under `lock`
  std::vector<std::chrono::milliseconds> silent;  ///< on the loop's thread
  PulseLoop loop;
  MicrophoneFeed feed{10, [this](const AudioBuffer& buffer) { keep(buffer); },
                      [this](std::chrono::milliseconds lasting) { silent.push_back(lasting); }};
};

TEST_F(MicrophoneFeedTest, TheFirstBufferFollowsNothingAndTheOthersFollowIt) {
  begin();
  settle();
  append(1, 30);
  ASSERT_EQ(delivered().size(), 3U);
  EXPECT_TRUE(delivered()[0].afterGap);
  EXPECT_FALSE(delivered()[1].afterGap);
  EXPECT_FALSE(delivered()[2].afterGap);
  EXPECT_EQ(delivered()[0].first, 1.0F);
}

TEST_F(MicrophoneFeedTest, AnInterruptionDropsWhatIsHalfFullAndWhatHasNotSettled) {
  begin();
  settle();
  append(1, 15);
  onLoop([this] { feed.interrupt(); });
  settle();
  append(101, 10);
  ASSERT_EQ(delivered().size(), 2U);
  EXPECT_TRUE(delivered()[1].afterGap);
  EXPECT_EQ(delivered()[1].first, 101.0F);
  EXPECT_EQ(delivered()[1].last, 110.0F);
}

TEST_F(MicrophoneFeedTest, LeavesOutWholeBuffersSoThatThoseThatFollowEndWhereFragmentsDo) {
  begin(1100.0);
  append(1, 55);  // 50 ms of it.
  append(56, 5);
  append(61, 10);
  ASSERT_EQ(delivered().size(), 1U);
  EXPECT_EQ(delivered()[0].first, 61.0F);
  EXPECT_EQ(delivered()[0].last, 70.0F);
}

TEST_F(MicrophoneFeedTest, AnotherFormatComesInBuffersOfItsOwn) {
  begin();
  settle();
  append(1, 15);
  begin(2000.0);
  append(9000, 100);
  append(101, 10);
  ASSERT_EQ(delivered().size(), 2U);
  EXPECT_EQ(delivered()[1].rate, 2000.0);
  EXPECT_TRUE(delivered()[1].afterGap);
  EXPECT_EQ(delivered()[1].first, 101.0F);
}

TEST_F(MicrophoneFeedTest, WhereSoundIsExpectedAndDoesNotComeThereIsSilence) {
  begin();
  settle();
  append(1, 15);
  onLoop([this] { feed.expectSound(loop.timers()); });
  ASSERT_TRUE(waitForBuffers(5));
  const auto all = delivered();
  EXPECT_TRUE(all[1].afterGap);
  for (std::size_t i = 1; i < all.size(); ++i) EXPECT_EQ(all[i].first, 0.0F);
  EXPECT_FALSE(all[2].afterGap);
  onLoop([this] {
    EXPECT_EQ(silent.front(), MicrophoneFeed::longestBreath);
    EXPECT_GT(silent.back(), silent.front());
  });
}

TEST_F(MicrophoneFeedTest, SoundAfterSilenceIsNotJoinedToIt) {
  begin();
  onLoop([this] { feed.expectSound(loop.timers()); });
  ASSERT_TRUE(waitForBuffers(2));
  const std::size_t before = delivered().size();
  // After a stall it settles ten times as long.
  append(9000, 500);
  append(1, 10);
  ASSERT_GT(delivered().size(), before);
  EXPECT_TRUE(delivered()[before].afterGap);
  EXPECT_EQ(delivered()[before].first, 1.0F);
}

TEST_F(MicrophoneFeedTest, NothingComesOnceItIsMuted) {
  begin();
  settle();
  feed.mute();
  append(1, 10);
  begin();
  append(1, 100);
  EXPECT_TRUE(delivered().empty());
}

}  // namespace
}  // namespace corvane
