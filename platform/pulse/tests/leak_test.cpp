// SPDX-License-Identifier: MIT
#include <sys/resource.h>
#include <unistd.h>

#include "platform/pulse/tests/held.h"
#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

/// Repeated operations leak nothing, neither here nor on the server.
class Leak : public PulseTest {
 protected:
  /// Waits for two threads, main and loop: the system may still count a thread that has just ended,
  /// which would hide a leak.
  Held heldNow() {
    support::waitFor("two threads", [] { return heldByThisProcess().threads == 2; });
    return heldByThisProcess();
  }
  void expectHeld(const Held& before) {
    EXPECT_TRUE(client.pumpUntil([&] { return heldByThisProcess() == before; }))
        << testing::PrintToString(heldByThisProcess()) << " instead of "
        << testing::PrintToString(before);
  }
  void startAndHear(Client& program) {
    ASSERT_EQ(program.ask(), true);
    ASSERT_EQ(program.listen(), true);
    ASSERT_TRUE(program.hear(1, 1));
  }
};

TEST_P(Leak, StartingAndStoppingLeavesNothingBehind) {
  listenToMicrophone({96000.0, 1});
  const Held before = heldNow();
  for (int i = 0; i < 15; ++i) {
    client.stop();
    ASSERT_NO_FATAL_FAILURE(startAndHear(client));
  }
  EXPECT_TRUE(client.pumpUntil([this] { return streams("source-outputs") == 1; }));
  expectHeld(before);
}

TEST_P(Leak, StoppingDuringTheStartLeavesNothingBehind) {
  listenToMicrophone({96000.0, 1});
  const Held before = heldNow();
  // More than the 64 streams that PipeWire allows a client, seven at a time: the last start of each
  // round succeeds after all the others.
  std::optional<bool> ignored;
  for (int i = 1; i <= 77; ++i) {
    client.start(ignored);
    if (i % 7 == 0) {
      ASSERT_EQ(client.listen(), true);
    }
  }
  EXPECT_TRUE(client.hear(1, 1));
  EXPECT_TRUE(client.pumpUntil([this] { return streams("source-outputs") == 1; }));
  expectHeld(before);
}

TEST_P(Leak, AClientThatEndsLeavesNothingBehind) {
  listenToMicrophone({96000.0, 1});
  const auto oneClient = [this] {
    Client other;
    startAndHear(other);
  };
  ASSERT_NO_FATAL_FAILURE(oneClient());
  const Held before = heldNow();
  for (int i = 0; i < 5; ++i) ASSERT_NO_FATAL_FAILURE(oneClient());
  expectHeld(before);
}

/// The clock runs: PipeWire sometimes does not complete a drain, and the program then ends the
/// tone. The connection to a server that is too busy to answer times out and is retried.
class OutputLeak : public Leak {
 protected:
  int tones = 50;

  void SetUp() override {
    startOutput();
    pressShortly(1);
    ASSERT_TRUE(client.waitForEnds(1));
    before = heldNow();
    testClock().run();
  }
  void TearDown() override {
    EXPECT_TRUE(client.waitForEnds(tones + 1));
    EXPECT_TRUE(forgets("sink-inputs"));
    EXPECT_TRUE(client.pumpUntil([this] {
      return client.startOutput() && heldByThisProcess() == before;
    })) << testing::PrintToString(heldByThisProcess())
        << " instead of " << testing::PrintToString(before);
    client.expectEnds(tones + 1);
  }
  /// 10 ms of sound, so that the test does not take a minute.
  void pressShortly(int buffer) { client.press(buffer, std::vector<float>(441, 0.1F)); }

  Held before{};
};

TEST_P(OutputLeak, TonesPlayedOutLeaveNothingBehind) {
  for (int buffer = 2; buffer <= tones + 1; ++buffer) {
    pressShortly(buffer);
    ASSERT_TRUE(client.waitForEnds(buffer));
  }
}

TEST_P(OutputLeak, TonesCutOffWhileTheySoundLeaveNothingBehind) {
  for (int buffer = 2; buffer <= tones + 1; ++buffer) {
    client.press(buffer, std::vector<float>(44100, 0.1F));
    ASSERT_TRUE(client.pumpUntil([this] { return streams("sink-inputs") > 0; }));
  }
}

TEST_P(OutputLeak, TonesFasterThanTheServerLeaveNothingBehind) {
  tones = 100;  // PipeWire allows a client 64 streams.
  for (int buffer = 2; buffer <= tones + 1; ++buffer) pressShortly(buffer);
}

/// Until `end`, this process gets no more descriptors.
class Shortage {
 public:
  Shortage() {
    getrlimit(RLIMIT_NOFILE, &before);
    const int lowestFree = dup(STDIN_FILENO);
    close(lowestFree);
    // The limit is on the descriptor's number, and the lowest free one is used.
    const rlimit low{.rlim_cur = static_cast<rlim_t>(lowestFree), .rlim_max = before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &low);
  }
  ~Shortage() { end(); }
  Shortage(const Shortage&) = delete;
  Shortage& operator=(const Shortage&) = delete;

  void end() { setrlimit(RLIMIT_NOFILE, &before); }

 private:
  rlimit before{};
};

/// A program that connects while no descriptors are left, and later some are.
class Shortages : public PulseTest {
 protected:
  Shortages() { addMicrophone(); }
};

TEST_P(Shortages, OfDescriptorsAreRetried) {
  Shortage shortage;
  int changes = 0;
  const auto watch = client.connection->watch([&changes] { ++changes; });
  EXPECT_EQ(client.ask(), true);
  EXPECT_EQ(client.connection->state(), PulseConnection::State::unknown);
  const int before = changes;
  // It retries by itself, without success.
  client.advance(std::chrono::milliseconds(1000));
  EXPECT_TRUE(client.pumpUntil([&] { return changes > before; }));
  EXPECT_EQ(client.connection->state(), PulseConnection::State::unknown);
  shortage.end();
  client.advance(std::chrono::milliseconds(1000));
  EXPECT_TRUE(client.finds(stereo));
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, Leak, eitherServer(), serverName);
INSTANTIATE_TEST_SUITE_P(OnEitherServer, OutputLeak, eitherServer(), serverName);
INSTANTIATE_TEST_SUITE_P(OnPulseAudio, Shortages,
                         testing::Values(support::AudioServer::Kind::pulseAudio), serverName);

}  // namespace
}  // namespace corvane
