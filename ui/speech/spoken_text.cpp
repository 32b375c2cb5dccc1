// SPDX-License-Identifier: MIT
#include "ui/speech/spoken_text.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

constexpr double silent = 0.005;

QString inCents(qlonglong whole) {
  return QString::number(whole) + (whole == 1 ? QStringLiteral(" cent") : QStringLiteral(" cents"));
}

QString side(double cents) {
  return cents < 0.0 ? QStringLiteral(" flat") : QStringLiteral(" sharp");
}

}  // namespace

QString deviationInWords(double cents) {
  const qlonglong whole = std::llround(std::abs(cents));
  return whole == 0 ? QStringLiteral("no cents off") : inCents(whole) + side(cents);
}

QString meterInWords(bool heard, const QString& note, double cents, double span) {
  if (!heard) return QStringLiteral("nothing heard");
  if (std::abs(cents) <= span) return note + QStringLiteral(", ") + deviationInWords(cents);
  return note + QStringLiteral(", more than ") + inCents(static_cast<qlonglong>(span)) +
         side(cents);
}

QString levelInWords(double signal) {
  if (signal < silent) return QStringLiteral("silent");
  const qlonglong tens = std::max(1LL, std::llround(signal * 10.0));
  return QString::number(tens * 10) + QStringLiteral(" percent");
}

}  // namespace corvane
