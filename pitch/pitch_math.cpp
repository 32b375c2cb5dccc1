// SPDX-License-Identifier: MIT
#include "pitch/pitch_math.h"

#include <cmath>
#include <functional>

namespace corvane::PitchMath {
namespace {

constexpr std::int64_t notesPerOctave = 12;
constexpr std::int64_t midiOfA4 = 69;

std::string_view pitchClassName(std::int64_t midi) {
  const std::int64_t remainder = midi - notesPerOctave * (midi / notesPerOctave);
  return sharpNames[static_cast<std::size_t>(remainder < 0 ? remainder + notesPerOctave
                                                           : remainder)];
}

}  // namespace

const std::array<std::string_view, 12> sharpNames = {"C",  "C♯", "D",  "D♯", "E",  "F",
                                                     "F♯", "G",  "G♯", "A",  "A♯", "B"};

const std::array<ConcertPitch, 11> concertPitches = {{
    {377, "Low historical"},
    {392, "French Baroque"},
    {415, "Baroque"},
    {422, "Handel, Mozart era"},
    {430, "Classical"},
    {432, ""},
    {435, "French 1859"},
    {440, "Modern"},
    {442, "Orchestra"},
    {466, "High choir"},
    {560, "High historical"},
}};

std::string ConcertPitch::title() const {
  std::string text = std::to_string(hertz);
  if (!name.empty()) text.append("  ").append(name);
  return text;
}

std::optional<Note> describe(double frequency, double a4) {
  if (!(frequency > 0.0) || !(a4 > 0.0)) return std::nullopt;
  const double fractionalMidi = std::log2(frequency / a4) * 12.0 + static_cast<double>(midiOfA4);
  if (!std::isfinite(fractionalMidi)) return std::nullopt;

  const double nearest = std::round(fractionalMidi);
  const auto midi = static_cast<std::int64_t>(nearest);
  return Note{
      .name = std::string(pitchClassName(midi)),
      // Truncates toward zero: below MIDI 0 (8 Hz, inaudible) octaves differ from floor division.
      .octave = midi / notesPerOctave - 1,
      .midi = midi,
      .cents = (fractionalMidi - nearest) * 100.0,
  };
}

}  // namespace corvane::PitchMath

std::size_t std::hash<corvane::PitchMath::ConcertPitch>::operator()(
    const corvane::PitchMath::ConcertPitch& pitch) const noexcept {
  const std::size_t seed = std::hash<std::int64_t>{}(pitch.hertz);
  return seed * 31 + std::hash<std::string_view>{}(pitch.name);
}
