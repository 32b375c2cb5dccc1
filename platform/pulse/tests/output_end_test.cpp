#include <gtest/gtest.h>

#include "engine/tone_buffer.h"
#include "platform/pulse/tests/output_fixture.h"

namespace corvane {
namespace {

using std::chrono::seconds;

/// A server has 3 s to answer; one more for the machine.
constexpr seconds patience{4};
/// The same for one that has to play the tone first.
constexpr seconds patienceWithTone{5};

/// When a buffer's end is told, whatever the server does. `Client` watches that nothing holds the
/// main thread meanwhile.
class OutputEnd : public OutputTest {
 protected:
  void pressTone(int buffer) { press(buffer, toneBuffer(110.0, toneSampleRate)); }
  void pressUntilTheServerPlays(int buffer) {
    pressTone(buffer);
    ASSERT_TRUE(client.pumpUntil([this] { return serverPlays(); }));
  }
  void expectAToneAsBefore(int buffer) {
    ASSERT_TRUE(startsInTime());
    pressUntilTheServerPlays(buffer);
    expectEnds(buffer, seconds(3));
  }
};

TEST_P(OutputEnd, OfATonePlayedOutIsToldOnce) {
  startOutput();
  const auto pressed = std::chrono::steady_clock::now();
  pressTone(1);
  ASSERT_TRUE(waitForEnds(1, seconds(3)));
  EXPECT_GE(std::chrono::steady_clock::now() - pressed, std::chrono::milliseconds(1050));
  EXPECT_TRUE(client.pumpUntil([this] { return !serverPlays(); }));
  expectEnds(1, seconds(0));
}

TEST_P(OutputEnd, OfABufferWithoutSamplesIsTold) {
  startOutput();
  press(1, {});
  EXPECT_TRUE(waitForEnds(1, seconds(1)));
  expectAToneAsBefore(2);
}

TEST_P(OutputEnd, OfATonePressedAndCutOffBeforeTheServerKnowsItIsTold) {
  startOutput();
  for (int buffer = 1; buffer <= 5; ++buffer) pressTone(buffer);
  expectEnds(5, seconds(3));
}

TEST_P(OutputEnd, OfASoundLongerThanTheServersTimeToAnswerComesWhenItIsOver) {
  startOutput();
  const auto pressed = std::chrono::steady_clock::now();
  press(1, std::vector<float>(4 * 44100, 0.1F));
  EXPECT_TRUE(waitForEnds(1, seconds(6)));
  EXPECT_GE(std::chrono::steady_clock::now() - pressed, seconds(4));
  expectEnds(1, seconds(0));
}

TEST_P(OutputEnd, IsToldWhenTheOutputIsStartedAfresh) {
  startOutput();
  pressUntilTheServerPlays(1);
  EXPECT_TRUE(start());
  EXPECT_TRUE(waitForEnds(1, seconds(1)));
  expectAToneAsBefore(2);
}

TEST_P(OutputEnd, IsToldWhenTheOutputGoes) {
  startOutput();
  pressUntilTheServerPlays(1);
  client.prompt([this] { output.reset(); });
  EXPECT_TRUE(client.pumpUntil([this] { return !serverPlays(); }));
  expectEnds(1, seconds(1));
}

TEST_P(OutputEnd, IsToldWhenTheLoudspeakersAreUnplugged) {
  startOutput();
  pressUntilTheServerPlays(1);
  server.unplug(loudspeakers);
  expectEnds(1, patienceWithTone);
}

TEST_P(OutputEnd, IsToldWhenTheServerDiesAndALaterStartWorks) {
  startOutput();
  pressUntilTheServerPlays(1);
  server.kill();
  EXPECT_TRUE(waitForEnds(1, seconds(1)));
  EXPECT_TRUE(client.pumpUntil([this] { return !output->isRunning(); }));
  server.start();
  addLoudspeakers();
  expectAToneAsBefore(2);
}

TEST_P(OutputEnd, IsToldWhenTheServerHasDiedBeforeThePress) {
  startOutput();
  server.kill();
  // The main thread has not run since, so that nobody has told it.
  pressTone(1);
  expectEnds(1, seconds(1));
}

TEST_P(OutputEnd, OfAPressOnAHungServerIsToldInTimeAndALaterStartWorks) {
  startOutput();
  server.suspend();
  pressTone(1);
  EXPECT_TRUE(waitForEnds(1, patience));
  server.resume();
  expectAToneAsBefore(2);
}

TEST_P(OutputEnd, IsToldInTimeWhenTheServerHangsWhilePlayingAndALaterPressWorks) {
  startOutput();
  pressUntilTheServerPlays(1);
  server.suspend();
  EXPECT_TRUE(waitForEnds(1, patienceWithTone));
  server.resume();
  // What the server still answers about the first tone finds nobody, and does no harm.
  EXPECT_TRUE(client.pumpUntil([this] { return !serverPlays(); }));
  expectAToneAsBefore(2);
}

TEST_P(OutputEnd, OfATonePressedAgainOnAHungServerIsToldAtOnce) {
  startOutput();
  pressUntilTheServerPlays(1);
  server.suspend();
  pressTone(2);
  EXPECT_TRUE(waitForEnds(1, seconds(1)));
  pressTone(3);
  EXPECT_TRUE(waitForEnds(2, seconds(1)));
  server.resume();
  expectEnds(3, seconds(3));
}

TEST_P(OutputEnd, IsToldWhenTheProgramEndsOnAHungServer) {
  startOutput();
  pressUntilTheServerPlays(1);
  server.suspend();
  pressTone(2);
  endProgram();
  expectEnds(2, seconds(0));
  server.resume();
  EXPECT_TRUE(client.pumpUntil([this] { return !serverPlays(); }));
}

class OutputStart : public OutputEnd {};

TEST_P(OutputStart, NothingRunsBeforeIt) {
  addLoudspeakers();
  EXPECT_FALSE(output->isRunning());
  ASSERT_EQ(client.ask(), true);
  EXPECT_FALSE(output->isRunning());
  EXPECT_TRUE(start());
  EXPECT_TRUE(output->isRunning());
}

TEST_P(OutputStart, FailsWithoutAServerAndWorksOnceThereIsOne) {
  server.kill();
  ASSERT_EQ(client.ask(), true);
  EXPECT_FALSE(start());
  EXPECT_FALSE(output->isRunning());
  server.start();
  addLoudspeakers();
  expectAToneAsBefore(1);
}

TEST_P(OutputStart, WaitsForNoServerThatHangs) {
  addLoudspeakers();
  server.suspend();
  EXPECT_FALSE(start());
  EXPECT_FALSE(start());
  server.resume();
  expectAToneAsBefore(1);
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, OutputEnd, eitherServer(), serverName);
INSTANTIATE_TEST_SUITE_P(OnEitherServer, OutputStart, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
