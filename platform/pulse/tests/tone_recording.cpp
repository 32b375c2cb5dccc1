// SPDX-License-Identifier: MIT
#include "platform/pulse/tests/tone_recording.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <ranges>
#include <system_error>

namespace corvane {
namespace {

bool sounds(float sample) {
  return sample != 0.0F;
}

}  // namespace

MonitorRecording::MonitorRecording(const support::AudioServer& server,
                                   const std::string& loudspeakers, std::uint32_t rate,
                                   std::uint32_t channelCount)
    : file(server.home() / (loudspeakers + ".recorded")),
      channels(channelCount),
      recorder({"parec", "--raw", "--format=float32ne", "--channels=" + std::to_string(channels),
                "--rate=" + std::to_string(rate), "--latency-msec=10",
                "--device=" + loudspeakers + ".monitor"},
               file) {
  // The first data may predate the request for low latency.
  support::waitFor("the monitor to be recorded", [this, rate] { return size() > rate / 4; });
}

std::size_t MonitorRecording::size() const {
  std::error_code notThereYet;
  const auto bytes = std::filesystem::file_size(file, notThereYet);
  return notThereYet ? 0 : bytes / sizeof(float) / channels;
}

std::vector<float> MonitorRecording::samples() const {
  std::vector<float> interleaved(size() * channels);
  std::ifstream(file, std::ios::binary)
      .read(reinterpret_cast<char*>(interleaved.data()),
            static_cast<std::streamsize>(interleaved.size() * sizeof(float)));
  std::vector<float> one;
  for (std::size_t i = 0; i < interleaved.size(); i += channels) {
    one.push_back(interleaved[i]);
  }
  return one;
}

bool MonitorRecording::soundsSince(std::size_t frame, float level) const {
  const auto all = samples();
  return std::ranges::any_of(all | std::views::drop(frame),
                             [level](float sample) { return std::abs(sample) > level; });
}

std::size_t MonitorRecording::silence() const {
  const auto all = samples();
  return all.size() - endOfSound(all);
}

std::size_t firstSound(std::span<const float> samples) {
  const auto found = std::find_if(samples.begin(), samples.end(), sounds);
  return static_cast<std::size_t>(found - samples.begin());
}

std::size_t endOfSound(std::span<const float> samples) {
  const auto last = std::find_if(samples.rbegin(), samples.rend(), sounds);
  return static_cast<std::size_t>(samples.rend() - last);
}

}  // namespace corvane
