// SPDX-License-Identifier: MIT
#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

/// The server is suspended, as by a driver that does not return, and the clock is stopped: a call
/// that waited for either would never return.
class HungServer : public PulseTest {
 protected:
  void SetUp() override {
    addSoundingMicrophone("mic", 1);
    ASSERT_EQ(client.ask(), true);
  }
  /// The connection times out after exactly 3 s.
  void expectAfterThreeSeconds(const std::function<bool()>& condition) {
    client.advance(2999ms);
    EXPECT_FALSE(condition());
    client.advance(1ms);
    EXPECT_TRUE(condition());
    EXPECT_EQ(client.permission->recordPermission(), RecordPermission::undetermined);
    EXPECT_EQ(client.input->inputFormat(), AudioFormat{});
    EXPECT_EQ(client.input->outputFormat(), AudioFormat{});
  }
  void expectEverythingWorksOnceItIsBack() {
    server.resume();
    EXPECT_EQ(client.ask(), true);
    EXPECT_EQ(client.permission->recordPermission(), RecordPermission::granted);
    EXPECT_EQ(client.input->inputFormat(), stereo);
    EXPECT_EQ(client.listen(), true);
    EXPECT_TRUE(client.hear(1, 1));
    client.stop();
    EXPECT_TRUE(forgets("source-outputs"));
  }
};

TEST_P(HungServer, ARequestIsGrantedInTimeAndTheNextOneAsksAgain) {
  client.end();
  client.begin();
  server.suspend();
  std::optional<bool> outcome;
  client.permission->requestRecordPermission([&outcome](bool ok) { outcome = ok; });
  expectAfterThreeSeconds([&outcome] { return outcome == true; });
  expectEverythingWorksOnceItIsBack();
}

TEST_P(HungServer, AStartFailsInTimeAndWorksOnceTheServerIsBack) {
  server.suspend();
  std::optional<bool> outcome;
  client.start(outcome);
  EXPECT_TRUE(client.input->isRunning());
  expectAfterThreeSeconds([&outcome] { return outcome == false; });
  EXPECT_FALSE(client.input->isRunning());
  expectEverythingWorksOnceItIsBack();
}

TEST_P(HungServer, AStopDuringTheStartLeavesNoRecordingBehind) {
  server.suspend();
  std::optional<bool> outcome;
  client.start(outcome);
  client.stop();
  EXPECT_FALSE(client.input->isRunning());
  client.stop();
  // The server answers the next request after the stopped start, so a leftover would be visible.
  expectEverythingWorksOnceItIsBack();
  EXPECT_FALSE(outcome.has_value()) << "the stopped start has reported an outcome";
}

TEST_P(HungServer, AStoppedStartIsDroppedAfterThirtySeconds) {
  server.suspend();
  std::optional<bool> outcome;
  client.start(outcome);
  client.stop();
  // After 30 s libpulse gives up; then the connection is closed, and with it the request.
  client.advance(29900ms);
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::granted);
  client.advance(100ms);
  EXPECT_TRUE(client.pumpUntil(
      [this] { return client.permission->recordPermission() == RecordPermission::undetermined; }));
  expectEverythingWorksOnceItIsBack();
}

TEST_P(HungServer, StoppingAndStartingDoesNotBlock) {
  ASSERT_EQ(client.listen(), true);
  server.suspend();
  client.stop();
  std::optional<bool> outcome;
  client.start(outcome);
  client.stop();
  client.start(outcome);
  server.resume();
  EXPECT_TRUE(client.pumpUntil([&outcome] { return outcome.has_value(); }));
  EXPECT_EQ(outcome, true);
  EXPECT_TRUE(client.hear(1, 1));
}

TEST_P(HungServer, TheEndOfTheProgramDoesNotWait) {
  Client listening;
  ASSERT_EQ(listening.ask(), true);
  ASSERT_EQ(listening.listen(), true);
  server.suspend();
  Client connecting;
  std::optional<bool> answer;
  connecting.prompt(
      [&] { connecting.permission->requestRecordPermission([&answer](bool ok) { answer = ok; }); });
  std::optional<bool> outcome;
  client.start(outcome);
  listening.end();
  connecting.end();
  client.end();
  server.resume();
  EXPECT_TRUE(forgets("source-outputs"));
  client.mainQueue.pump();
  connecting.mainQueue.pump();
  EXPECT_FALSE(answer.has_value());
  EXPECT_FALSE(outcome.has_value());
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, HungServer, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
