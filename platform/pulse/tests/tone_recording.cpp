#include "platform/pulse/tests/tone_recording.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <fstream>
#include <numbers>
#include <system_error>

namespace corvane {
namespace {

using std::numbers::pi;

bool sounds(float sample) {
  return sample != 0.0F;
}

/// The spectrum at `hertz` through a Hann window, which lets next to nothing of the mirror image
/// at -hertz in; the phase is that of the first sample.
std::complex<double> spectrumAt(double hertz, std::span<const float> sound, double rate) {
  std::complex<double> sum = 0.0;
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const auto n = static_cast<double>(i);
    const double window = 1.0 - std::cos(2.0 * pi * n / static_cast<double>(sound.size()));
    sum += std::polar(window * static_cast<double>(sound[i]), -2.0 * pi * hertz * n / rate);
  }
  return sum;
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
  // What a server hands out first may be from before it had heard of the wish for a low latency.
  support::waitFor("the monitor to be recorded", [this, rate] { return size() > rate / 4; });
}

std::size_t MonitorRecording::size() const {
  std::error_code notThereYet;
  const auto bytes = std::filesystem::file_size(file, notThereYet);
  return notThereYet ? 0 : bytes / sizeof(float) / channels;
}

std::vector<float> MonitorRecording::samples(std::uint32_t channel) const {
  std::vector<float> interleaved(size() * channels);
  std::ifstream(file, std::ios::binary)
      .read(reinterpret_cast<char*>(interleaved.data()),
            static_cast<std::streamsize>(interleaved.size() * sizeof(float)));
  std::vector<float> one;
  for (std::size_t i = channel; i < interleaved.size(); i += channels) {
    one.push_back(interleaved[i]);
  }
  return one;
}

bool MonitorRecording::soundsSince(std::size_t frame) const {
  const auto all = samples();
  return firstSound(all, frame) < all.size();
}

std::size_t MonitorRecording::silence() const {
  const auto all = samples();
  return all.size() - endOfSound(all);
}

std::size_t firstSound(std::span<const float> samples, std::size_t from) {
  const auto found =
      std::find_if(samples.begin() + static_cast<std::ptrdiff_t>(from), samples.end(), sounds);
  return static_cast<std::size_t>(found - samples.begin());
}

std::size_t endOfSound(std::span<const float> samples) {
  const auto last = std::find_if(samples.rbegin(), samples.rend(), sounds);
  return static_cast<std::size_t>(samples.rend() - last);
}

/// A sine that is `near` keeps its phase from one half to the other; one that is not turns.
double frequencyOf(std::span<const float> sine, double rate, double near) {
  const std::size_t half = sine.size() / 2;
  const auto seconds = static_cast<double>(half) / rate;
  const auto first = spectrumAt(near, sine.first(half), rate);
  const auto second = spectrumAt(near, sine.subspan(half, half), rate);
  const double turned = std::arg(second / first * std::polar(1.0, -2.0 * pi * near * seconds));
  return near + turned / (2.0 * pi * seconds);
}

}  // namespace corvane
