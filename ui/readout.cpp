#include "ui/readout.h"

#include <array>
#include <charconv>
#include <cmath>

namespace corvane {
namespace {

/// As printf's "%.1f" in the C locale, whatever the user's locale is.
QString oneDecimal(double value) {
  return QString::number(value, 'f', 1);
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

}  // namespace corvane
