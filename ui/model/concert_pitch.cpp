// SPDX-License-Identifier: MIT
#include "ui/model/concert_pitch.h"

#include <algorithm>
#include <cmath>

#include "pitch/pitch_math.h"

namespace corvane {

std::int64_t wholeHertz(double a4) {
  return std::llround(a4);
}

QString concertPitchTitle(double a4) {
  const auto preset =
      std::ranges::find(PitchMath::concertPitches, wholeHertz(a4), &PitchMath::ConcertPitch::hertz);
  if (preset == PitchMath::concertPitches.end()) return QStringLiteral("Custom");
  return QString::fromStdString(preset->title());
}

}  // namespace corvane
