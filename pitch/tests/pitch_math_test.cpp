// SPDX-License-Identifier: MIT
#include "pitch/pitch_math.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <unordered_set>

namespace corvane::PitchMath {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double smallest = std::numeric_limits<double>::denorm_min();
constexpr double largest = std::numeric_limits<double>::max();

TEST(SharpNames, AreTheTwelvePitchClassesFromCUpwards) {
  EXPECT_THAT(sharpNames, testing::ElementsAre("C", "C♯", "D", "D♯", "E", "F", "F♯", "G", "G♯", "A",
                                               "A♯", "B"));
  EXPECT_EQ(sharpNames[1], "C\xE2\x99\xAF") << "the sharp is U+266F in UTF-8";
}

TEST(ConcertPitches, AreTheElevenPresetsInTheOrderOfTheMenu) {
  EXPECT_THAT(
      concertPitches,
      testing::ElementsAre(ConcertPitch{377, "Low historical"}, ConcertPitch{392, "French Baroque"},
                           ConcertPitch{415, "Baroque"}, ConcertPitch{422, "Handel, Mozart era"},
                           ConcertPitch{430, "Classical"}, ConcertPitch{432, ""},
                           ConcertPitch{435, "French 1859"}, ConcertPitch{440, "Modern"},
                           ConcertPitch{442, "Orchestra"}, ConcertPitch{466, "High choir"},
                           ConcertPitch{560, "High historical"}));
}

TEST(ConcertPitch, TitleIsTheNumberTwoSpacesAndTheNameIfAny) {
  for (const ConcertPitch& pitch : concertPitches) {
    const std::string number = std::to_string(pitch.hertz);
    EXPECT_EQ(pitch.title(), pitch.hertz == 432 ? "432" : number + "  " + std::string(pitch.name));
  }
  EXPECT_EQ((ConcertPitch{440, "Modern"}).title(), "440  Modern");
  EXPECT_EQ((ConcertPitch{1234567, "Bats"}).title(), "1234567  Bats") << "no digit grouping";
}

TEST(ConcertPitch, IsIdentifiedByItsFrequency) {
  std::unordered_set<std::int64_t> ids;
  for (const ConcertPitch& pitch : concertPitches) {
    EXPECT_EQ(pitch.id(), pitch.hertz);
    EXPECT_TRUE(ids.insert(pitch.id()).second) << pitch.hertz;
  }
}

TEST(ConcertPitch, EqualityAndHashUseFrequencyAndName) {
  const std::hash<ConcertPitch> hash;
  const ConcertPitch modern{440, "Modern"};
  const ConcertPitch copy{440, std::string_view("Modern, really").substr(0, 6)};
  EXPECT_EQ(modern, copy);
  EXPECT_EQ(hash(modern), hash(copy));
  for (const ConcertPitch& other : {ConcertPitch{441, "Modern"}, ConcertPitch{440, "modern"}}) {
    EXPECT_NE(modern, other);
    EXPECT_NE(hash(modern), hash(other));
  }
}

TEST(PitchMath, DescribesWorkedValues) {
  struct Worked {
    double frequency;
    double a4;
    Note note;
    double tolerance;  ///< half a unit of the last digit of the expected cents
  };
  const Worked rows[] = {
      {440.0, 440.0, {"A", 4, 69, 0.0}, 0.0},
      {82.41, 440.0, {"E", 2, 40, 0.065}, 0.0005},
      {27.5, 440.0, {"A", 0, 21, 0.0}, 0.0},
      // C8 is 4186.00904 Hz, so the four thousandths are 0.0004 cents.
      {4186.01, 440.0, {"C", 8, 108, 0.0004}, 0.00005},
      {445.0, 440.0, {"A", 4, 69, 19.56}, 0.005},
      {466.16, 440.0, {"A♯", 4, 70, -0.014}, 0.0005},
      {440.0, 415.0, {"A♯", 4, 70, 1.27}, 0.005},
      // MIDI -1 to -11 have octave -1 like MIDI 0 to 11: the division truncates toward zero.
      // Between 64 and 128 doubles are 2^-46 apart, 1.4e-12 cents: the tolerance is some of these
      // steps.
      {440.0 * std::exp2(-70.0 / 12.0), 440.0, {"B", -1, -1, 0.0}, 1e-11},
      {440.0 * std::exp2(-81.0 / 12.0), 440.0, {"C", -2, -12, 0.0}, 1e-11},
  };
  for (const auto& [frequency, a4, expected, tolerance] : rows) {
    SCOPED_TRACE(frequency);
    const auto note = describe(frequency, a4);
    ASSERT_TRUE(note);
    EXPECT_EQ(note->name, expected.name);
    EXPECT_EQ(note->octave, expected.octave);
    EXPECT_EQ(note->midi, expected.midi);
    EXPECT_NEAR(note->cents, expected.cents, tolerance);
  }
}

TEST(PitchMath, ZeroOrLessIsNoNote) {
  for (const double odd : {0.0, -0.0, -1.0, -440.0, -infinity, nan, infinity}) {
    EXPECT_FALSE(describe(odd, 440.0)) << odd;
    EXPECT_FALSE(describe(440.0, odd)) << odd;
    EXPECT_FALSE(describe(odd, odd)) << odd;
  }
}

TEST(PitchMath, RatioThatOverflowsOrUnderflowsIsNoNote) {
  EXPECT_FALSE(describe(largest, 0.5));
  EXPECT_FALSE(describe(smallest, 4.0));
  // 2^1024 (less a rounding) and 2^-1074, in semitones from MIDI 69: 12 x 1024 + 69 and
  // 69 - 12 x 1074.
  const auto highest = describe(largest, 1.0);
  const auto lowest = describe(smallest, 1.0);
  ASSERT_TRUE(highest && lowest);
  EXPECT_EQ(highest->midi, 12357);
  EXPECT_EQ(lowest->midi, -12819);
}

TEST(PitchMath, ConcertPitchItselfIsA4At0Cents) {
  for (const double a4 : {smallest, 1.0, 377.0, 415.3, 440.0, 560.0, 1e9, largest}) {
    EXPECT_EQ(describe(a4, a4), (Note{"A", 4, 69, 0.0})) << a4;
  }
}

TEST(PitchMath, HalfASemitoneAboveA4IsASharpFiftyCentsFlat) {
  const auto note = describe(440.0 * std::exp2(1.0 / 24.0), 440.0);
  ASSERT_TRUE(note);
  // The fractional MIDI number is near 69.5, where doubles are 2^-46 apart: one step is 1.4e-12
  // cents and decides between the two notes.
  EXPECT_NEAR(static_cast<double>(note->midi) * 100.0 + note->cents, 6950.0, 3e-12);
  EXPECT_NEAR(std::abs(note->cents), 50.0, 3e-12);
}

/// A frequency whose fractional MIDI number is exactly `midi`.
double frequencyOfExactly(double midi) {
  double frequency = 440.0 * std::exp2((midi - 69.0) / 12.0) * (1.0 - 2e-14);
  for (int steps = 0; steps < 1000; ++steps) {
    if (std::log2(frequency / 440.0) * 12.0 + 69.0 == midi) return frequency;
    frequency = std::nextafter(frequency, infinity);
  }
  return nan;
}

TEST(PitchMath, ExactlyHalfASemitoneIsRoundedAwayFromZero) {
  // 69.5 and 70.5: rounding half to even would give 70 for both.
  EXPECT_EQ(describe(frequencyOfExactly(69.5), 440.0), (Note{"A♯", 4, 70, -50.0}));
  EXPECT_EQ(describe(frequencyOfExactly(70.5), 440.0), (Note{"B", 4, 71, -50.0}));
  EXPECT_EQ(describe(frequencyOfExactly(-0.5), 440.0), (Note{"B", -1, -1, 50.0}));
}

TEST(PitchMath, EveryNoteHasTheBitsOfTheFormula) {
  std::mt19937 random(1);
  const auto between = [&random](double low, double high) {
    return low + (high - low) * static_cast<double>(random()) / 0x1p32;
  };
  for (int number = 0; number < 1000; ++number) {
    const double frequency = std::exp2(between(0.0, std::log2(20000.0)));
    const double a4 = between(377.0, 560.0);
    const double octaves = std::log2(frequency / a4);
    const double fractionalMidi = octaves * 12.0 + 69.0;
    const double nearest = std::round(fractionalMidi);
    const auto midi = static_cast<std::int64_t>(nearest);
    const auto pitchClass = static_cast<std::size_t>((midi + 120) % 12);
    const Note expected{std::string(sharpNames[pitchClass]), midi / 12 - 1, midi,
                        (fractionalMidi - nearest) * 100.0};
    EXPECT_EQ(describe(frequency, a4), expected) << frequency << " Hz at " << a4;
  }
}

}  // namespace
}  // namespace corvane::PitchMath
