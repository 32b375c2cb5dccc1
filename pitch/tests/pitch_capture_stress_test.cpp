#include <gtest/gtest.h>

#include <atomic>

#include "pitch/tests/capture_probe.h"
#include "pitch/tests/threads.h"

namespace corvane {
namespace {

/// Resets a capture again and again on a thread of its own, keeping the count.
class Resetter {
 public:
  /// Waits for a few of `fed`'s steps, now more, now fewer, between one reset and the next.
  Resetter(PitchCapture& capture, const std::atomic<int>& fed)
      : thread([this, &capture, &fed] {
          for (int next = 0; !done; next += 3 + begun * 7 % 20) {
            while (fed < next && !done) std::this_thread::yield();
            ++begun;
            capture.reset();
            ++finished;
          }
        }) {}
  Resetter(const Resetter&) = delete;
  Resetter& operator=(const Resetter&) = delete;

  void stop() {
    done = true;
    thread.join();
  }

  std::atomic<int> begun = 0;
  std::atomic<int> finished = 0;

 private:
  std::atomic<bool> done = false;
  std::thread thread;
};

/// The resets around the feeding of one buffer.
struct Fed {
  int finishedBefore;
  int begunAfter;
};

/// The numbers of the first and the last buffer that a block has samples of.
struct Span {
  std::size_t first;
  std::size_t last;
};

/// Whether a reset began after `a` was fed and was over before `b` was.
bool apart(const Fed& a, const Fed& b) {
  return b.finishedBefore > a.begunAfter;
}

TEST(PitchCaptureStress, SamplesFromBeforeAResetAreNeverJoinedToThoseAfterIt) {
  constexpr std::size_t frames = 1021;
  Inbox<Span> blocks;
  auto capture = PitchCapture::create(std::make_unique<SerialQueue>("corvane.pitch"), [&](auto
                                                                                              block,
                                                                                          double) {
    blocks.push({static_cast<std::size_t>(block.front()), static_cast<std::size_t>(block.back())});
    return std::nullopt;
  });
  std::atomic<int> count = 0;
  std::vector<Fed> fed;
  Resetter resetter(*capture, count);
  for (; count < 20000; ++count) {
    const int finishedBefore = resetter.finished;
    // Each sample tells the number of its buffer.
    feed(*capture, {signals::constant(static_cast<float>(count), frames)}, 48000.0,
         [](const auto&) {});
    fed.push_back({finishedBefore, resetter.begun});
  }
  resetter.stop();
  capture.reset();
  ASSERT_TRUE(eventually([] { return threadsNamed("corvane.pitch") == 0; }));

  const std::vector<Span> all = blocks.all();
  for (const auto& [first, last] : all) {
    ASSERT_FALSE(apart(fed[first], fed[last])) << "buffers " << first << " to " << last;
    ASSERT_LE(last - first, blockSamples / frames + 1) << "no buffer is left out in between";
  }
  // How many there are is the scheduler's business.
  EXPECT_GT(all.size(), 0U) << "or nothing was tested";
  EXPECT_GT(resetter.finished, 0) << "or nothing was tested";
}

TEST(PitchCaptureStress, NoBlockIsEverLeftWithNobodyToTakeIt) {
  Inbox<float> lastSamples;
  const auto capture =
      PitchCapture::create(std::make_unique<SerialQueue>("corvane.pitch"), [&](auto block, double) {
        lastSamples.push(block.back());
        return std::nullopt;
      });
  std::size_t position = 0;
  for (int burst = 0; burst < 2000; ++burst) {
    for (int i = 0; i <= burst % 3; ++i) {
      feed(*capture, {signals::ramp(position, hopSamples)}, 48000.0, [](const auto&) {});
      position += hopSamples;
    }
    if (position < blockSamples) continue;
    ASSERT_TRUE(lastSamples.waitUntil([&](const std::vector<float>& all) {
      return !all.empty() && all.back() == static_cast<float>(position - 1);
    })) << "burst "
        << burst;
  }
}

}  // namespace
}  // namespace corvane
