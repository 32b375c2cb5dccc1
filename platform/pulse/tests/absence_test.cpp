#include <gtest/gtest.h>

#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

class Absence : public PulseTest {
 protected:
  /// What the tuner needs to say that there is no microphone.
  void expectNoMicrophone() {
    EXPECT_EQ(client.input->inputFormat(), AudioFormat{});
    EXPECT_EQ(client.input->outputFormat(), AudioFormat{});
  }
};

TEST_P(Absence, NothingIsKnownBeforeAnybodyAsks) {
  server.addMicrophone("mic", 48000, 2);
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::undetermined);
  expectNoMicrophone();
}

TEST_P(Absence, WithoutAnySourceThereIsPermissionAndNoFormat) {
  EXPECT_EQ(client.ask(), true);
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::granted);
  expectNoMicrophone();
}

TEST_P(Absence, TheMonitorOfTheSpeakersIsNoMicrophone) {
  server.addSpeakers("speakers", 48000, 2);
  server.setDefaultSource("speakers.monitor");
  EXPECT_EQ(client.ask(), true);
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::granted);
  expectNoMicrophone();
}

TEST_P(Absence, AMicrophoneThatComesLaterIsFoundByTheNextStart) {
  ASSERT_EQ(client.ask(), true);
  expectNoMicrophone();
  server.addMicrophone("mic", 44100, 1);
  EXPECT_TRUE(client.pumpUntil([this] {
    return client.input->inputFormat() == AudioFormat{44100.0, 1};
  }));
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::granted);
  play("mic", 1, {44100.0, 1});
  EXPECT_EQ(client.listen(), true);
  EXPECT_TRUE(client.hear(1, 1));
}

TEST_P(Absence, AMicrophoneThatGoesTakesItsFormatAlong) {
  server.addMicrophone("mic", 48000, 2);
  ASSERT_EQ(client.ask(), true);
  EXPECT_EQ(client.input->inputFormat(), (AudioFormat{48000.0, 2}));
  server.unplug("mic");
  EXPECT_TRUE(client.pumpUntil([this] { return client.input->inputFormat() == AudioFormat{}; }));
  expectNoMicrophone();
}

TEST_P(Absence, AMicrophoneThatGoesWhileItIsHeardDoesNoHarm) {
  listenToMicrophone({48000.0, 2});
  server.unplug("mic");
  EXPECT_TRUE(client.pumpUntil([this] { return client.input->inputFormat() == AudioFormat{}; }));
  client.stop();
  server.addMicrophone("other", 44100, 1);
  play("other", 2, {44100.0, 1});
  EXPECT_TRUE(client.pumpUntil([this] {
    return client.input->inputFormat() == AudioFormat{44100.0, 1};
  }));
  EXPECT_EQ(client.listen(), true);
  EXPECT_TRUE(client.hear(2, 1));
}

TEST_P(Absence, WithoutAServerTheRequestIsGrantedAndNothingIsThereToHear) {
  server.kill();
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EQ(client.ask(), true);
  // A socket that nobody listens to is refused by the system at once; a second is generous.
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(1));
  expectNoMicrophone();
}

TEST_P(Absence, AServerThatStartsLaterIsFoundByTheNextStart) {
  server.kill();
  ASSERT_EQ(client.ask(), true);
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::undetermined);
  server.start();
  server.addMicrophone("mic", 96000, 2);
  EXPECT_EQ(client.ask(), true);
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::granted);
  EXPECT_EQ(client.input->inputFormat(), (AudioFormat{96000.0, 2}));
}

TEST_P(Absence, AStartWithoutAServerFails) {
  server.kill();
  std::optional<bool> outcome;
  client.prompt([&] {
    client.input->installTap(Client::bufferFrames, {48000.0, 1}, client.recording.tap());
    client.input->start([&outcome](bool ok) { outcome = ok; });
  });
  EXPECT_TRUE(client.pumpUntil([&outcome] { return outcome.has_value(); }));
  EXPECT_EQ(outcome, false);
  EXPECT_FALSE(client.input->isRunning());
}

TEST_P(Absence, RequestsThatOverlapAreAllAnswered) {
  int answers = 0;
  for (int i = 0; i < 3; ++i) {
    client.prompt([&] {
      client.permission->requestRecordPermission([&answers](bool ok) { answers += ok ? 1 : 10; });
    });
  }
  EXPECT_TRUE(client.pumpUntil([&answers] { return answers >= 3; }));
  EXPECT_EQ(answers, 3);
}

TEST_P(Absence, AnOutcomeThatComesAfterTheEndReachesNobody) {
  server.addMicrophone("mic", 48000, 2);
  bool answered = false;
  client.permission->requestRecordPermission([&answered](bool) { answered = true; });
  client.prompt([this] {
    client.input.reset();
    client.permission.reset();
    client.connection.reset();
  });
  // Another client's question is answered after whatever the first one left behind.
  Client other;
  EXPECT_EQ(other.ask(), true);
  client.mainQueue.pumpUntil([] { return false; }, std::chrono::milliseconds(20));
  EXPECT_FALSE(answered);
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, Absence, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
