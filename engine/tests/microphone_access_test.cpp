// SPDX-License-Identifier: MIT
#include "engine/tests/listening_fixture.h"

namespace corvane {
namespace {

using testing::ElementsAre;

using MicrophoneAccess = ListeningTest;

TEST_F(MicrophoneAccess, TwoStartsWhileUndeterminedSendOneRequest) {
  startWith(RecordPermission::undetermined);
  engine->start();
  EXPECT_EQ(world.permission->requests.size(), 1U);
  expectState(false, false, none);
}

TEST_F(MicrophoneAccess, AnswerDecidesWhetherItListens) {
  struct Answer {
    bool granted;
    RecordPermission permission;
    bool listening;
    Error error;
  };
  for (const Answer& each : {Answer{true, RecordPermission::granted, true, none},
                             Answer{true, RecordPermission::undetermined, true, none},
                             Answer{false, RecordPermission::denied, false, denied},
                             Answer{false, RecordPermission::undetermined, false, ask}}) {
    makeEngine();
    startWith(RecordPermission::undetermined);
    answer(each.granted, each.permission);
    expectState(each.listening, each.listening, each.error);
  }
  startWith(RecordPermission::undetermined);
  EXPECT_EQ(world.permission->requests.size(), 5U) << "the answer ended the request";
  EXPECT_EQ(engine->state().errorText, none);
}

TEST_F(MicrophoneAccess, AnAnswerOfNoWhilePermissionReadsGrantedStartsCapture) {
  startWith(RecordPermission::undetermined);
  answer(false, RecordPermission::granted);
  expectState(true, true, none);
}

TEST_F(MicrophoneAccess, AnswerRestartsATunerThatAlreadyRuns) {
  startWith(RecordPermission::undetermined);
  startWith(RecordPermission::granted);
  ASSERT_TRUE(engine->state().listening);
  EXPECT_THAT(inputCallsOf([this] { answer(true, RecordPermission::granted); }), wholeStart());
}

TEST_F(MicrophoneAccess, AGrantClearsTheErrorBeforeCaptureHasStarted) {
  world.input->answersLater = true;
  startWith(RecordPermission::undetermined);
  startWith(RecordPermission::unknown);
  ASSERT_EQ(engine->state().errorText, ask);
  answer(true, RecordPermission::granted);
  expectState(false, true, none);
}

TEST_F(MicrophoneAccess, AnAnswerAfterTheEngineIsGoneChangesNothing) {
  startWith(RecordPermission::undetermined);
  engine.reset();
  EXPECT_THAT(inputCallsOf([this] { answer(true, RecordPermission::granted); }), ElementsAre());
}

TEST_F(MicrophoneAccess, StartWhileDeniedExplainsAndAsksTheSystemAgain) {
  engine->start();
  EXPECT_EQ(world.permission->refreshes, 0);
  startWith(RecordPermission::denied);
  expectState(false, false, denied);
  EXPECT_EQ(world.permission->refreshes, 1);
  startWith(RecordPermission::granted);
  EXPECT_EQ(engine->state().errorText, none) << "permission granted meanwhile is noticed";
}

TEST_F(MicrophoneAccess, AnUnknownPermissionAsksAndChangesNothingElse) {
  DisplayState expected = engine->state();
  expected.errorText = ask;
  EXPECT_EQ(notifications([this] { startWith(RecordPermission::unknown); }), 1);
  EXPECT_EQ(engine->state(), expected);
}

TEST_F(MicrophoneAccess, ADenialOrAGrantReadByStartEndsTheRequest) {
  for (const auto read : {RecordPermission::denied, RecordPermission::granted}) {
    makeEngine();
    world.permission->requests.clear();
    startWith(RecordPermission::undetermined);
    startWith(read);
    startWith(RecordPermission::undetermined);
    EXPECT_EQ(world.permission->requests.size(), 2U);
  }
}

TEST_F(MicrophoneAccess, AStartThatFailsBecauseTheMicrophoneIsDeniedSaysThat) {
  world.input->answersLater = true;
  engine->start();
  world.permission->permission = RecordPermission::denied;
  world.input->pendingStart(false);
  expectState(false, false, denied);
}

TEST_F(MicrophoneAccess, ADenialWhileItListensEndsTheRecording) {
  engine->start();
  startWith(RecordPermission::denied);
  expectState(false, false, denied);
  EXPECT_FALSE(world.input->isRunning());
  startWith(RecordPermission::granted);
  expectState(true, true, none);
}

TEST_F(MicrophoneAccess, TheSecondSettingsAddressIsTriedOnlyIfTheFirstFails) {
  const auto first =
      "x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension?Privacy_Microphone";
  const auto second = "x-apple.systempreferences:com.apple.preference.security?Privacy_Microphone";
  engine->openMicSettings();
  EXPECT_THAT(world.urlOpener->opened, ElementsAre(first));
  world.urlOpener->opened.clear();
  world.urlOpener->failures = 5;
  engine->openMicSettings();
  EXPECT_THAT(world.urlOpener->opened, ElementsAre(first, second));
}

TEST_F(MicrophoneAccess, AnswerAfterStopDoesNotListen) {
  startWith(RecordPermission::undetermined);
  engine->stop();
  answer(true, RecordPermission::granted);
  expectState(false, true, none);
  EXPECT_FALSE(world.input->running);
}

TEST_F(MicrophoneAccess, AllowingADeniedMicrophoneOpensTheSettingsAndForgetsTheRequest) {
  startWith(RecordPermission::undetermined);
  world.permission->permission = RecordPermission::denied;
  EXPECT_THAT(inputCallsOf([this] { engine->allowMicrophone(); }), ElementsAre());
  EXPECT_EQ(world.urlOpener->opened.size(), 1U);
  EXPECT_EQ(world.permission->refreshes, 1);
  startWith(RecordPermission::undetermined);
  EXPECT_EQ(world.permission->requests.size(), 2U);
}

TEST_F(MicrophoneAccess, AllowingAnUndeterminedMicrophoneAsksAgain) {
  startWith(RecordPermission::undetermined);
  engine->allowMicrophone();
  EXPECT_EQ(world.permission->requests.size(), 2U);
  EXPECT_TRUE(world.urlOpener->opened.empty());
}

TEST_F(MicrophoneAccess, AllowingAnyOtherMicrophoneStarts) {
  engine->allowMicrophone();
  expectState(true, true, none);
  world.permission->permission = RecordPermission::unknown;
  engine->allowMicrophone();
  EXPECT_EQ(engine->state().errorText, ask);
  EXPECT_TRUE(world.urlOpener->opened.empty());
}

/// The input reports that another start would end differently.
class MicrophoneEvents : public ListeningTest {
 protected:
  void startWithout() {
    world.input->input = {};
    engine->start();
    ASSERT_EQ(engine->state().errorText, noMicrophone);
  }
};

TEST_F(MicrophoneEvents, AreReportedFromStartToStop) {
  EXPECT_FALSE(world.input->changed);
  engine->start();
  EXPECT_TRUE(world.input->changed);
  engine->start();
  EXPECT_EQ(world.input->watches, 1) << "a new watch would miss a change";
  engine->stop();
  EXPECT_FALSE(world.input->changed);
  engine->start();
  engine.reset();
  EXPECT_FALSE(world.input->changed);
}

TEST_F(MicrophoneEvents, StartAMicrophoneThatIsPluggedInLater) {
  startWithout();
  world.input->input = {48000.0, 1};
  world.input->changed();
  expectState(true, true, none);
}

TEST_F(MicrophoneEvents, ReportAMicrophoneThatStaysAway) {
  engine->start();
  hear(off(45, 3.0));
  world.input->input = {};
  EXPECT_EQ(notifications([this] { world.input->changed(); }), 1);
  expectState(false, true, noMicrophone);
  EXPECT_FALSE(world.input->running);
  world.mainQueue->runAll();
  EXPECT_FALSE(engine->state().heard) << "the last note fades";
  world.input->input = {48000.0, 1};
  world.input->changed();
  expectState(true, true, none);
}

TEST_F(MicrophoneEvents, ReportADenialWhereThereWasNoMicrophone) {
  startWithout();
  world.permission->permission = RecordPermission::denied;
  world.input->changed();
  expectState(false, false, denied);
}

}  // namespace
}  // namespace corvane
