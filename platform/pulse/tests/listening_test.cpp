#include <gmock/gmock.h>

#include <atomic>
#include <tuple>

#include "platform/pulse/tests/joints.h"
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
/// that are not what was played, each as a line. A server that is kept from its work for a moment
/// gives silence meanwhile, which is no fault as long as the sound goes on where it should; nothing
/// else makes a gap.
std::string faultsIn(const std::vector<RecordedBuffer>& buffers, const AudioFormat& format) {
  std::string faults;
  Joints joints;
  bool gapExpected = true;
  for (const RecordedBuffer& buffer : buffers) {
    const bool silent = buffer.holdsSilence();
    if (!silent) faults += buffer.faultAgainst(1);
    faults += joints.in(buffer);
    if (buffer.afterGap && !gapExpected && !silent) faults += " gap";
    gapExpected = silent;
    if (buffer.frames != Client::bufferFrames) faults += " length";
    if (buffer.sampleRate != format.sampleRate) faults += " rate";
    if (buffer.channels.size() != format.channelCount) faults += " channels";
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
  EXPECT_EQ(faultsIn(client.recording.buffers(), format), "");
}

using Freshness = PulseTest;

TEST_P(Freshness, SoundArrivesWhileItIsMadeAndNotInHeaps) {
  using Clock = std::chrono::steady_clock;
  listenToMicrophone({48000.0, 2}, AudioServer::Pace::lazy);
  client.stop();
  Clock::time_point last;
  std::atomic<int> calls = 0;
  std::atomic<int> arrivals = 0;
  // Calls for what arrives together follow each other within microseconds.
  client.input->installTap(512, client.input->inputFormat(), [&](const AudioBuffer&) {
    const auto now = Clock::now();
    if (now - last > std::chrono::milliseconds(5)) ++arrivals;
    last = now;
    ++calls;
  });
  client.input->start([](bool) {});
  ASSERT_TRUE(client.pumpUntil([&calls] { return calls >= 100; }));
  client.stop();
  // 100 buffers are 1.07 s, or 25 fragments of 2048 frames; on a busy machine some meet. What
  // comes unasked are the 171 ms of PipeWire, 7 arrivals, and the 2 s of PulseAudio, one or two.
  EXPECT_GE(arrivals, 15);
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
