// SPDX-License-Identifier: MIT
#include "bench/sounds.h"

#include <algorithm>
#include <cmath>

#include "base/require.h"
#include "pitch/pitch_capture.h"
#include "tunings/tuning_library.h"

namespace corvane {
namespace {

constexpr std::size_t block = PitchCapture::blockSamples;

/// Scaled to half of full scale, so that no string is treated as silence.
signals::Samples loud(signals::Samples samples) {
  float peak = 0.0F;
  for (const float sample : samples) peak = std::max(peak, std::abs(sample));
  return signals::scaled(std::move(samples), 0.5F / peak);
}

/// Whether the detector finds the string, or it is below the range at this rate.
bool isHeard(const signals::Samples& samples, double rate, double frequency) {
  const double longestLag = std::min(std::ceil(rate / 27.0), double{block / 2 - 2});
  if (rate / frequency > longestLag - 1.0) return true;
  const auto reading = PitchCapture::detectMusicalPitch(samples, rate);
  return reading && std::abs(1200.0 * std::log2(reading->frequency / frequency)) < 1.0;
}

std::vector<signals::Samples> pluckedStrings(const Tuning& tuning, double rate) {
  std::vector<signals::Samples> blocks;
  for (const GuitarString& string : tuning.strings) {
    const double frequency = 440.0 * std::exp2(static_cast<double>(string.midi - 69) / 12.0);
    const std::size_t delay = signals::pluckedDelay(frequency, rate);
    for (const double seconds : {0.0, 0.1, 0.25, 0.5, 1.0, 2.0, 3.0}) {
      const auto start = static_cast<std::size_t>(seconds * rate);
      const auto all = signals::pluckedString(delay, start + block, 1);
      blocks.push_back(loud({all.end() - std::ptrdiff_t{block}, all.end()}));
      require(isHeard(blocks.back(), rate, signals::pluckedPitch(delay, rate)),
              "the detector finds the string");
    }
  }
  return blocks;
}

}  // namespace

Sounds worstCase() {
  return {"noise", {signals::noise(block, 1)}};
}

Sounds guitar(double rate) {
  return {"guitar strings",
          pluckedStrings(TuningLibrary::resolve(Instrument::guitar, "g6-standard"), rate)};
}

Sounds bass(double rate) {
  return {"bass strings",
          pluckedStrings(TuningLibrary::resolve(Instrument::bass, "b5-standard"), rate)};
}

}  // namespace corvane
