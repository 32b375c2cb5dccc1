// SPDX-License-Identifier: MIT
// Any samples, rate, length, bounds and threshold: the detector equals the reference to the bit, on
// every path of this machine and with reused memory.

#include <bit>
#include <cmath>
#include <optional>
#include <vector>

#include "base/require.h"
#include "fuzz/bytes.h"
#include "pitch/normalised_difference.h"
#include "pitch/pitch_detector.h"
#include "pitch/tests/reference_detector.h"

namespace corvane::fuzz {
namespace {

constexpr double usualRates[] = {8000.0,  8000.5,  11025.0, 16000.0, 22050.0,
                                 44100.0, 48000.0, 96000.0, 192000.0};
constexpr double usualLowest[] = {27.0, 80.0, 430.0};
constexpr double usualHighest[] = {4300.0, 1200.0, 450.0};
constexpr double usualThresholds[] = {0.15, 0.5, 0.01};

struct Search {
  double rate;
  double lowest;
  double highest;
  double threshold;

  explicit Search(Bytes& input)
      : rate(input.usualOrAny(usualRates)),
        lowest(input.usualOrAny(usualLowest)),
        highest(input.usualOrAny(usualHighest)),
        threshold(input.usualOrAny(usualThresholds)) {}

  /// The detector stops the program on invalid bounds and on lags beyond 64 bits.
  bool isAllowed() const {
    const bool bounded =
        lowest > 0.0 && std::isfinite(lowest) && highest > 0.0 && std::isfinite(highest);
    if (!bounded) return false;
    return !(rate > 0.0) || (rate / lowest < 0x1p62 && rate / highest < 0x1p62);
  }
};

/// Scaled bytes or floats of any bits, repeated: a few bytes make a whole periodic block.
std::vector<float> samples(Bytes& input) {
  const std::size_t length = input.below(8300);
  const bool anyBits = input.flag();
  const float scale = anyBits ? 1.0F : input.take<float>();
  std::vector<float> once;
  while (!input.empty() && once.size() < length) {
    once.push_back(anyBits ? input.take<float>()
                           : static_cast<float>(input.take<std::int8_t>()) * scale);
  }
  if (once.empty()) once.push_back(0.0F);
  std::vector<float> all(length);
  for (std::size_t i = 0; i < length; ++i) all[i] = once[i % once.size()];
  return all;
}

bool sameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) && !std::isnan(a);
}

bool same(const std::optional<PitchDetector::Reading>& a,
          const std::optional<PitchDetector::Reading>& b) {
  if (!a || !b) return !a && !b;
  return sameBits(a->frequency, b->frequency) && sameBits(a->confidence, b->confidence) &&
         sameBits(static_cast<double>(a->rms), static_cast<double>(b->rms));
}

void checkReading(const std::optional<PitchDetector::Reading>& reading, const Search& search) {
  if (!reading) return;
  require(reading->frequency >= search.lowest * 0.9 && reading->frequency <= search.highest * 1.05,
          "the frequency is in the band");
  require(reading->confidence >= 0.0 && reading->confidence <= 1.0, "the confidence is 0 to 1");
  require(reading->rms > 0.003F, "the level is above the gate");
}

void compare(const std::vector<float>& block, const Search& search) {
  const auto& [rate, lowest, highest, threshold] = search;
  const auto expected = reference::detect(block, rate, lowest, highest, threshold);
  checkReading(expected, search);
  for (const DifferencePath& path : differencePaths()) {
    if (!path.runsHere()) continue;
    NormalisedDifference memory(path);
    const std::vector<float> before(block.rbegin(), block.rbegin() + block.size() / 2);
    PitchDetector::detect(before, rate, lowest, highest, threshold, memory);
    require(same(PitchDetector::detect(block, rate, lowest, highest, threshold, memory), expected),
            "the detector equals the reference to the bit");
  }
}

}  // namespace
}  // namespace corvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvane::fuzz;
  Bytes input(data, size);
  const Search search(input);
  if (!search.isAllowed()) return -1;
  compare(samples(input), search);
  return 0;
}
