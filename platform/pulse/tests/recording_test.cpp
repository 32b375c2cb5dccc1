// SPDX-License-Identifier: MIT
#include <algorithm>
#include <atomic>
#include <cmath>
#include <fstream>
#include <iterator>
#include <numbers>
#include <set>

#include "pitch/pitch_capture.h"
#include "platform/pulse/tests/coded_signal.h"
#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

using testing::HasSubstr;

class Recorded : public PulseTest {
 protected:
  /// Of all buffers since the last call.
  std::string faults(const AudioFormat& format) {
    std::string found;
    Joints joints;
    bool gapExpected = true;
    for (const RecordedBuffer& buffer : client.recording.take()) {
      found += joints.in(buffer);
      // Silence precedes the player.
      if (!buffer.holdsSilence()) found += buffer.faultAgainst(1);
      if (buffer.afterGap != std::exchange(gapExpected, false)) found += " gap";
      if (buffer.frames != Client::bufferFrames) found += " length";
      if (buffer.sampleRate != format.sampleRate) found += " rate";
      if (buffer.channels.size() != format.channelCount) found += " channels";
    }
    return found;
  }

  void expectUnchangedSound(const AudioFormat& format) {
    SCOPED_TRACE(testing::PrintToString(format.sampleRate) + " Hz");
    const std::string name = "mic" + std::to_string(++microphones);
    addSoundingMicrophone(name, 1, format);
    ASSERT_EQ(client.ask(), true);
    ASSERT_TRUE(client.finds(format));
    expectNoFault([&] {
      EXPECT_EQ(client.listen(), true);
      EXPECT_TRUE(client.hear(1, 4));
      EXPECT_THAT(server.pactl({"list", "source-outputs"}),
                  HasSubstr("float32le " + std::to_string(format.channelCount) + "ch " +
                            std::to_string(static_cast<int>(format.sampleRate))));
      client.stop();
      return faults(format);
    });
    players.clear();
  }

  int microphones = 0;
};

/// All formats in turn on one server.
TEST_P(Recorded, SoundOfEveryDeviceArrivesUnchangedInWholeBuffers) {
  for (const double rate : {44100.0, 48000.0, 96000.0}) {
    for (const std::uint32_t channels : {1U, 2U, 8U}) {
      ASSERT_NO_FATAL_FAILURE(expectUnchangedSound({rate, channels}));
    }
  }
}

TEST_P(Recorded, ANoteOfANarrowBandHeadsetIsDetected) {
  constexpr std::uint32_t own = 8000;
  addMicrophone("headset", {own, 1});
  std::vector<float> string(30 * own);
  for (std::size_t i = 0; i < string.size(); ++i) {
    string[i] = 0.5F * std::sin(static_cast<float>(2.0 * std::numbers::pi * 110.0 / own *
                                                   static_cast<double>(i % own)));
  }
  const auto file = server.home() / "string.raw";
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(string.data()),
             static_cast<std::streamsize>(string.size() * sizeof(float)));
  const auto player = server.play("headset", file, own, 1);
  ASSERT_EQ(client.ask(), true);
  ASSERT_TRUE(client.finds({2.0 * own, 1}));
  ASSERT_EQ(client.listen(), true);
  EXPECT_TRUE(client.pumpUntil([this] {
    const auto buffers = client.recording.buffers();
    if (buffers.size() < 2) return false;
    std::vector<float> block = buffers[buffers.size() - 2].channels[0];
    std::ranges::copy(buffers.back().channels[0], std::back_inserter(block));
    const auto reading = PitchCapture::detectMusicalPitch(block, buffers.back().sampleRate);
    return reading && std::abs(reading->frequency - 110.0) < 0.1;
  }));
}

/// By default PulseAudio collects two seconds before it delivers, and PipeWire 171 ms.
TEST_P(Recorded, SoundArrivesWithLowLatency) {
  server.addMicrophone("mic", 48000, 2, support::AudioServer::Pace::lazy);
  ASSERT_EQ(client.ask(), true);
  ASSERT_EQ(client.listen(), true);
  EXPECT_LE(latencyOf("sources", "mic", "source-outputs"), 2048.0 / 48000.0);
}

TEST_P(Recorded, MixersShowNameIconAndRole) {
  addMicrophone();
  server.pactl({"set-source-volume", "mic", "37%"});
  const std::string volume = server.pactl({"get-source-volume", "mic"});
  ASSERT_THAT(volume, HasSubstr(" 37%"));
  ASSERT_EQ(client.ask(), true);
  ASSERT_EQ(client.listen(), true);
  for (const char* list : {"clients", "source-outputs"}) {
    const std::string shown = server.pactl({"list", list});
    EXPECT_THAT(shown, HasSubstr("application.name = \"Corvane\"")) << list;
    EXPECT_THAT(shown, HasSubstr("application.id = \"org.corvane.Corvane\"")) << list;
    EXPECT_THAT(shown, HasSubstr("application.icon_name = \"org.corvane.Corvane\"")) << list;
    EXPECT_THAT(shown, HasSubstr("application.version = \"" CORVANE_VERSION "\"")) << list;
  }
  const std::string shown = server.pactl({"list", "source-outputs"});
  EXPECT_THAT(shown, HasSubstr("media.name = \"Tuning\""));
  EXPECT_THAT(shown, HasSubstr("media.role = \"production\""));
  EXPECT_THAT(shown, HasSubstr("filter.suppress = \"echo-cancel\""));
  // The volume belongs to the user.
  EXPECT_EQ(server.pactl({"get-source-volume", "mic"}), volume);
}

using Restart = PulseTest;

TEST_P(Restart, SoundFromBeforeAndAfterAStopIsNeverJoined) {
  listenToMicrophone();
  addSoundingMicrophone("other", 2);
  for (std::uint32_t room = 2; room < 8; ++room) {
    const std::uint32_t here = room % 2 + 1;
    client.stop();
    setDefaultSource(here == 1 ? "mic" : "other");
    client.recording.take();
    // Not a multiple of the servers' fragments, so that each stop interrupts a buffer.
    client.input->installTap(3000, stereo, client.recording.tap());
    client.input->start([](bool) {});
    ASSERT_TRUE(client.pumpUntil([this] { return client.recording.size() > 2; }));
    std::set<std::uint32_t> rooms;
    for (const RecordedBuffer& buffer : client.recording.take()) rooms.merge(buffer.rooms());
    EXPECT_EQ(rooms, std::set{here});
  }
}

TEST_P(Restart, AfterAStopTheTapIsNotCalledAndIsDestroyed) {
  listenToMicrophone();
  client.stop();
  std::atomic<bool> stopped = false;
  std::atomic<int> calls = 0;
  std::atomic<int> late = 0;
  for (int i = 0; i < 15; ++i) {
    const auto owned = std::make_shared<int>();
    stopped = false;
    calls = 0;
    // Buffers of one frame, so that the tap is running at nearly any time when stop is called.
    client.input->installTap(1, client.input->inputFormat(), [&, owned](const AudioBuffer&) {
      late += stopped ? 1 : 0;
      ++calls;
    });
    client.input->start([](bool) {});
    ASSERT_TRUE(client.pumpUntil([&calls, i] { return calls > 300 * i; }));
    client.input->stop();
    stopped = true;
    // The test's and the installed tap's; the recording has released its copy.
    EXPECT_EQ(owned.use_count(), 2);
  }
  EXPECT_EQ(late, 0);
}

TEST_P(Restart, AStoppedStartReportsNoOutcome) {
  listenToMicrophone();
  client.stop();
  std::optional<bool> first;
  std::optional<bool> second;
  client.recording.take();
  client.start(first);
  // Sound proves that the start has succeeded, and the main thread does not know yet.
  support::waitFor("sound", [this] { return client.recording.size() > 0; });
  client.stop();
  server.suspend();
  client.start(second);
  client.mainQueue.pump();
  EXPECT_FALSE(first.has_value());
  EXPECT_FALSE(second.has_value()) << "the suspended server cannot know the second start";
  server.resume();
  EXPECT_TRUE(client.pumpUntil([&second] { return second.has_value(); }));
  EXPECT_FALSE(first.has_value());
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, Recorded, eitherServer(), serverName);
INSTANTIATE_TEST_SUITE_P(OnEitherServer, Restart, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
