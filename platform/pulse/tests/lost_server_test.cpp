#include <gtest/gtest.h>
#include <pulse/operation.h>

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

TEST_P(LostServer, AServerThatDiesWhileItIsHeardEndsTheRecordingAndALaterStartWorks) {
  listenToMicrophone();
  server.kill();
  EXPECT_TRUE(client.pumpUntil([this] {
    return client.permission->recordPermission() == RecordPermission::undetermined &&
           !client.input->isRunning();
  }));
  EXPECT_EQ(client.input->inputFormat(), AudioFormat{});
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

TEST_P(LostServer, ARecordingThatTheServerEndsMayBeStartedAgain) {
  listenToMicrophone();
  const std::string list = server.pactl({"list", "short", "source-outputs"});
  // PulseAudio's remapped microphone is a recording too; this program's is the newest.
  const auto newest = list.rfind('\n', list.size() - 2) + 1;
  const auto index = static_cast<std::uint32_t>(std::stoul(list.substr(newest)));
  client.connection->async([index](PulseSession* session) {
    pa_operation_unref(
        pa_context_kill_source_output(session->readyContext(), index, nullptr, nullptr));
  });
  EXPECT_TRUE(client.pumpUntil([this] { return !client.input->isRunning(); }));
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::granted);
  EXPECT_EQ(client.listen(), true);
  EXPECT_TRUE(client.hear(1, 1));
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, LostServer, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
