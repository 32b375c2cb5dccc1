#include "platform/qt/qt_preferences.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QLocale>
#include <QStandardPaths>
#include <QThread>

namespace corvane {
namespace {

/// In milliseconds. Another program takes a few to write.
constexpr int pauseWhileBusy = 10;
constexpr int patienceInTheEnd = 1000;

/// Whatever is not plain was not written by us.
SettingsText::Values plainValues(const SettingsFile& file) {
  auto values = file.read().value_or(SettingsText::Values());
  std::erase_if(values, [](const auto& entry) { return !SettingsText::isPlain(entry.second); });
  return values;
}

QByteArray bytes(std::string_view text) {
  return {text.data(), static_cast<qsizetype>(text.size())};
}

}  // namespace

QString QtPreferences::defaultPath() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/corvane/corvane.conf");
}

QtPreferences::QtPreferences(const QString& path) : file(path), values(plainValues(file)) {
  saving.setSingleShot(true);
  saving.callOnTimeout([this] { saveNow(); });
}

QtPreferences::~QtPreferences() {
  const QDeadlineTimer end(patienceInTheEnd);
  while (save() == SettingsFile::Outcome::busy && !end.hasExpired()) {
    QThread::msleep(pauseWhileBusy);
  }
}

std::optional<QByteArray> QtPreferences::text(std::string_view key) const {
  const auto found = values.find(bytes(key));
  if (found == values.end()) return std::nullopt;
  return found->second;
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

/// What is as it was is not written again: another program may have changed it since.
void QtPreferences::set(std::string_view key, const QByteArray& value) {
  const QByteArray name = bytes(key);
  if (text(key) == value) return;
  values[name] = value;
  if (!SettingsText::isPlain(name) || !SettingsText::isPlain(value)) return;
  unsaved[name] = value;
  if (QCoreApplication::instance() != nullptr) saving.start(0);
}

void QtPreferences::saveNow() {
  if (save() == SettingsFile::Outcome::busy) saving.start(pauseWhileBusy);
}

SettingsFile::Outcome QtPreferences::save() {
  if (unsaved.empty()) return SettingsFile::Outcome::done;
  const auto outcome = file.change(unsaved);
  if (outcome == SettingsFile::Outcome::done) unsaved.clear();
  return outcome;
}

}  // namespace corvane
