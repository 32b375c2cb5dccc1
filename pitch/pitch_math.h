// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Equal temperament around an adjustable concert pitch (the frequency of A4). Any thread.
namespace PitchMath {

struct Note {
  std::string name;     ///< from `sharpNames`
  std::int64_t octave;  ///< scientific: middle C is C4
  std::int64_t midi;    ///< A4 = 69
  double cents;         ///< measured minus named pitch, -50 to +50

  bool operator==(const Note&) const = default;
};

struct ConcertPitch {
  std::int64_t hertz;     ///< identifies the preset
  std::string_view name;  ///< can be empty

  std::int64_t id() const { return hertz; }

  /// "440  Modern", with two spaces so that a menu shows two columns; only the number if `name` is
  /// empty.
  std::string title() const;

  bool operator==(const ConcertPitch&) const = default;
};

/// Pitch classes from C upwards.
extern const std::array<std::string_view, 12> sharpNames;

/// In the order of the menu, lowest first.
extern const std::array<ConcertPitch, 11> concertPitches;

/// The equal-tempered note nearest to `frequency` (Hz) when A4 is `a4` (Hz). Exactly half a
/// semitone above a note is the next note at -50 cents. Returns nothing if either is not positive
/// or the logarithm of their ratio is not finite.
std::optional<Note> describe(double frequency, double a4);

}  // namespace PitchMath
}  // namespace corvane

template <>
struct std::hash<corvane::PitchMath::ConcertPitch> {
  std::size_t operator()(const corvane::PitchMath::ConcertPitch& pitch) const noexcept;
};
