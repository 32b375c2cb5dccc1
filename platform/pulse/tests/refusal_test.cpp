// SPDX-License-Identifier: MIT
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

using support::AudioServer;

/// A free port of this machine.
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

/// A server that requires a cookie. PulseAudio requires none on a socket of the same user, so this
/// one uses TCP; pipewire-pulse does not support cookies.
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

TEST_F(Refusal, StaysAfterRepeatedRequests) {
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(client.ask(), false);
    expectDenied();
  }
}

TEST_F(Refusal, EndsAfterARefreshOnceAllowed) {
  ASSERT_EQ(client.ask(), false);
  letIn();
  client.permission->refresh();
  expectDenied();
  ASSERT_TRUE(client.finds({48000.0, 2}));
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::granted);
  EXPECT_EQ(client.listen(), true);
}

TEST_F(Refusal, ReportsItsEndToAWatchThatBeganDuringIt) {
  ASSERT_EQ(client.ask(), false);
  int news = 0;
  client.input->watch([&news] { ++news; });
  letIn();
  client.permission->refresh();
  EXPECT_TRUE(client.pumpUntil([&] { return news > 0; }));
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::granted);
}

TEST_F(Refusal, AfterAnAbsenceIsReported) {
  const std::string theirs = getenv("PULSE_SERVER");
  setenv("PULSE_SERVER", "unix:/nowhere", 1);
  int news = 0;
  client.input->watch([&news] { ++news; });
  ASSERT_EQ(client.ask(), true);
  setenv("PULSE_SERVER", theirs.c_str(), 1);
  // The connection is retried at growing intervals.
  EXPECT_TRUE(client.pumpUntil([&] {
    client.advance(std::chrono::seconds(1));
    return news > 0;
  }));
  EXPECT_EQ(news, 1);
  expectDenied();
}

TEST_F(Refusal, StopsTheOutputUntilItEnds) {
  ASSERT_EQ(client.ask(), false);
  EXPECT_FALSE(client.startOutput());
  EXPECT_FALSE(client.output->isRunning());
  letIn();
  EXPECT_TRUE(client.pumpUntil([this] { return client.startOutput(); }));
}

/// A real server behind a proxy that refuses every recording and nothing else.
class RefusedRecording : public PulseTest {
 protected:
  void SetUp() override {
    addLoudspeakers();
    const auto socket = server.home() / "without-recordings";
    sandbox = std::make_unique<support::ChildProcess>(
        std::vector<std::string>{"python3", CORVANE_NO_RECORDINGS, socket,
                                 server.home() / "pulse" / "native", server.home() / "allowed"},
        refusals);
    setenv("PULSE_SERVER", ("unix:" + socket.string()).c_str(), 1);
    support::waitFor("the sandbox", [this] { return client.ask() == true && isConnected(); });
    ASSERT_EQ(client.listen(), false);
  }
  bool isConnected() const {
    return client.connection->state() == PulseConnection::State::connected;
  }
  void expect(RecordPermission permission) {
    EXPECT_EQ(client.permission->recordPermission(), permission);
  }
  std::ptrdiff_t refused() const {
    std::ifstream file(refusals);
    return std::count(std::istreambuf_iterator<char>(file), {}, '\n');
  }

  std::filesystem::path refusals = server.home() / "refusals";
  std::unique_ptr<support::ChildProcess> sandbox;
};

TEST_P(RefusedRecording, IsADenialThatDoesNotAffectTones) {
  for (int press = 1; press <= 8; ++press) {
    client.permission->refresh();
    expect(RecordPermission::denied);
    ASSERT_TRUE(client.startOutput());
    client.press(press, std::vector<float>(4410, 0.1F));
    ASSERT_TRUE(client.waitForEnds(press));
  }
  pressUntilTheServerPlays(9);
  expect(RecordPermission::denied);
  EXPECT_EQ(refused(), 1);
}

TEST_P(RefusedRecording, IsRetriedByRefreshAndEndsOnceAllowed) {
  int changes = 0;
  client.input->watch([&changes] { ++changes; });
  const auto askLater = [this] {
    client.advance(std::chrono::seconds(1));
    client.permission->refresh();
    expect(RecordPermission::denied);
  };
  const auto first = client.connection->recordingRefused();
  askLater();
  EXPECT_TRUE(client.pumpUntil([&] { return client.connection->recordingRefused() != first; }));
  client.permission->refresh();
  expect(RecordPermission::denied);
  EXPECT_EQ(refused(), 2);
  EXPECT_EQ(changes, 0);
  std::ofstream(server.home() / "allowed");
  askLater();
  EXPECT_TRUE(client.pumpUntil([&changes] { return changes > 0; }));
  expect(RecordPermission::granted);
  EXPECT_EQ(client.listen(), true);
}

TEST_P(RefusedRecording, MayStopTheInputWhenReported) {
  client.connection->allowRecording();
  bool told = false;
  client.input->watch([this, &told] {
    told = true;
    client.input->stop();
  });
  EXPECT_EQ(client.listen(), false);
  EXPECT_TRUE(told);
}

TEST_P(RefusedRecording, EndsWithTheServerThatRefused) {
  sandbox->kill();
  ASSERT_TRUE(client.pumpUntil([this] { return !isConnected(); }));
  expect(RecordPermission::undetermined);
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, RefusedRecording, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
