#include "platform/pulse/tests/shortage.h"

#include <gtest/gtest.h>

#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

/// A program that wants a server while the system has no descriptors left, and later has some.
class ShortageTest : public PulseTest {
 protected:
  ShortageTest() { server.addMicrophone("mic", 48000, 2); }

  /// Asks during the shortage, which this ends.
  void expectTheServerIsFoundAfter(std::optional<Shortage>& shortage, Client& program) {
    int changes = 0;
    const auto watch = program.connection->watch([&changes] { ++changes; });
    EXPECT_EQ(program.ask(), true);
    EXPECT_EQ(program.connection->state(), PulseConnection::State::unknown);
    // Without being asked it has tried once more, in vain.
    EXPECT_TRUE(program.pumpUntil([&changes] { return changes > 1; }));
    EXPECT_EQ(program.connection->state(), PulseConnection::State::unknown);
    shortage.reset();
    EXPECT_TRUE(program.pumpUntil(
        [&] { return program.connection->state() == PulseConnection::State::connected; }));
    EXPECT_EQ(program.input->inputFormat(), (AudioFormat{48000.0, 2}));
  }
};

TEST_P(ShortageTest, WithoutDescriptorsForItsLoopTheProgramGoesOnTrying) {
  std::optional<Shortage> shortage(1);  // To wake its thread with.
  Client program;
  expectTheServerIsFoundAfter(shortage, program);
}

TEST_P(ShortageTest, WithoutADescriptorForTheConnectionTheProgramGoesOnTrying) {
  bool hasLoop = false;
  client.connection->async([&](PulseSession*) { client.mainQueue.async([&] { hasLoop = true; }); });
  ASSERT_TRUE(client.pumpUntil([&hasLoop] { return hasLoop; }));
  std::optional<Shortage> shortage(0);
  expectTheServerIsFoundAfter(shortage, client);
}

INSTANTIATE_TEST_SUITE_P(OnPulseAudio, ShortageTest,
                         testing::Values(support::AudioServer::Kind::pulseAudio), serverName);

}  // namespace
}  // namespace corvane
