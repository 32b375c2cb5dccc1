#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

using support::AudioServer;

/// A port of this machine that nobody listens on.
std::uint16_t freePort() {
  const int listener = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  auto* const generic = reinterpret_cast<sockaddr*>(&address);
  if (bind(listener, generic, length) != 0) throw std::runtime_error("no port is free");
  getsockname(listener, generic, &length);
  close(listener);
  return ntohs(address.sin_port);
}

/// A server that lets in who knows its secret. Over a socket of the same user PulseAudio asks for
/// none, so this is by TCP; PipeWire's answer to PulseAudio's clients knows no secret at all.
class Refusal : public testing::Test {
 protected:
  Refusal() {
    testClock().stop();
    writeSecret(server.home() / "theirs", 'a');
    writeSecret(ours, 'b');
    const std::string port = std::to_string(freePort());
    server.addMicrophone("mic", 48000, 2);
    server.pactl({"load-module", "module-native-protocol-tcp", "listen=127.0.0.1", "port=" + port,
                  "auth-cookie=" + (server.home() / "theirs").string()});
    setenv("PULSE_SERVER", ("tcp:127.0.0.1:" + port).c_str(), 1);
    setenv("PULSE_COOKIE", ours.c_str(), 1);
  }

  static void writeSecret(const std::filesystem::path& file, char letter) {
    std::ofstream(file) << std::string(256, letter);
  }
  void letIn() { writeSecret(ours, 'a'); }
  void expectDenied() {
    EXPECT_EQ(client.permission->recordPermission(), RecordPermission::denied);
    EXPECT_EQ(client.input->inputFormat(), AudioFormat{});
    EXPECT_EQ(client.input->outputFormat(), AudioFormat{});
  }

  AudioServer server{AudioServer::Kind::pulseAudio};
  Client client;
  std::filesystem::path ours = server.home() / "ours";
};

TEST_F(Refusal, StaysHoweverOftenItIsRead) {
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(client.ask(), false);
    expectDenied();
  }
}

TEST_F(Refusal, EndsByItselfAfterTheUserHasAllowedIt) {
  ASSERT_EQ(client.ask(), false);
  letIn();
  expectDenied();  // Which has the server asked meanwhile.
  ASSERT_TRUE(client.finds({48000.0, 2}));
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::granted);
  EXPECT_EQ(client.listen(), true);
}

TEST_F(Refusal, OfARecordingCountsTooAndStandsWhileNobodyAsksAnew) {
  letIn();
  ASSERT_EQ(client.ask(), true);
  int changes = 0;
  const auto watching = client.connection->watch([&changes] { ++changes; });
  client.connection->refuse();
  EXPECT_EQ(changes, 1);
  // A server that had gone would be sought after 0.2 s.
  client.advance(std::chrono::seconds(10));
  EXPECT_EQ(changes, 1);
  expectDenied();
  EXPECT_EQ(client.ask(), true);
}

TEST_F(Refusal, LeavesNoLoudspeakersUntilItEnds) {
  ASSERT_EQ(client.ask(), false);
  EXPECT_FALSE(client.startOutput());
  EXPECT_FALSE(client.output->isRunning());
  letIn();
  EXPECT_TRUE(client.pumpUntil([this] { return client.startOutput(); }));
}

}  // namespace
}  // namespace corvane
