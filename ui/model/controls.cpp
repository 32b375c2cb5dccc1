#include "ui/model/controls.h"

#include <algorithm>
#include <cmath>

#include "base/require.h"
#include "pitch/pitch_math.h"
#include "tunings/tuning_library.h"
#include "ui/paint/tuner_theme.h"

namespace corvane {
namespace {

constexpr double visibleMove = 0.1;  // points

QColor withOpacity(QColor color, float opacity) {
  color.setAlphaF(opacity);
  return color;
}

}  // namespace

std::vector<TuningGroup> groupedTunings(Instrument instrument) {
  std::vector<TuningGroup> groups;
  for (const Tuning& tuning : TuningLibrary::tunings(instrument)) {
    auto group = std::ranges::find(groups, tuning.group, &TuningGroup::name);
    if (group == groups.end()) group = groups.insert(group, {tuning.group, {}});
    group->tunings.push_back(tuning);
  }
  return groups;
}

std::int64_t wholeHertz(double a4) {
  return std::llround(a4);
}

QString concertPitchTitle(double a4) {
  const auto preset =
      std::ranges::find(PitchMath::concertPitches, wholeHertz(a4), &PitchMath::ConcertPitch::hertz);
  if (preset == PitchMath::concertPitches.end()) return QStringLiteral("Custom");
  return QString::fromStdString(preset->title());
}

QColor chipFill(bool /*selected*/, bool hearing, bool inTune) {
  if (!hearing) return TunerTheme::card;
  return inTune ? withOpacity(TunerTheme::green, 0.35F) : withOpacity(TunerTheme::gold, 0.16F);
}

double needleCentre(double width, double height, double span, double value) {
  const double shown = std::clamp(value, -span, span);
  const double centre = width * (span + shown) / (2.0 * span);
  return std::min(std::max(centre, height / 2.0), width - height / 2.0);
}

bool needleMoves(double width, double height, double span, double from, double to) {
  if (width <= height) return from != to;
  const double move =
      needleCentre(width, height, span, to) - needleCentre(width, height, span, from);
  return std::abs(move) >= visibleMove;
}

QString scaleText(double span) {
  require(std::isfinite(span), "a meter's span is finite");
  const QString whole = QString::number(static_cast<qlonglong>(span));
  return QStringLiteral("−") + whole + QStringLiteral("   0   +") + whole;
}

}  // namespace corvane
