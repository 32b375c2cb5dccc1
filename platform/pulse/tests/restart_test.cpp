#include <gtest/gtest.h>

#include <atomic>
#include <set>

#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

using Restart = PulseTest;

TEST_P(Restart, SoundFromBeforeAndAfterAStopIsNeverJoined) {
  listenToMicrophone();
  server.addMicrophone("other", 48000, 2);
  play("other", 2, {48000.0, 2});
  for (std::uint32_t room = 2; room < 10; ++room) {
    const std::uint32_t here = room % 2 + 1;
    client.stop();
    server.setDefaultSource(here == 1 ? "mic" : "other");
    client.recording.clear();
    // No multiple of the servers' fragments, so that a stop always finds a part of a buffer.
    client.input->installTap(3000, {48000.0, 2}, client.recording.tap());
    client.input->start([](bool) {});
    ASSERT_TRUE(client.pumpUntil([this] { return client.recording.size() > 2; }));
    for (const RecordedBuffer& buffer : client.recording.buffers()) {
      EXPECT_EQ(buffer.rooms(), std::set{here});
    }
  }
}

TEST_P(Restart, AfterAStopTheTapIsNotCalledAndIsGone) {
  listenToMicrophone();
  client.stop();
  std::atomic<bool> stopped = false;
  std::atomic<int> calls = 0;
  std::atomic<int> late = 0;
  for (int i = 0; i < 40; ++i) {
    const auto owned = std::make_shared<int>();
    stopped = false;
    calls = 0;
    // Buffers of one frame, so that the tap runs nearly all the time and stop meets it running.
    client.input->installTap(1, client.input->inputFormat(), [&, owned](const AudioBuffer&) {
      late += stopped ? 1 : 0;
      ++calls;
    });
    client.input->start([](bool) {});
    ASSERT_TRUE(client.pumpUntil([&calls, i] { return calls > 100 * i; }));
    client.input->stop();
    stopped = true;
    // The test's own and the installed tap's; the recording has let go of its copy.
    EXPECT_EQ(owned.use_count(), 2);
  }
  EXPECT_EQ(late, 0);
}

TEST_P(Restart, AStartThatIsStoppedNeverTellsItsOutcomeNorTheNextOnesInItsPlace) {
  listenToMicrophone();
  client.stop();
  bool firstTold = false;
  bool secondTold = false;
  client.recording.clear();
  client.input->start([&firstTold](bool) { firstTold = true; });
  // Sound comes only once the start has succeeded, and the main thread has not been told yet.
  support::waitFor("sound", [this] { return client.recording.size() > 0; });
  client.stop();
  server.suspend();
  client.input->start([&secondTold](bool) { secondTold = true; });

  bool all = false;
  client.mainQueue.async([&all] { all = true; });
  EXPECT_TRUE(client.pumpUntil([&all] { return all; }));
  EXPECT_FALSE(firstTold);
  EXPECT_FALSE(secondTold) << "the server has not even heard of the second start";
  server.resume();
  EXPECT_TRUE(client.pumpUntil([&secondTold] { return secondTold; }));
  EXPECT_FALSE(firstTold);
}

TEST_P(Restart, TheInputRunsFromTheStartUntilTheStop) {
  server.addMicrophone("mic", 48000, 2);
  ASSERT_EQ(client.ask(), true);
  EXPECT_FALSE(client.input->isRunning());
  client.input->installTap(Client::bufferFrames, {48000.0, 2}, client.recording.tap());
  client.input->start([](bool) {});
  EXPECT_TRUE(client.input->isRunning());
  client.stop();
  EXPECT_FALSE(client.input->isRunning());
  client.stop();
  EXPECT_FALSE(client.input->isRunning());
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, Restart, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
