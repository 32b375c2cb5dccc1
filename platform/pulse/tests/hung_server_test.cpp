#include <gmock/gmock.h>

#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

using std::chrono::seconds;
using testing::HasSubstr;
using testing::Not;

/// The server is held still, as by a driver that does not return. `Client` watches that nothing
/// holds the main thread meanwhile.
class HungServer : public PulseTest {
 protected:
  /// The client waits 3 s for an answer; one more for the machine.
  static constexpr seconds bound{4};

  void startWithoutWaiting(std::optional<bool>& outcome) {
    client.prompt([&] {
      client.input->installTap(Client::bufferFrames, client.input->inputFormat(),
                               client.recording.tap());
      client.input->start([&outcome](bool ok) { outcome = ok; });
    });
  }

  bool serverRecords() {
    return server.pactl({"list", "source-outputs"}).find("Corvane") != std::string::npos;
  }
};

TEST_P(HungServer, ARequestIsGrantedInTimeAndTheNextOneAsksAnew) {
  server.addMicrophone("mic", 48000, 2);
  server.suspend();
  EXPECT_EQ(client.ask(bound), true);
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::undetermined);
  EXPECT_EQ(client.input->inputFormat(), AudioFormat{});
  EXPECT_EQ(client.input->outputFormat(), AudioFormat{});

  server.resume();
  EXPECT_EQ(client.ask(bound), true);
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::granted);
  EXPECT_EQ(client.input->inputFormat(), (AudioFormat{48000.0, 2}));
}

TEST_P(HungServer, AStartFailsInTimeAndWorksOnceTheServerIsBack) {
  server.addMicrophone("mic", 48000, 2);
  play("mic", 1, {48000.0, 2});
  ASSERT_EQ(client.ask(), true);
  server.suspend();
  std::optional<bool> outcome;
  startWithoutWaiting(outcome);
  EXPECT_TRUE(client.input->isRunning());
  EXPECT_TRUE(client.pumpUntil([&outcome] { return outcome.has_value(); }, bound));
  EXPECT_EQ(outcome, false);
  EXPECT_FALSE(client.input->isRunning());
  EXPECT_EQ(client.permission->recordPermission(), RecordPermission::undetermined);

  server.resume();
  EXPECT_EQ(client.ask(bound), true);
  EXPECT_EQ(client.listen(), true);
  EXPECT_TRUE(client.hear(1, 1));
}

TEST_P(HungServer, AStopDuringTheStartLeavesNoRecordingBehind) {
  server.addMicrophone("mic", 48000, 2);
  ASSERT_EQ(client.ask(), true);
  server.suspend();
  std::optional<bool> outcome;
  startWithoutWaiting(outcome);
  client.stop();
  server.resume();

  // The next request is answered after the first start was, so what is left now would stay.
  ASSERT_EQ(client.listen(), true);
  client.stop();
  EXPECT_TRUE(client.pumpUntil([this] { return !serverRecords(); }));
  EXPECT_FALSE(outcome.has_value()) << "the start that was stopped has told its end";
}

TEST_P(HungServer, StoppingAndStartingWhileItHangsHoldsNobody) {
  listenToMicrophone();
  server.suspend();
  client.stop();
  std::optional<bool> outcome;
  startWithoutWaiting(outcome);
  client.stop();
  startWithoutWaiting(outcome);
  server.resume();
  EXPECT_TRUE(client.pumpUntil([&outcome] { return outcome.has_value(); }));
  EXPECT_EQ(outcome, true);
  EXPECT_TRUE(client.hear(1, 1));
}

TEST_P(HungServer, TheEndOfTheProgramWaitsForNobodyWhileListening) {
  listenToMicrophone();
  server.suspend();
  client.prompt([this] {
    client.input.reset();
    client.permission.reset();
    client.connection.reset();
  });
  server.resume();
  EXPECT_TRUE(client.pumpUntil([this] { return !serverRecords(); }));
}

TEST_P(HungServer, TheEndOfTheProgramWaitsForNobodyWhileConnectingOrStarting) {
  server.addMicrophone("mic", 48000, 2);
  ASSERT_EQ(client.ask(), true);
  server.suspend();
  Client connecting;
  bool answered = false;
  connecting.prompt([&] {
    connecting.permission->requestRecordPermission([&answered](bool) { answered = true; });
  });
  std::optional<bool> outcome;
  startWithoutWaiting(outcome);
  for (Client* each : {&connecting, &client}) {
    each->prompt([each] {
      each->input.reset();
      each->permission.reset();
      each->connection.reset();
    });
  }
  server.resume();
  EXPECT_TRUE(client.pumpUntil([this] { return !serverRecords(); }));
  EXPECT_FALSE(answered);
  EXPECT_FALSE(outcome.has_value());
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, HungServer, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
