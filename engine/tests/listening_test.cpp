#include <gmock/gmock.h>

#include "engine/tests/engine_fixture.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::Optional;

constexpr auto denied =
    "Microphone access is off. Allow Corvane under Settings, Privacy, Microphone.";
constexpr auto ask = "Tap Allow Microphone so Corvane can hear the note.";
constexpr auto noMicrophone = "No microphone is available.";
constexpr auto notStarted = "The microphone could not start.";

class Listening : public EngineTest {
 protected:
  void answer(bool granted, RecordPermission permission) {
    world.permission->permission = permission;
    world.permission->requests.back()(granted);
    world.mainQueue->runAll();
  }

  /// `analysed` counts the blocks.
  void startExpectingBlocksOfOneValue(std::size_t& analysed) {
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
};

TEST_F(Listening, WithPermissionStartListensThroughATapOf4096FramesInTheDevicesFormat) {
  world.input->input = {96000.0, 2};
  engine->start();
  EXPECT_TRUE(engine->listening());
  EXPECT_TRUE(engine->micAllowed());
  EXPECT_EQ(engine->errorText(), std::nullopt);
  EXPECT_THAT(world.input->calls, ElementsAre("stop", "reset", "installTap", "start"));
  EXPECT_EQ(world.input->tapFrames, 4096U);
  EXPECT_EQ(world.input->tapFormat, (AudioFormat{96000.0, 2}));
}

TEST_F(Listening, StartingAgainWhileListeningOnlyRefreshesPermissionAndClearsTheError) {
  engine->start();
  world.input->calls.clear();
  const auto fields = published([this] { engine->start(); });
  EXPECT_TRUE(world.input->calls.empty());
  EXPECT_THAT(fields, ElementsAre(Field::micAllowed, Field::errorText));
  EXPECT_TRUE(engine->listening());
}

TEST_F(Listening, TwoStartsWhileUndeterminedSendOneRequest) {
  world.permission->permission = RecordPermission::undetermined;
  engine->start();
  engine->start();
  EXPECT_EQ(world.permission->requests.size(), 1U);
  EXPECT_FALSE(engine->listening());
}

TEST_F(Listening, AnAbandonedRequestMayBeSentAgain) {
  world.permission->permission = RecordPermission::undetermined;
  engine->start();
  engine->abandonMicRequest();
  engine->start();
  EXPECT_EQ(world.permission->requests.size(), 2U);
}

TEST_F(Listening, AGrantStartsCapture) {
  world.permission->permission = RecordPermission::undetermined;
  engine->start();
  answer(true, RecordPermission::granted);
  EXPECT_TRUE(engine->listening());
  EXPECT_TRUE(engine->micAllowed());
}

TEST_F(Listening, AnAnswerOfNoWhileThePermissionReadsGrantedStillStartsCapture) {
  world.permission->permission = RecordPermission::undetermined;
  engine->start();
  answer(false, RecordPermission::granted);
  EXPECT_TRUE(engine->listening());
  EXPECT_TRUE(engine->micAllowed());
}

TEST_F(Listening, ADenialIsExplained) {
  world.permission->permission = RecordPermission::undetermined;
  engine->start();
  answer(false, RecordPermission::denied);
  EXPECT_THAT(engine->errorText(), Optional(std::string(denied)));
  EXPECT_FALSE(engine->micAllowed());
  EXPECT_FALSE(engine->listening());
}

TEST_F(Listening, AnAnswerThatIsNeitherAsksTheUserToAllow) {
  world.permission->permission = RecordPermission::undetermined;
  engine->start();
  answer(false, RecordPermission::undetermined);
  EXPECT_THAT(engine->errorText(), Optional(std::string(ask)));
  engine->start();
  EXPECT_EQ(world.permission->requests.size(), 2U);
  EXPECT_EQ(engine->errorText(), std::nullopt);
}

TEST_F(Listening, AnAnswerAfterTheEngineIsGoneChangesNothing) {
  world.permission->permission = RecordPermission::undetermined;
  engine->start();
  engine.reset();
  world.input->calls.clear();
  answer(true, RecordPermission::granted);
  EXPECT_TRUE(world.input->calls.empty());
}

TEST_F(Listening, StartWhileDeniedExplainsAndDoesNotListen) {
  engine->start();
  world.permission->permission = RecordPermission::denied;
  engine->start();
  EXPECT_THAT(engine->errorText(), Optional(std::string(denied)));
  EXPECT_FALSE(engine->micAllowed());
  EXPECT_FALSE(engine->listening());
}

TEST_F(Listening, APermissionOfNoKnownKindAsksTheUserToAllowAndChangesNothingElse) {
  world.permission->permission = RecordPermission::unknown;
  const auto fields = published([this] { engine->start(); });
  EXPECT_THAT(fields, ElementsAre(Field::errorText));
  EXPECT_THAT(engine->errorText(), Optional(std::string(ask)));
}

TEST_F(Listening, PermissionGrantedInTheSettingsIsPickedUpByTheNextStart) {
  world.permission->permission = RecordPermission::denied;
  engine->start();
  world.permission->permission = RecordPermission::granted;
  engine->start();
  EXPECT_TRUE(engine->listening());
  EXPECT_EQ(engine->errorText(), std::nullopt);
}

TEST_F(Listening, AnInputWithoutARateButWithAValidOutputFormatIsTappedInThat) {
  world.input->input = {0.0, 2};
  world.input->output = {44100.0, 1};
  engine->start();
  EXPECT_TRUE(engine->listening());
  EXPECT_EQ(world.input->tapFormat, (AudioFormat{44100.0, 1}));
}

TEST_F(Listening, AnInputWithoutChannelsButWithAValidOutputFormatIsTappedInThat) {
  world.input->input = {48000.0, 0};
  world.input->output = {44100.0, 2};
  engine->start();
  EXPECT_EQ(world.input->tapFormat, (AudioFormat{44100.0, 2}));
}

TEST_F(Listening, WithoutAUsableFormatNoMicrophoneIsAvailable) {
  for (const AudioFormat format : {AudioFormat{0.0, 0}, {-1.0, 1}, {48000.0, 0}}) {
    world.input->input = format;
    world.input->output = format;
    engine->start();
    EXPECT_THAT(engine->errorText(), Optional(std::string(noMicrophone)));
    EXPECT_FALSE(engine->listening());
    EXPECT_TRUE(engine->micAllowed());
  }
  EXPECT_THAT(world.input->calls, testing::Not(testing::Contains("start")));
}

TEST_F(Listening, AMicrophoneThatCannotStartIsToldAndRetriedByTheNextStart) {
  world.input->startSucceeds = false;
  engine->start();
  EXPECT_THAT(engine->errorText(), Optional(std::string(notStarted)));
  EXPECT_FALSE(engine->listening());

  world.input->startSucceeds = true;
  engine->start();
  EXPECT_TRUE(engine->listening());
  EXPECT_EQ(engine->errorText(), std::nullopt);
}

TEST_F(Listening, AnOutcomeThatIsKnownLaterArrivesThen) {
  world.input->answersLater = true;
  engine->start();
  EXPECT_FALSE(engine->listening());
  engine->start();  // still starting: not begun anew
  EXPECT_THAT(world.input->calls, ElementsAre("stop", "reset", "installTap", "start"));
  world.input->pendingStart(true);
  EXPECT_TRUE(engine->listening());
}

TEST_F(Listening, AnOutcomeAfterTheEngineIsGoneChangesNothing) {
  world.input->answersLater = true;
  engine->start();
  const auto late = world.input->pendingStart;
  engine.reset();
  late(true);
  EXPECT_FALSE(world.input->running);
}

TEST_F(Listening, SuccessThatComesLaterClearsAnErrorFromMeanwhile) {
  world.input->answersLater = true;
  engine->start();
  world.permission->permission = RecordPermission::unknown;
  engine->start();
  ASSERT_THAT(engine->errorText(), Optional(std::string(ask)));
  world.input->pendingStart(true);
  EXPECT_EQ(engine->errorText(), std::nullopt);
}

TEST_F(Listening, ADenialOrAGrantReadByStartEndsAnOutstandingRequest) {
  for (const auto answer : {RecordPermission::denied, RecordPermission::granted}) {
    world.permission->requests.clear();
    world.permission->permission = RecordPermission::undetermined;
    engine->start();
    world.permission->permission = answer;
    engine->start();
    world.permission->permission = RecordPermission::undetermined;
    engine->start();
    EXPECT_EQ(world.permission->requests.size(), 2U);
    engine->abandonMicRequest();
  }
}

TEST_F(Listening, ABlockThatWaitsForDetectionIsForgottenByStop) {
  const auto held = std::make_shared<std::vector<TaskQueue::Job>>();
  struct HeldQueue final : TaskQueue {
    explicit HeldQueue(std::shared_ptr<std::vector<Job>> kept) : jobs(std::move(kept)) {}
    void async(Job job) override { jobs->push_back(std::move(job)); }
    std::shared_ptr<std::vector<Job>> jobs;
  };
  int analysed = 0;
  capture = PitchCapture::create(std::make_unique<HeldQueue>(held), [&](auto, double) {
    ++analysed;
    return std::nullopt;
  });
  makeEngine();
  engine->start();
  push(8192, 0.25F);
  ASSERT_EQ(held->size(), 1U);
  engine->stop();
  held->front()();
  EXPECT_EQ(analysed, 0);
}

TEST_F(Listening, StopEndsAndResetsTheInput) {
  engine->start();
  world.input->calls.clear();
  engine->stop();
  EXPECT_THAT(world.input->calls, ElementsAre("stop", "reset"));
}

TEST_F(Listening, AfterStopTheLastNoteStaysOnDisplay) {
  engine->start();
  hear(off(45, 3.0));
  engine->playReference();
  engine->stop();
  EXPECT_FALSE(engine->listening());
  EXPECT_FALSE(engine->playingReference());
  EXPECT_TRUE(engine->micAllowed());
  EXPECT_EQ(engine->noteLabel(), "A");
  EXPECT_EQ(engine->status(), "In tune");
  EXPECT_FALSE(world.input->running);
}

TEST_F(Listening, StopWhileStoppedIsHarmless) {
  engine->stop();
  engine->stop();
  EXPECT_FALSE(engine->listening());
}

TEST_F(Listening, SamplesFromBeforeAPauseNeverJoinThoseAfterIt) {
  std::size_t analysed = 0;
  startExpectingBlocksOfOneValue(analysed);
  push(4096, 0.25F);
  engine->stop();
  engine->start();
  push(4096, 0.5F);
  EXPECT_EQ(analysed, 0U);
  push(4096, 0.5F);
  EXPECT_EQ(analysed, 1U);
}

TEST_F(Listening, SamplesFromBeforeAGapNeverJoinThoseAfterIt) {
  std::size_t analysed = 0;
  startExpectingBlocksOfOneValue(analysed);
  push(4096, 0.25F);
  push(4096, 0.5F, true);
  EXPECT_EQ(analysed, 0U);
  push(4096, 0.5F);
  EXPECT_EQ(analysed, 1U);
}

TEST_F(Listening, WhatTheTapHearsReachesTheScreen) {
  engine->start();
  push(8192, 0.0F);
  hear(110.0);
  push(4096, 0.0F);
  EXPECT_TRUE(engine->heard());  // not applied before the main thread gets to it
  world.mainQueue->runAll();
  EXPECT_FALSE(engine->heard());
}

TEST_F(Listening, AnEngineThatEndsStopsTheMicrophone) {
  engine->start();
  engine.reset();
  EXPECT_FALSE(world.input->running);
}

TEST_F(Listening, IfTheFirstSettingsAddressOpensTheSecondIsNotTried) {
  engine->openMicSettings();
  EXPECT_THAT(world.urlOpener->opened,
              ElementsAre("x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension?"
                          "Privacy_Microphone"));
}

TEST_F(Listening, IfTheFirstSettingsAddressDoesNotOpenTheSecondIsTriedOnce) {
  world.urlOpener->failures = 5;
  engine->openMicSettings();
  EXPECT_THAT(world.urlOpener->opened,
              ElementsAre(testing::_,
                          "x-apple.systempreferences:com.apple.preference.security?"
                          "Privacy_Microphone"));
}

}  // namespace
}  // namespace corvane
