#include <gtest/gtest.h>

#include "platform/pulse/tests/held.h"
#include "platform/pulse/tests/output_fixture.h"
#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

class Leak : public PulseTest {
 protected:
  std::ptrdiff_t recordings() { return linesIn(server.pactl({"list", "short", "source-outputs"})); }
  void startAndHear() {
    ASSERT_EQ(client.listen(), true);
    ASSERT_TRUE(client.hear(1, 1));
  }
};

TEST_P(Leak, StartingAndStoppingLeavesNothingBehind) {
  listenToMicrophone({96000.0, 1});
  client.stop();
  const auto idle = [this] { return client.pumpUntil([this] { return recordings() <= 1; }); };
  ASSERT_TRUE(idle());
  const std::ptrdiff_t recordingsBefore = recordings();
  const Held before = heldByThisProcess();
  for (int i = 0; i < 15; ++i) {
    startAndHear();
    client.stop();
  }
  EXPECT_TRUE(client.pumpUntil([&] { return recordings() == recordingsBefore; }))
      << recordings() << " recordings";
  EXPECT_TRUE(client.pumpUntil([&before] { return heldByThisProcess() == before; }));
}

TEST_P(Leak, StoppingBeforeTheStartIsDoneLeavesNothingBehind) {
  listenToMicrophone({96000.0, 1});
  const std::ptrdiff_t recordingsBefore = recordings();
  const Held before = heldByThisProcess();
  // More than the 64 streams that PipeWire allows a client, a few at a time: the last start of
  // each round waits behind all the others.
  for (int i = 0; i < 77; ++i) {
    client.stop();
    client.input->installTap(Client::bufferFrames, {96000.0, 1}, client.recording.tap());
    client.input->start([](bool) {});
    if (i % 7 == 6) {
      ASSERT_EQ(client.listen(), true);
    }
  }
  EXPECT_TRUE(client.hear(1, 1));
  EXPECT_TRUE(client.pumpUntil([&] { return recordings() == recordingsBefore; }))
      << recordings() << " recordings";
  EXPECT_TRUE(client.pumpUntil([&before] { return heldByThisProcess() == before; }));
}

TEST_P(Leak, AClientThatEndsLeavesNothingBehind) {
  listenToMicrophone({96000.0, 1});
  const auto oneClient = [] {
    Client other;
    ASSERT_EQ(other.ask(), true);
    ASSERT_EQ(other.listen(), true);
    ASSERT_TRUE(other.hear(1, 1));
  };
  oneClient();
  const Held before = heldByThisProcess();
  for (int i = 0; i < 5; ++i) oneClient();
  EXPECT_TRUE(client.pumpUntil([&before] { return heldByThisProcess() == before; }));
}

class OutputLeak : public OutputTest {
 protected:
  std::ptrdiff_t sounds() { return linesIn(server.pactl({"list", "short", "sink-inputs"})); }
  void expectAsBefore(const Held& before) {
    // A server that was kept too busy to answer has been given up, and is asked anew.
    const auto asBefore = [&] { return start() && heldByThisProcess() == before; };
    EXPECT_TRUE(client.pumpUntil(asBefore));
    EXPECT_TRUE(client.pumpUntil([this] { return sounds() == 0; })) << sounds() << " sounds";
  }
  /// A twentieth of a second, so that fifty of them do not take a minute.
  void pressShortly(int buffer) { press(buffer, std::vector<float>(2205, 0.1F)); }
};

TEST_P(OutputLeak, FiftyTonesPlayedOutLeaveNothingBehind) {
  startOutput();
  pressShortly(1);
  ASSERT_TRUE(waitForEnds(1, std::chrono::seconds(3)));
  const Held before = heldByThisProcess();
  for (int buffer = 2; buffer <= 51; ++buffer) {
    pressShortly(buffer);
    ASSERT_TRUE(waitForEnds(static_cast<std::size_t>(buffer), std::chrono::seconds(3)));
  }
  expectAsBefore(before);
  expectEnds(51, std::chrono::seconds(0));
}

TEST_P(OutputLeak, FiftyTonesCutOffWhileTheySoundLeaveNothingBehind) {
  startOutput();
  pressShortly(1);
  ASSERT_TRUE(waitForEnds(1, std::chrono::seconds(3)));
  const Held before = heldByThisProcess();
  for (int buffer = 2; buffer <= 51; ++buffer) {
    press(buffer, std::vector<float>(44100, 0.1F));
    ASSERT_TRUE(client.pumpUntil([this] { return serverPlays(); }));
  }
  expectAsBefore(before);
  expectEnds(51, std::chrono::seconds(1));
}

TEST_P(OutputLeak, PressingFasterThanTheServerAnswersLeavesNothingBehind) {
  startOutput();
  pressShortly(1);
  ASSERT_TRUE(waitForEnds(1, std::chrono::seconds(3)));
  const Held before = heldByThisProcess();
  // More than the 64 streams that PipeWire allows a client.
  for (int buffer = 2; buffer <= 101; ++buffer) pressShortly(buffer);
  EXPECT_TRUE(waitForEnds(101, std::chrono::seconds(10)));
  expectAsBefore(before);
  expectEnds(101, std::chrono::seconds(0));
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, Leak, eitherServer(), serverName);
INSTANTIATE_TEST_SUITE_P(OnEitherServer, OutputLeak, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
