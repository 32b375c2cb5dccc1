#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <tuple>

#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

using support::AudioServer;
using testing::HasSubstr;

using Device = std::tuple<AudioServer::Kind, std::uint32_t, std::uint32_t>;

class DeviceFormat : public testing::TestWithParam<Device> {
 protected:
  AudioServer::Kind kind = std::get<0>(GetParam());
  std::uint32_t rate = std::get<1>(GetParam());
  std::uint32_t channels = std::get<2>(GetParam());
  AudioFormat format{static_cast<double>(rate), channels};
  AudioServer server{kind};
  Client client;
};

/// Buffers of the wrong length or format, those that do not continue the one before, and those
/// that are not what was played, each as a line.
std::string faultsIn(const std::vector<RecordedBuffer>& buffers, const AudioFormat& format) {
  std::string faults;
  for (std::size_t i = 0; i < buffers.size(); ++i) {
    const RecordedBuffer& buffer = buffers[i];
    faults += buffer.faultAgainst(1);
    if (buffer.frames != Client::bufferFrames) faults += " length";
    if (buffer.sampleRate != format.sampleRate) faults += " rate";
    if (buffer.channels.size() != format.channelCount) faults += " channels";
    if (i > 0 && buffer.firstFrame() != frameAfter(buffers[i - 1].lastFrame())) faults += " gap";
  }
  return faults;
}

TEST_P(DeviceFormat, TheSoundOfTheDeviceArrivesUnchangedInWholeBuffers) {
  server.addMicrophone("mic", rate, channels);
  const auto file = server.home() / "sound.raw";
  coded_signal::write(file, 1, rate, channels, 4.0);
  const auto player = server.play("mic", file);
  ASSERT_EQ(client.ask(), true);
  ASSERT_EQ(client.input->inputFormat(), format);
  ASSERT_EQ(client.listen(), true);
  ASSERT_TRUE(client.hear(1, 4));

  EXPECT_THAT(server.pactl({"list", "source-outputs"}),
              HasSubstr("float32le " + std::to_string(channels) + "ch " + std::to_string(rate)));
  client.stop();
  auto buffers = client.recording.buffers();
  // The player may begin after the recording, within a buffer.
  const auto whole = std::find_if(buffers.begin(), buffers.end(), [](const RecordedBuffer& buffer) {
    return buffer.faultAgainst(1).empty();
  });
  buffers.erase(buffers.begin(), whole);
  EXPECT_EQ(faultsIn(buffers, format), "");
}

using Freshness = PulseTest;

TEST_P(Freshness, SoundArrivesWhileItIsMadeAndNotInHeaps) {
  using Clock = std::chrono::steady_clock;
  listenToMicrophone();
  client.stop();
  Clock::time_point last;
  Clock::duration longest{0};
  std::atomic<int> calls = 0;
  // The times belong to the recording's thread until the stop.
  client.input->installTap(512, client.input->inputFormat(), [&](const AudioBuffer&) {
    const auto now = Clock::now();
    if (calls++ > 0) longest = std::max(longest, now - last);
    last = now;
  });
  client.input->start([](bool) {});
  ASSERT_TRUE(client.pumpUntil([&calls] { return calls > 100; }));
  client.stop();
  // A fragment of 1024 frames lasts 21 ms and what no server was asked for is two seconds: in
  // between there is room for a machine that is busy with something else.
  EXPECT_LT(longest, std::chrono::milliseconds(250));
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, Freshness, eitherServer(), serverName);

std::string deviceName(const testing::TestParamInfo<Device>& device) {
  const auto& [kind, rate, channels] = device.param;
  return nameOf(kind) + "_" + std::to_string(rate) + "Hz_" + std::to_string(channels) + "ch";
}

INSTANTIATE_TEST_SUITE_P(
    EveryDevice, DeviceFormat,
    testing::Combine(testing::Values(AudioServer::Kind::pulseAudio, AudioServer::Kind::pipeWire),
                     testing::Values(44100U, 48000U, 96000U), testing::Values(1U, 2U, 8U)),
    deviceName);

}  // namespace
}  // namespace corvane
