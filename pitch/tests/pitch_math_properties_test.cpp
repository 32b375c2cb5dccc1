#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "pitch/pitch_math.h"

namespace corvane::PitchMath {
namespace {

/// Any of 2^32 evenly spaced points from `low` up to, not including, `high`.
rc::Gen<double> between(double low, double high) {
  // At the full size from the start: small sizes would only give points close to `low`.
  const auto steps = rc::gen::resize(rc::kNominalSize, rc::gen::arbitrary<std::uint32_t>());
  return rc::gen::map(steps, [=](std::uint32_t step) {
    return low + (high - low) * static_cast<double>(step) / 0x1p32;
  });
}

/// Up to 20 kHz, as many in each octave.
rc::Gen<double> frequenciesFrom(double lowest) {
  return rc::gen::map(between(std::log2(lowest), std::log2(20000.0)),
                      [](double octaves) { return std::exp2(octaves); });
}

rc::Gen<double> historicalA4() {
  return between(377.0, 560.0);
}

// How far a frequency may be off after the way there and back, in relative terms. u = 2^-53.
//   there, m:  the division gives u, 1.6e-16 of an octave in the logarithm; log2 is below 10 and
//              glibc's is within 1 ulp of it, 2^-49; 12 times that is 2.4e-14 semitones; rounding
//              the product (< 128) adds 2^-47 and the sum (< 256) 2^-46: together 4.5e-14.
//   cents:     m - midi is exact, times 100 within 4e-15 cents, below 1e-16 of a semitone.
//   back:      4.5e-14 semitones are 4.5e-14 x ln(2) / 12 = 2.6e-15; rounding (midi - 69) / 12
//              (below 16) by 2^-50 gives 6.2e-16 and the other exponent next to nothing; two powers
//              within 1 ulp of 2u and two products of u each give 6.7e-16.
constexpr double roundTrip = 4e-15;

double frequencyOf(const Note& note, double a4) {
  return a4 * std::exp2((static_cast<double>(note.midi) - 69.0) / 12.0) *
         std::exp2(note.cents / 1200.0);
}

RC_GTEST_PROP(PitchMathProperties, ADescribedFrequencyCanBeConvertedBack, ()) {
  const double frequency = *frequenciesFrom(1.0);
  const double a4 = *historicalA4();
  const auto note = describe(frequency, a4);
  RC_ASSERT(note);
  RC_ASSERT(std::abs(frequencyOf(*note, a4) / frequency - 1.0) <= roundTrip);
}

RC_GTEST_PROP(PitchMathProperties, TheDeviationIsAtMostHalfASemitone, ()) {
  const auto note = describe(*frequenciesFrom(1.0), *historicalA4());
  RC_ASSERT(note);
  RC_ASSERT(-50.0 <= note->cents && note->cents <= 50.0);
}

RC_GTEST_PROP(PitchMathProperties, TheDeviationHasTheBitsOfTheFormulaAsItIsWritten, ()) {
  const double frequency = *frequenciesFrom(1.0);
  const double a4 = *historicalA4();
  const auto note = describe(frequency, a4);
  RC_ASSERT(note);
  const double octaves = std::log2(frequency / a4);
  const double fractionalMidi = octaves * 12.0 + 69.0;
  const double cents = (fractionalMidi - static_cast<double>(note->midi)) * 100.0;
  RC_ASSERT(note->cents == cents);
}

RC_GTEST_PROP(PitchMathProperties, NameAndOctaveSpellTheMidiNumberOfAnythingAudible, ()) {
  const auto note = describe(*frequenciesFrom(16.0), *historicalA4());
  RC_ASSERT(note);
  RC_ASSERT(note->midi >= 0);
  const auto pitchClass = static_cast<std::size_t>(note->midi - (note->octave + 1) * 12);
  RC_ASSERT(pitchClass < sharpNames.size());
  RC_ASSERT(note->name == sharpNames[pitchClass]);
}

RC_GTEST_PROP(PitchMathProperties, AnOctaveUpIsTheSameNameOneOctaveHigher, ()) {
  const double frequency = *frequenciesFrom(32.0);
  const auto low = describe(frequency, 440.0);
  const auto high = describe(frequency * 2.0, 440.0);
  RC_ASSERT(low && high);
  // At the very boundary between two notes the rounding of m may fall on either side.
  RC_PRE(std::abs(low->cents) < 49.999);
  RC_ASSERT(high->name == low->name);
  RC_ASSERT(high->octave == low->octave + 1);
}

}  // namespace
}  // namespace corvane::PitchMath
