// SPDX-License-Identifier: MIT
#include "platform/pulse/tests/pulse_fixture.h"
#include "platform/pulse/tests/tone_recording.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

/// Each buffer's end is reported, whatever the server does. The clock is stopped: what is reported
/// without moving it did not wait for a timeout.
class OutputEnd : public PulseTest {
 protected:
  void startAndPlay() {
    startOutput();
    ASSERT_NO_FATAL_FAILURE(pressUntilTheServerPlays(1));
    EXPECT_TRUE(client.ends.told().empty());
  }
  bool startsInTime() {
    return client.pumpUntil([this] { return client.startOutput(); });
  }
  void pressShortly(int buffer) { client.press(buffer, std::vector<float>(4410, 0.1F)); }
  void expectAToneAsBefore(int buffer) {
    ASSERT_TRUE(startsInTime());
    EXPECT_TRUE(client.output->isRunning());
    pressShortly(buffer);
    client.expectEnds(buffer);
  }
  /// The end of the first buffer is reported after exactly `time`.
  void expectEndAfter(std::chrono::milliseconds time) {
    client.advance(time - 1ms);
    EXPECT_TRUE(client.ends.told().empty());
    client.advance(1ms);
    EXPECT_EQ(client.ends.told().size(), 1U);
  }
};

TEST_P(OutputEnd, IsReportedOnceForEachBuffer) {
  startOutput();
  client.press(1, {});
  EXPECT_TRUE(client.waitForEnds(1));
  pressShortly(2);
  EXPECT_TRUE(client.waitForEnds(2));
  EXPECT_TRUE(forgets("sink-inputs"));
  for (int buffer = 3; buffer <= 7; ++buffer) pressShortly(buffer);
  client.expectEnds(7);
}

TEST_P(OutputEnd, IsReportedWhenTheOutputIsRestartedOrDestroyed) {
  startAndPlay();
  EXPECT_TRUE(client.startOutput());
  EXPECT_TRUE(client.waitForEnds(1));
  EXPECT_TRUE(forgets("sink-inputs"));
  pressUntilTheServerPlays(2);
  client.prompt([this] { client.output.reset(); });
  EXPECT_TRUE(forgets("sink-inputs"));
  client.expectEnds(2);
}

TEST_P(OutputEnd, IsReportedWhenTheLoudspeakersAreUnplugged) {
  startAndPlay();
  server.unplug(loudspeakers);
  client.advance(23s);
  client.expectEnds(1);
}

TEST_P(OutputEnd, IsReportedWhenTheServerDiesAndALaterStartWorks) {
  startAndPlay();
  server.kill();
  EXPECT_TRUE(client.waitForEnds(1));
  EXPECT_TRUE(client.pumpUntil([this] { return !client.output->isRunning(); }));
  server.start();
  addLoudspeakers();
  expectAToneAsBefore(2);
}

TEST_P(OutputEnd, IsReportedWhenTheServerDiedBeforeThePress) {
  startOutput();
  server.kill();
  // The main thread has not run since, so it does not know yet.
  pressShortly(1);
  client.expectEnds(1);
}

TEST_P(OutputEnd, OfAPressOnAHungServerIsReportedAfterThreeSeconds) {
  startOutput();
  server.suspend();
  pressShortly(1);
  expectEndAfter(3000ms);
  server.resume();
  expectAToneAsBefore(2);
}

/// The timeout is the duration of the sound plus three seconds.
TEST_P(OutputEnd, IsReportedInTimeWhenTheServerHangsWhilePlaying) {
  startAndPlay();
  const MonitorRecording recording(server, loudspeakers, 44100);
  ASSERT_TRUE(client.pumpUntil([&] { return recording.soundsSince(0); }));
  server.suspend();
  expectEndAfter(23000ms);
  server.resume();
  // Late answers of the server about the first sound are ignored.
  EXPECT_TRUE(forgets("sink-inputs"));
  expectAToneAsBefore(2);
}

TEST_P(OutputEnd, OfAReplacedToneOnAHungServerIsReportedAtOnce) {
  startAndPlay();
  server.suspend();
  pressShortly(2);
  EXPECT_TRUE(client.waitForEnds(1));
  pressShortly(3);
  EXPECT_TRUE(client.waitForEnds(2));
  server.resume();
  client.expectEnds(3);
}

TEST_P(OutputEnd, IsReportedWhenTheProgramEndsOnAHungServer) {
  startAndPlay();
  server.suspend();
  pressShortly(2);
  client.end();
  client.expectEnds(2);
  server.resume();
  EXPECT_TRUE(forgets("sink-inputs"));
}

class OutputStart : public OutputEnd {};

TEST_P(OutputStart, FailsWithoutAServerAndWorksOnceThereIsOne) {
  server.kill();
  ASSERT_EQ(client.ask(), true);
  EXPECT_FALSE(client.startOutput());
  EXPECT_FALSE(client.output->isRunning());
  server.start();
  addLoudspeakers();
  ASSERT_EQ(client.ask(), true);
  EXPECT_FALSE(client.output->isRunning()) << "it has not been started";
  expectAToneAsBefore(1);
}

TEST_P(OutputStart, DoesNotWaitForAHungServer) {
  addLoudspeakers();
  server.suspend();
  EXPECT_FALSE(client.startOutput());
  EXPECT_FALSE(client.startOutput());
  EXPECT_FALSE(client.output->isRunning());
  server.resume();
  expectAToneAsBefore(1);
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, OutputEnd, eitherServer(), serverName);
INSTANTIATE_TEST_SUITE_P(OnEitherServer, OutputStart, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
