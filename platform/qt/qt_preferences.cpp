// SPDX-License-Identifier: MIT
#include "platform/qt/qt_preferences.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QStandardPaths>
#include <utility>

namespace corvane {
namespace {

/// What this program writes, and what it accepts from a file.
SettingsText::Values onlyPlain(SettingsText::Values values) {
  std::erase_if(values, [](const auto& entry) {
    return !SettingsText::isPlain(entry.first) || !SettingsText::isPlain(entry.second);
  });
  return values;
}

QByteArray bytes(std::string_view text) {
  return {text.data(), static_cast<qsizetype>(text.size())};
}

}  // namespace

QString QtPreferences::defaultPath() {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  // Ignore a relative XDG_CONFIG_HOME, which depends on the working directory.
  if (QDir::isRelativePath(folder)) folder = QDir::homePath() + QStringLiteral("/.config");
  return folder + QStringLiteral("/corvane/corvane.conf");
}

QtPreferences::QtPreferences(const QString& path)
    : stored(onlyPlain(SettingsFile(path).read().value_or(SettingsText::Values()))),
      writer(SettingsFile(path)) {
  saving.setSingleShot(true);
  saving.callOnTimeout([this] { save(); });
}

QtPreferences::~QtPreferences() {
  save();
}

std::optional<QByteArray> QtPreferences::text(std::string_view key) const {
  for (const auto* values : {&chosen, &stored}) {
    const auto found = values->find(bytes(key));
    if (found != values->end()) return found->second;
  }
  return std::nullopt;
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
  if (value == "true") return true;
  if (value == "false") return false;
  return std::nullopt;
}

void QtPreferences::setString(std::string_view key, std::string_view value) {
  set(key, bytes(value));
}

void QtPreferences::setNumber(std::string_view key, double value) {
  set(key, QByteArray::number(value, 'g', QLocale::FloatingPointShortest));
}

void QtPreferences::setBoolean(std::string_view key, bool value) {
  set(key, value ? "true" : "false");
}

void QtPreferences::set(std::string_view key, const QByteArray& value) {
  chosen[bytes(key)] = value;
  handedOver = false;
  if (QCoreApplication::instance() != nullptr) saving.start(0);
}

void QtPreferences::save() {
  if (!std::exchange(handedOver, true)) writer.write(onlyPlain(chosen));
}

}  // namespace corvane
