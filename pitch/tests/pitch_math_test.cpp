#include "pitch/pitch_math.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace corvane::PitchMath {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double smallest = std::numeric_limits<double>::denorm_min();
constexpr double largest = std::numeric_limits<double>::max();

struct Worked {
  double frequency;
  double a4;
  const char* name;
  std::int64_t octave;
  std::int64_t midi;
  double cents;
  double tolerance;  ///< half a unit of the last digit that `cents` is written with
};

class WorkedValue : public testing::TestWithParam<Worked> {};

TEST_P(WorkedValue, IsDescribedAsWorkedOutByHand) {
  const Worked& expected = GetParam();
  const auto note = describe(expected.frequency, expected.a4);
  ASSERT_TRUE(note);
  EXPECT_EQ(note->name, expected.name);
  EXPECT_EQ(note->octave, expected.octave);
  EXPECT_EQ(note->midi, expected.midi);
  EXPECT_NEAR(note->cents, expected.cents, expected.tolerance);
}

INSTANTIATE_TEST_SUITE_P(
    At440And415, WorkedValue,
    testing::Values(Worked{440.0, 440.0, "A", 4, 69, 0.0, 0.0},
                    Worked{82.41, 440.0, "E", 2, 40, 0.065, 0.0005},
                    Worked{27.5, 440.0, "A", 0, 21, 0.0, 0.0},
                    // C8 is 4186.00904 Hz, so the four thousandths are 0.0004 cents.
                    Worked{4186.01, 440.0, "C", 8, 108, 0.0004, 0.00005},
                    Worked{445.0, 440.0, "A", 4, 69, 19.56, 0.005},
                    Worked{466.16, 440.0, "A♯", 4, 70, -0.014, 0.0005},
                    Worked{440.0, 415.0, "A♯", 4, 70, 1.27, 0.005}));

TEST(PitchMath, AFrequencyOfZeroOrLessIsNoNote) {
  EXPECT_FALSE(describe(0.0, 440.0));
  EXPECT_FALSE(describe(-0.0, 440.0));
  EXPECT_FALSE(describe(-1.0, 440.0));
  EXPECT_FALSE(describe(-infinity, 440.0));
}

TEST(PitchMath, AConcertPitchOfZeroOrLessIsNoNote) {
  EXPECT_FALSE(describe(440.0, 0.0));
  EXPECT_FALSE(describe(440.0, -440.0));
  EXPECT_FALSE(describe(-440.0, -440.0)) << "although their ratio is one";
}

TEST(PitchMath, WhatIsNotANumberOrNotFiniteIsNoNote) {
  EXPECT_FALSE(describe(nan, 440.0));
  EXPECT_FALSE(describe(440.0, nan));
  EXPECT_FALSE(describe(infinity, 440.0));
  EXPECT_FALSE(describe(440.0, infinity));
  EXPECT_FALSE(describe(infinity, infinity));
}

TEST(PitchMath, ARatioThatOverflowsOrVanishesIsNoNote) {
  EXPECT_FALSE(describe(largest, 0.5));
  EXPECT_FALSE(describe(smallest, 4.0));
}

TEST(PitchMath, TheExtremeFiniteRatiosAreStillNotes) {
  // 2^1024 (less a rounding) and 2^-1074, in semitones from MIDI 69: 12 x 1024 + 69 and
  // 69 - 12 x 1074.
  const auto highest = describe(largest, 1.0);
  ASSERT_TRUE(highest);
  EXPECT_EQ(highest->midi, 12357);
  const auto lowest = describe(smallest, 1.0);
  ASSERT_TRUE(lowest);
  EXPECT_EQ(lowest->midi, -12819);
}

TEST(PitchMath, TheConcertPitchItselfIsA4WithNoDeviation) {
  for (const double a4 : {smallest, 1.0, 377.0, 415.3, 440.0, 560.0, 1e9, largest}) {
    EXPECT_EQ(describe(a4, a4), (Note{"A", 4, 69, 0.0})) << a4;
  }
}

TEST(PitchMath, HalfASemitoneAboveA4IsTheNextNoteFiftyCentsFlat) {
  const auto note = describe(440.0 * std::exp2(1.0 / 24.0), 440.0);
  ASSERT_TRUE(note);
  // The fractional MIDI number lies near 69.5, where numbers are 2^-46 apart: one such step either
  // way is 1.4e-12 cents, and decides which of the two notes it is.
  EXPECT_NEAR(static_cast<double>(note->midi) * 100.0 + note->cents, 6950.0, 3e-12);
  EXPECT_NEAR(std::abs(note->cents), 50.0, 3e-12);
}

/// The first frequency above `start` whose fractional MIDI number is exactly `midi`.
double frequencyOfExactly(double midi, double start) {
  double frequency = start;
  for (int steps = 0; steps < 1000; ++steps) {
    if (std::log2(frequency / 440.0) * 12.0 + 69.0 == midi) return frequency;
    frequency = std::nextafter(frequency, infinity);
  }
  return nan;
}

/// A hundred representable frequencies below the one that lies `midi` - 69 semitones from 440 Hz.
double justBelow(double midi) {
  return 440.0 * std::exp2((midi - 69.0) / 12.0) * (1.0 - 2e-14);
}

TEST(PitchMath, ExactlyHalfASemitoneIsRoundedAwayFromZero) {
  // 69.5 and 70.5: rounding halves to even would put both at 70.
  const double a = frequencyOfExactly(69.5, justBelow(69.5));
  EXPECT_EQ(describe(a, 440.0), (Note{"A♯", 4, 70, -50.0})) << a;
  const double aSharp = frequencyOfExactly(70.5, justBelow(70.5));
  EXPECT_EQ(describe(aSharp, 440.0), (Note{"B", 4, 71, -50.0})) << aSharp;
}

TEST(PitchMath, BelowMidiZeroHalvesAreRoundedDownwards) {
  const double frequency = frequencyOfExactly(-0.5, justBelow(-0.5));
  EXPECT_EQ(describe(frequency, 440.0), (Note{"B", -1, -1, 50.0})) << frequency;
}

TEST(PitchMath, BelowMidiZeroTheOctaveIsTruncatedTowardZero) {
  // MIDI -1 to -11 share octave -1 with MIDI 0 to 11; floor division would say -2.
  const auto lowB = describe(440.0 * std::exp2(-70.0 / 12.0), 440.0);
  ASSERT_TRUE(lowB);
  EXPECT_EQ(lowB->midi, -1);
  EXPECT_EQ(lowB->name, "B");
  EXPECT_EQ(lowB->octave, -1);
  const auto lowC = describe(440.0 * std::exp2(-81.0 / 12.0), 440.0);
  ASSERT_TRUE(lowC);
  EXPECT_EQ(lowC->midi, -12);
  EXPECT_EQ(lowC->name, "C");
  EXPECT_EQ(lowC->octave, -2);
}

TEST(PitchMath, NotesAreEqualWhenAllFourFieldsAre) {
  const Note note{"A", 4, 69, 0.5};
  EXPECT_EQ(note, (Note{"A", 4, 69, 0.5}));
  EXPECT_NE(note, (Note{"B", 4, 69, 0.5}));
  EXPECT_NE(note, (Note{"A", 5, 69, 0.5}));
  EXPECT_NE(note, (Note{"A", 4, 70, 0.5}));
  EXPECT_NE(note, (Note{"A", 4, 69, std::nextafter(0.5, 1.0)}));
}

}  // namespace
}  // namespace corvane::PitchMath
