// SPDX-License-Identifier: MIT
#include "ui/model/reading_text.h"

#include <array>
#include <charconv>
#include <cmath>

#include "base/require.h"

namespace corvane {
namespace {

/// printf's "%.1f" in the C locale. QString::number differs: it rounds an exact half up, printf to
/// the even digit.
QString oneDecimal(double value) {
  std::array<char, 400> text;  // the largest 64-bit float has 309 digits before the point
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 1);
  return QString::fromLatin1(text.data(), end - text.data());
}

QString sign(double cents) {
  if (cents > 0.0) return QStringLiteral("+");
  if (cents < 0.0) return QStringLiteral("−");
  return {};
}

}  // namespace

QString centsText(bool heard, double cents) {
  if (!heard) return QStringLiteral("0.0 ¢");
  return sign(cents) + oneDecimal(std::abs(cents)) + QStringLiteral(" ¢");
}

QString frequencyText(bool heard, double hertz) {
  return (heard ? oneDecimal(hertz) : QStringLiteral("—")) + QStringLiteral(" Hz");
}

QString hearingText(bool heard, bool isPiano, std::string_view spelling) {
  if (!heard || isPiano || spelling.empty()) return {};
  return QStringLiteral("Hearing ") +
         QString::fromUtf8(spelling.data(), static_cast<qsizetype>(spelling.size()));
}

QString scaleText(double span) {
  require(std::isfinite(span), "a meter's span is finite");
  const QString whole = QString::number(static_cast<qlonglong>(span));
  return QStringLiteral("−") + whole + QStringLiteral("   0   +") + whole;
}

}  // namespace corvane
