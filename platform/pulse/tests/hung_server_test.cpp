#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

/// The server is held still, as by a driver that does not return, and so is the clock: whoever
/// waits for either never returns.
class HungServer : public PulseTest {
 protected:
  void SetUp() override {
    addSoundingMicrophone("mic", 1);
    ASSERT_EQ(client.ask(), true);
  }
  /// The server is given up after 3 s, and not before.
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

TEST_P(HungServer, ARequestIsGrantedInTimeAndTheNextOneAsksAnew) {
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
  // The next request is answered after the first start was, so that what is left then would stay.
  expectEverythingWorksOnceItIsBack();
  EXPECT_FALSE(outcome.has_value()) << "the start that was stopped has told its end";
}

TEST_P(HungServer, AStoppedStartThatIsNeverAnsweredIsNotRecordedForNobodyLater) {
  server.suspend();
  std::optional<bool> outcome;
  client.start(outcome);
  client.stop();
  // libpulse waits 30 s for an answer; then the connection, and with it the request, is dropped.
  client.advance(29900ms);
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::granted);
  client.advance(100ms);
  EXPECT_TRUE(client.pumpUntil(
      [this] { return client.permission->recordPermission() == RecordPermission::undetermined; }));
  expectEverythingWorksOnceItIsBack();
}

TEST_P(HungServer, StoppingAndStartingWhileItHangsHoldsNobody) {
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

TEST_P(HungServer, TheEndOfTheProgramWaitsForNobodyWhileConnectingOrStartingOrListening) {
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
