// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <iostream>

#include "engine/tone_buffer.h"
#include "platform/pulse/tests/pulse_fixture.h"
#include "platform/pulse/tests/tone_recording.h"

namespace corvane {
namespace {

constexpr double toneSeconds = 1.05;
constexpr double peak = 0.22;

/// Records what the loudspeakers play.
class OutputSound : public PulseTest {
 protected:
  void startRecording(const AudioFormat& format = {44100.0, 1}) {
    startOutput(format);
    server.useLongCycles();
    rate = static_cast<std::uint32_t>(format.sampleRate);
    recording.emplace(server, loudspeakers, rate, format.channelCount);
  }

  /// The recording of one tone, with the silence before and after it.
  std::vector<float> recordPress(std::vector<float> samples) {
    const std::size_t from = recording->size();
    client.press(++pressed, std::move(samples));
    return recordEnd(from, 0.0F);
  }
  /// The end can be reported before the recorder has the sound, which is louder than `level`.
  std::vector<float> recordEnd(std::size_t from, float level) {
    EXPECT_TRUE(client.waitForEnds(pressed));
    EXPECT_TRUE(client.pumpUntil(
        [&] { return recording->soundsSince(from, level) && recording->silence() > rate / 10; }));
    const auto all = recording->samples();
    return {all.begin() + static_cast<std::ptrdiff_t>(from), all.end()};
  }

  static std::span<const float> withoutSilence(std::span<const float> samples) {
    const std::size_t begin = firstSound(samples);
    return samples.subspan(begin, std::max(begin, endOfSound(samples)) - begin);
  }
  /// Without the first sample, which is 0 like the silence before it.
  static std::span<const float> soundOf(std::span<const float> tone) { return tone.subspan(1); }

  std::optional<MonitorRecording> recording;
  std::uint32_t rate = 0;
  int pressed = 0;
};

TEST_P(OutputSound, PlaysEverySampleOfTheToneUnchanged) {
  startRecording();
  const auto tone = toneBuffer(110.0, toneSampleRate);
  expectNoFault([&]() -> std::string {
    const auto recorded = recordPress(tone);
    const auto found = std::ranges::mismatch(withoutSilence(recorded), soundOf(tone));
    if (found.in1 == withoutSilence(recorded).end() && found.in2 == soundOf(tone).end()) return {};
    return "differs from frame " + std::to_string(found.in2 - soundOf(tone).begin()) + " on";
  });
}

class OutputPitch : public OutputSound {
 protected:
  /// From the first to the last rising zero crossing of a sine. A period has eleven samples or
  /// more, so linear interpolation is off by at most 0.001 rad. Five roundings of the tone's phase
  /// of up to 28 000 rad are 0.008 rad. Together this is less than 0.05 cent of 0.84 s of tone.
  static double frequencyOf(std::span<const float> sine, double rate) {
    std::vector<double> zeros;
    for (std::size_t i = 1; i < sine.size(); ++i) {
      const auto before = static_cast<double>(sine[i - 1]);
      const auto after = static_cast<double>(sine[i]);
      if (before >= 0.0 || after < 0.0) continue;
      zeros.push_back(static_cast<double>(i) - after / (after - before));
    }
    return static_cast<double>(zeros.size() - 1) * rate / (zeros.back() - zeros.front());
  }

  std::string pitchFault(double hertz) {
    const auto recorded = recordPress(toneBuffer(hertz, toneSampleRate));
    const auto tone = withoutSilence(recorded);
    // A resampler rings for less than 200 frames before and after a sound.
    const double longer = static_cast<double>(tone.size()) - toneSeconds * rate;
    if (!(std::abs(longer) <= 200.0)) return std::to_string(longer) + " frames too long";
    const auto plateau = tone.subspan(rate * 10 / 100, rate * 84 / 100);
    const double cents = 1200.0 * std::log2(frequencyOf(plateau, rate) / hertz);
    std::cout << hertz << " Hz: " << cents << " cent off\n";
    if (!(std::abs(cents) <= 0.05)) return std::to_string(cents) + " cent off";
    const auto loudest = static_cast<double>(*std::ranges::max_element(plateau));
    return std::abs(loudest - peak) <= 0.01 * peak ? "" : "peak " + std::to_string(loudest);
  }
};

TEST_P(OutputPitch, IsKeptOnStereoLoudspeakersOfAnotherRate) {
  startRecording({48000.0, 2});
  // The lowest string of a bass and the highest of a piano.
  for (const double hertz : {30.86770632850775, 4186.009044809578}) {
    expectNoFault([&] { return pitchFault(hertz); });
  }
}

/// The latency of the server is less, and with a stopped clock no timer delays the tone.
TEST_P(OutputSound, FollowsThePressWithinATenthOfASecond) {
  startOutput();
  ASSERT_NO_FATAL_FAILURE(pressUntilTheServerPlays(1));
  EXPECT_LT(latencyOf("sinks", loudspeakers, "sink-inputs"), 0.1);
}

TEST_P(OutputSound, OfAnotherPressCutsOffTheFirstAtOnce) {
  startRecording();
  constexpr float level = 0.1F;
  const std::vector<float> endless(30 * 44100, level);
  const auto tone = toneBuffer(330.0, toneSampleRate);
  expectNoFault([&]() -> std::string {
    const std::size_t from = recording->size();
    client.press(++pressed, endless);
    EXPECT_TRUE(client.pumpUntil([&] { return recording->soundsSince(from + 4410); }));
    client.press(++pressed, tone);
    const auto recorded = recordEnd(from, level);
    const auto sound = withoutSilence(recorded);
    const auto first =
        withoutSilence(sound.first(sound.size() - std::min(sound.size(), soundOf(tone).size())));
    if (std::ranges::any_of(first, [&](float sample) { return sample != level; })) return "mixed";
    if (first.empty() || first.size() >= endless.size()) return "not cut off";
    return std::ranges::equal(sound.last(soundOf(tone).size()), soundOf(tone)) ? "" : "cut short";
  });
  client.expectEnds(pressed);
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, OutputSound, eitherServer(), serverName);
INSTANTIATE_TEST_SUITE_P(OnEitherServer, OutputPitch, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
