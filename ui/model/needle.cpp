#include "ui/model/needle.h"

#include <algorithm>
#include <cmath>

#include "base/require.h"

namespace corvane {
namespace {

constexpr double visibleMove = 0.1;  // points

}  // namespace

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
