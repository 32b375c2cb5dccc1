#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

struct Held {
  std::ptrdiff_t descriptors;
  std::ptrdiff_t threads;

  bool operator==(const Held&) const = default;
};

std::ptrdiff_t entriesOf(const char* directory) {
  using Iterator = std::filesystem::directory_iterator;
  return std::distance(Iterator(directory), Iterator());
}

Held heldByThisProcess() {
  return {entriesOf("/proc/self/fd"), entriesOf("/proc/self/task")};
}

std::ptrdiff_t linesIn(const std::string& text) {
  return std::count(text.begin(), text.end(), '\n');
}

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

INSTANTIATE_TEST_SUITE_P(OnEitherServer, Leak, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
