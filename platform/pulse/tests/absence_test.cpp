// SPDX-License-Identifier: MIT
#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

class Absence : public PulseTest {
 protected:
  /// The formats from which the engine concludes that there is no microphone.
  void expectNoMicrophone() {
    EXPECT_EQ(client.input->inputFormat(), AudioFormat{});
    EXPECT_EQ(client.input->outputFormat(), AudioFormat{});
  }
  void expectPermission(RecordPermission expected) {
    EXPECT_EQ(client.permission->recordPermission(), expected);
  }
  bool losesTheServer() {
    return client.pumpUntil(
        [this] { return client.permission->recordPermission() == RecordPermission::undetermined; });
  }
  void expectEverythingWorksAfterARestart() {
    server.start();
    addSoundingMicrophone("mic", 2, {44100.0, 1});
    EXPECT_EQ(client.ask(), true);
    expectPermission(RecordPermission::granted);
    EXPECT_EQ(client.input->inputFormat(), (AudioFormat{44100.0, 1}));
    EXPECT_EQ(client.listen(), true);
    EXPECT_TRUE(client.hear(2, 1));
  }
};

TEST_P(Absence, NothingIsKnownBeforeTheFirstRequest) {
  addMicrophone();
  expectPermission(RecordPermission::undetermined);
  expectNoMicrophone();
}

TEST_P(Absence, TheMonitorOfTheSpeakersIsNoMicrophone) {
  server.addSpeakers("speakers", 48000, 2);
  server.setDefaultSource("speakers.monitor");
  EXPECT_EQ(client.ask(), true);
  expectPermission(RecordPermission::granted);
  expectNoMicrophone();
}

TEST_P(Absence, AMicrophoneThatComesLaterIsReportedAndFoundByTheNextStart) {
  int changes = 0;
  client.input->watch([&changes] { ++changes; });
  ASSERT_EQ(client.ask(), true);
  expectPermission(RecordPermission::granted);
  expectNoMicrophone();
  EXPECT_EQ(changes, 0) << "the first answer is no change";
  addSoundingMicrophone("mic", 1, {44100.0, 1});
  EXPECT_TRUE(client.finds({44100.0, 1}));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(client.listen(), true);
  EXPECT_TRUE(client.hear(1, 1));
}

TEST_P(Absence, AMicrophoneUnpluggedWhileRecordingIsReplaced) {
  listenToMicrophone();
  server.unplug("mic");
  EXPECT_TRUE(client.finds({}));
  expectNoMicrophone();
  client.stop();
  addSoundingMicrophone("other", 2, {44100.0, 1});
  EXPECT_TRUE(client.finds({44100.0, 1}));
  EXPECT_EQ(client.listen(), true);
  EXPECT_TRUE(client.hear(2, 1));
}

TEST_P(Absence, WhileSoundIsDeliveredIsReportedAfterASecondAndAHalf) {
  using std::chrono::milliseconds;
  listenToMicrophone();
  int changes = 0;
  client.input->watch([&changes] { ++changes; });
  const auto pass = [this](milliseconds time) {
    for (milliseconds end = time; end > milliseconds(0); end -= milliseconds(100)) {
      client.advance(milliseconds(100));
    }
  };
  // An absence that ends in time, like that of a replaced device.
  client.connection->refuseRecording();
  pass(milliseconds(1400));
  client.connection->allowRecording();
  pass(milliseconds(1600));
  EXPECT_EQ(changes, 0);
  client.connection->refuseRecording();
  pass(milliseconds(1400));
  EXPECT_EQ(changes, 0);
  pass(milliseconds(200));
  EXPECT_EQ(changes, 1);
}

TEST_P(Absence, OfTheOnlyMicrophoneIsReportedUntilTheWatchEnds) {
  listenToMicrophone();
  int changes = 0;
  client.input->watch([&changes, this] {
    ++changes;
    client.input->watch(nullptr);
  });
  testClock().run();
  server.unplug("mic");
  EXPECT_TRUE(client.pumpUntil([&changes] { return changes > 0; }));
  testClock().stop();
  client.stop();
  addMicrophone("other");
  EXPECT_TRUE(client.finds(stereo));
  EXPECT_EQ(changes, 1);
}

/// The clock is stopped, so that no timeout can end the request or the start.
TEST_P(Absence, WithoutAServerTheRequestIsGrantedAtOnceAndAStartFails) {
  server.kill();
  EXPECT_EQ(client.ask(), true);
  expectPermission(RecordPermission::undetermined);
  expectNoMicrophone();
  std::optional<bool> outcome;
  client.start(outcome, stereo);
  EXPECT_TRUE(client.pumpUntil([&outcome] { return outcome.has_value(); }));
  EXPECT_EQ(outcome, false);
  EXPECT_FALSE(client.input->isRunning());
}

TEST_P(Absence, AServerThatStartsLaterIsFoundByTheNextStart) {
  server.kill();
  ASSERT_EQ(client.ask(), true);
  expectEverythingWorksAfterARestart();
}

TEST_P(Absence, AServerThatDiesAtAnyTimeIsFoundAgain) {
  listenToMicrophone();
  server.kill();
  EXPECT_TRUE(losesTheServer());
  expectNoMicrophone();
  EXPECT_TRUE(client.input->isRunning());
  expectEverythingWorksAfterARestart();

  server.kill();
  client.stop();
  EXPECT_FALSE(client.input->isRunning());
  EXPECT_TRUE(losesTheServer());
  expectEverythingWorksAfterARestart();

  server.suspend();
  std::optional<bool> outcome;
  client.start(outcome);
  server.kill();
  EXPECT_TRUE(client.pumpUntil([&outcome] { return outcome.has_value(); }));
  EXPECT_EQ(outcome, false);
  expectEverythingWorksAfterARestart();
}

TEST_P(Absence, OverlappingRequestsAreAllAnswered) {
  int answers = 0;
  for (int i = 0; i < 3; ++i) {
    client.prompt([&] {
      client.permission->requestRecordPermission([&answers](bool ok) { answers += ok ? 1 : 10; });
    });
  }
  EXPECT_TRUE(client.pumpUntil([&answers] { return answers >= 3; }));
  EXPECT_EQ(answers, 3);
}

TEST_P(Absence, AnAnswerAfterTheEndIsDropped) {
  bool answered = false;
  client.permission->requestRecordPermission([&answered](bool) { answered = true; });
  client.end();
  // The loop has ended: all its reports are queued.
  client.mainQueue.pump();
  EXPECT_FALSE(answered);
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, Absence, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
