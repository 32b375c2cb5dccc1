// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>
#include <cstdint>

namespace corvane {

/// The concert pitches that have a chip of their own, in whole hertz.
inline constexpr std::array<std::int64_t, 4> quickPitches = {415, 432, 440, 466};

/// `a4` (Hz) as a whole number, halves away from zero.
std::int64_t wholeHertz(double a4);

/// The title of the preset that `a4` rounds to, or "Custom".
QString concertPitchTitle(double a4);

}  // namespace corvane
