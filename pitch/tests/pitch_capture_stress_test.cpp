// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <atomic>

#include "pitch/tests/capture_probe.h"
#include "pitch/tests/threads.h"

namespace corvane {
namespace {

/// A capture whose detector records whether each block is one ramp, and its last sample.
class PitchCaptureStress : public testing::Test {
 protected:
  void TearDown() override {
    capture.reset();
    EXPECT_TRUE(noThreadIsLeftNamed("corvane.pitch"));
  }

  struct Block {
    bool whole;
    float last;
  };

  void consumeRamp(std::size_t frames) {
    feed(*capture, {signals::ramp(position, frames)}, 48000.0, [](const auto&) {});
    position += frames;
  }

  /// Whether the last sample fed becomes the last of an analysed block.
  bool lastSampleIsAnalysed() {
    return blocks.waitUntil([this](const std::vector<Block>& all) {
      return !all.empty() && all.back().last == static_cast<float>(position - 1);
    });
  }

  std::size_t position = 0;
  Inbox<Block> blocks;
  std::shared_ptr<PitchCapture> capture = PitchCapture::create(
      std::make_unique<SerialQueue>("corvane.pitch"), [this](auto block, double) {
        const auto first = static_cast<std::size_t>(block.front());
        blocks.push({std::ranges::equal(block, signals::ramp(first, blockSamples)), block.back()});
        return std::nullopt;
      });
};

TEST_F(PitchCaptureStress, ResetsDuringTheTapLeaveEveryBlockWhole) {
  constexpr int rounds = 50;
  std::atomic<int> round = 0;
  std::atomic<int> resets = 0;
  std::jthread resetter([&] {
    for (; resets < rounds; ++resets) {
      while (resets == round) std::this_thread::yield();
      capture->reset();
    }
  });
  while (round < rounds) {
    ++round;  // one reset among enough buffers for a block before or after it
    for (int buffer = 0; buffer < 20; ++buffer) consumeRamp(1021);
    while (resets < round) std::this_thread::yield();
  }
  resetter.join();
  capture->reset();
  consumeRamp(blockSamples);
  EXPECT_TRUE(lastSampleIsAnalysed());
  for (const Block& block : blocks.all()) EXPECT_TRUE(block.whole) << block.last;
}

TEST_F(PitchCaptureStress, AlwaysAnalysesTheLastBlockOfABurst) {
  consumeRamp(hopSamples);
  for (int burst = 0; burst < 100; ++burst) {
    for (int i = 0; i <= burst % 3; ++i) consumeRamp(hopSamples);
    ASSERT_TRUE(lastSampleIsAnalysed()) << "burst " << burst;
  }
}

}  // namespace
}  // namespace corvane
