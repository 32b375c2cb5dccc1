#include "platform/qt/qt_preferences.h"

#include <QLocale>
#include <QStandardPaths>
#include <QVariant>

#include "base/require.h"
#include "platform/qt/text_format.h"

namespace corvane {
namespace {

QString qString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

QString QtPreferences::defaultPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/corvane/corvane.conf");
}

QtPreferences::QtPreferences(const QString& path) : settings(path, textFormat()) {}

std::optional<QString> QtPreferences::text(std::string_view key) const {
  const QVariant value = settings.value(qString(key));
  if (!value.isValid()) return std::nullopt;
  return value.toString();
}

std::optional<std::string> QtPreferences::string(std::string_view key) const {
  const auto value = text(key);
  if (!value) return std::nullopt;
  return value->toStdString();
}

std::optional<double> QtPreferences::number(std::string_view key) const {
  const auto value = text(key);
  if (!value) return std::nullopt;
  bool isNumber = false;
  const double number = value->toDouble(&isNumber);
  if (!isNumber) return std::nullopt;
  return number;
}

std::optional<bool> QtPreferences::boolean(std::string_view key) const {
  const auto value = text(key);
  if (value == u"true") return true;
  if (value == u"false") return false;
  return std::nullopt;
}

void QtPreferences::setString(std::string_view key, std::string_view value) {
  const QString text = qString(value);
  require(text == text.trimmed() && !text.contains(u'\n'), "a preference is one line");
  settings.setValue(qString(key), text);
}

void QtPreferences::setNumber(std::string_view key, double value) {
  settings.setValue(qString(key), QString::number(value, 'g', QLocale::FloatingPointShortest));
}

void QtPreferences::setBoolean(std::string_view key, bool value) {
  settings.setValue(qString(key), value ? QStringLiteral("true") : QStringLiteral("false"));
}

}  // namespace corvane
