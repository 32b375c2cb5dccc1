#include <gtest/gtest.h>

#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

using Patience = PulseTest;

TEST_P(Patience, AStoppedStartThatIsNeverAnsweredIsNotRecordedForNobodyLater) {
  server.addMicrophone("mic", 48000, 2);
  ASSERT_EQ(client.ask(), true);
  server.suspend();
  client.input->installTap(Client::bufferFrames, {48000.0, 2}, client.recording.tap());
  client.input->start([](bool) {});
  client.stop();
  // libpulse waits 30 s for an answer; then the connection, and with it the request, is dropped.
  EXPECT_TRUE(client.pumpUntil(
      [this] { return client.permission->recordPermission() == RecordPermission::undetermined; },
      std::chrono::seconds(35)));

  server.resume();
  EXPECT_EQ(client.ask(), true);
  EXPECT_EQ(client.listen(), true);
  client.stop();
  EXPECT_TRUE(client.pumpUntil([this] {
    return server.pactl({"list", "source-outputs"}).find("Corvane") == std::string::npos;
  }));
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, Patience, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
