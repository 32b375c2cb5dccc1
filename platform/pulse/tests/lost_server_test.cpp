#include <gtest/gtest.h>

#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

class LostServer : public PulseTest {
 protected:
  void expectEverythingWorksAfterARestart() {
    server.start();
    server.addMicrophone("mic", 44100, 1);
    play("mic", 2, {44100.0, 1});
    EXPECT_EQ(client.ask(), true);
    EXPECT_EQ(client.input->inputFormat(), (AudioFormat{44100.0, 1}));
    EXPECT_EQ(client.listen(), true);
    EXPECT_TRUE(client.hear(2, 1));
  }
};

TEST_P(LostServer, WhileItIsGoneThereIsNoFormatAndTheInputRunsOn) {
  listenToMicrophone();
  server.kill();
  EXPECT_TRUE(client.pumpUntil(
      [this] { return client.permission->recordPermission() == RecordPermission::undetermined; }));
  EXPECT_EQ(client.input->inputFormat(), AudioFormat{});
  EXPECT_TRUE(client.input->isRunning());
  expectEverythingWorksAfterARestart();
}

TEST_P(LostServer, AStopAfterTheServerHasDiedDoesNoHarm) {
  listenToMicrophone();
  server.kill();
  client.stop();
  EXPECT_FALSE(client.input->isRunning());
  EXPECT_TRUE(client.pumpUntil(
      [this] { return client.permission->recordPermission() == RecordPermission::undetermined; }));
  expectEverythingWorksAfterARestart();
}

TEST_P(LostServer, AServerThatDiesDuringTheStartFailsIt) {
  server.addMicrophone("mic", 48000, 2);
  ASSERT_EQ(client.ask(), true);
  server.suspend();
  std::optional<bool> outcome;
  client.prompt([&] {
    client.input->installTap(Client::bufferFrames, {48000.0, 2}, client.recording.tap());
    client.input->start([&outcome](bool ok) { outcome = ok; });
  });
  server.kill();
  EXPECT_TRUE(client.pumpUntil([&outcome] { return outcome.has_value(); }));
  EXPECT_EQ(outcome, false);
  expectEverythingWorksAfterARestart();
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, LostServer, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
