// SPDX-License-Identifier: MIT
#include "engine/tests/listening_fixture.h"

namespace corvane {
namespace {

using testing::ElementsAre;

class Listening : public ListeningTest {
 protected:
  /// `analysed` counts the blocks.
  void startExpectingBlocksOfOneValue() {
    capture = PitchCapture::create(std::make_unique<InlineQueue>(), [&](auto block, double) {
      ++analysed;
      for (const float sample : block) EXPECT_EQ(sample, block.front());
      return std::nullopt;
    });
    makeEngine();
    engine->start();
  }

  void push(std::size_t frames, float value, bool afterGap = false) {
    const std::vector<float> samples(frames, value);
    const float* channels[] = {samples.data()};
    world.input->tap({channels, static_cast<std::uint32_t>(frames), 1, 48000.0, afterGap});
  }

  std::size_t analysed = 0;
};

TEST_F(Listening, StartTaps4096FramesInTheFormatOfTheDevice) {
  world.input->input = {96000.0, 2};
  EXPECT_THAT(inputCallsOf([this] { engine->start(); }), wholeStart());
  expectState(true, true, none);
  EXPECT_EQ(world.input->tapFrames, 4096U);
  EXPECT_EQ(world.input->tapFormat, (AudioFormat{96000.0, 2}));
}

TEST_F(Listening, StartWhileListeningOnlyRefreshesPermissionAndError) {
  engine->start();
  EXPECT_THAT(inputCallsOf([this] { EXPECT_EQ(notifications([this] { engine->start(); }), 0); }),
              ElementsAre());
  expectState(true, true, none);
}

TEST_F(Listening, AnInputWithoutRateOrChannelsIsTappedInItsOutputFormat) {
  world.input->output = {44100.0, 1};
  for (const AudioFormat unknown : {AudioFormat{0.0, 2}, {48000.0, 0}}) {
    makeEngine();
    world.input->input = unknown;
    engine->start();
    EXPECT_TRUE(engine->state().listening);
    EXPECT_EQ(world.input->tapFormat, world.input->output);
  }
}

TEST_F(Listening, WithoutAUsableFormatNoMicrophoneIsAvailable) {
  struct Formats {
    AudioFormat input, output;
  };
  for (const auto& [input, output] : {Formats{{0.0, 0}, {0.0, 0}}, Formats{{0.0, 1}, {-1.0, 1}},
                                      Formats{{48000.0, 0}, {48000.0, 0}},
                                      // Only a rate of exactly 0 asks for the output's format.
                                      Formats{{-1.0, 1}, {48000.0, 1}}}) {
    world.input->input = input;
    world.input->output = output;
    engine->start();
    expectState(false, true, noMicrophone);
  }
  EXPECT_THAT(world.input->calls, testing::Not(testing::Contains("start")));
}

TEST_F(Listening, AMicrophoneThatCannotStartIsRetriedByTheNextStart) {
  for (int attempt = 0; attempt < 2; ++attempt) {
    // The second time it was listening until the input ended by itself.
    world.input->running = false;
    world.input->startSucceeds = false;
    engine->start();
    expectState(false, true, notStarted);
    world.input->startSucceeds = true;
    engine->start();
    expectState(true, true, none);
  }
  world.input->running = false;
  world.input->input = {};
  engine->start();
  expectState(false, true, noMicrophone);
}

TEST_F(Listening, AStartThatSucceedsLaterListensThen) {
  world.input->answersLater = true;
  engine->start();
  engine->start();
  EXPECT_THAT(world.input->calls, wholeStart()) << "still starting: not begun anew";
  startWith(RecordPermission::unknown);
  expectState(false, true, ask);
  world.input->pendingStart(true);
  expectState(true, true, none);
}

TEST_F(Listening, AnOutcomeAfterTheEngineIsGoneChangesNothing) {
  world.input->answersLater = true;
  engine->start();
  const auto late = world.input->pendingStart;
  engine.reset();
  EXPECT_FALSE(world.input->running) << "an engine that ends stops the microphone";
  EXPECT_THAT(inputCallsOf([&] { late(true); }), ElementsAre());
}

TEST_F(Listening, StopEndsTheInputListeningAndTheTone) {
  engine->start();
  engine->playReference();
  DisplayState expected = engine->state();
  expected.listening = false;
  expected.playingReference = false;
  EXPECT_THAT(inputCallsOf([this] { EXPECT_EQ(notifications([this] { engine->stop(); }), 1); }),
              ElementsAre("stop", "reset"));
  EXPECT_EQ(engine->state(), expected);
  EXPECT_EQ(notifications([this] { engine->stop(); }), 0);
}

TEST_F(Listening, AfterStopTheLastNoteStaysOnDisplay) {
  engine->start();
  hear(off(45, 3.0));
  engine->playReference();
  engine->stop();
  expectState(false, true, none);
  EXPECT_FALSE(engine->state().playingReference);
  EXPECT_EQ(engine->state().noteLabel, "A");
  EXPECT_EQ(engine->state().status, "In tune");
  EXPECT_FALSE(world.input->running);
}

TEST_F(Listening, AStartThatDoesNotListenLetsTheLastNoteFade) {
  const std::function<void()> obstacles[] = {
      [this] { world.permission->permission = RecordPermission::denied; },
      [this] { world.permission->permission = RecordPermission::undetermined; },
      [this] { world.input->answersLater = true; }, [this] { world.input->startSucceeds = false; },
      [this] { world.input->input = {}; }};
  for (const auto& arise : obstacles) {
    world = {};
    makeEngine();
    engine->start();
    hear(off(45, 3.0), 0.99, 0.5F);
    engine->stop();
    arise();
    engine->start();
    world.mainQueue->runAll();
    EXPECT_FALSE(engine->state().heard || engine->state().inTune);
    EXPECT_EQ(engine->state().status, "Microphone off");
    EXPECT_LT(engine->state().signal, 0.01);
    EXPECT_EQ(engine->state().noteLabel, "A");
  }
}

TEST_F(Listening, StopDropsTheWaitingBlock) {
  std::vector<TaskQueue::Job> held;
  struct HeldQueue final : TaskQueue {
    explicit HeldQueue(std::vector<Job>& kept) : jobs(kept) {}
    void async(Job job) override { jobs.push_back(std::move(job)); }
    std::vector<Job>& jobs;
  };
  capture = PitchCapture::create(std::make_unique<HeldQueue>(held), [&](auto, double) {
    ++analysed;
    return std::nullopt;
  });
  makeEngine();
  engine->start();
  push(8192, 0.25F);
  ASSERT_EQ(held.size(), 1U);
  engine->stop();
  held.front()();
  EXPECT_EQ(analysed, 0U);
}

TEST_F(Listening, SamplesFromBeforeAnInterruptionNeverJoinLaterOnes) {
  const auto pause = [this] {
    engine->stop();
    engine->start();
  };
  const auto restartAfterTheInputEnded = [this] {
    world.input->running = false;
    engine->start();
  };
  const std::function<void()> interruptions[] = {pause, restartAfterTheInputEnded, [] {}};
  for (const auto& interrupt : interruptions) {
    startExpectingBlocksOfOneValue();
    analysed = 0;
    push(4096, 0.25F);
    interrupt();
    push(4096, 0.5F, &interrupt == &interruptions[2]);  // a gap alone
    EXPECT_EQ(analysed, 0U);
    push(4096, 0.5F);
    EXPECT_EQ(analysed, 1U);
  }
}

TEST_F(Listening, TappedSoundReachesTheStateOnTheMainThread) {
  engine->start();
  hear(110.0);
  push(8192, 0.0F);
  EXPECT_TRUE(engine->state().heard);
  world.mainQueue->runAll();
  EXPECT_FALSE(engine->state().heard);
}

}  // namespace
}  // namespace corvane
