#include "platform/qt/qt_preferences.h"

#include <QStandardPaths>
#include <QVariant>

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

QtPreferences::QtPreferences(const QString& path) : settings(path, QSettings::IniFormat) {}

/// The file holds nothing but texts, and a comma in one makes it read as a list, which no
/// preference of ours is. A value that was set in this run still has its own type.
std::optional<QString> QtPreferences::text(std::string_view key) const {
  const QVariant value = settings.value(qString(key));
  switch (value.typeId()) {
    case QMetaType::QString:
    case QMetaType::Double:
    case QMetaType::Bool:
      return value.toString();
    default:
      return std::nullopt;
  }
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
  settings.setValue(qString(key), qString(value));
}

void QtPreferences::setNumber(std::string_view key, double value) {
  settings.setValue(qString(key), value);
}

void QtPreferences::setBoolean(std::string_view key, bool value) {
  settings.setValue(qString(key), value);
}

}  // namespace corvane
