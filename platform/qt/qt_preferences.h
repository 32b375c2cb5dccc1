// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTimer>

#include "platform/preferences.h"
#include "platform/qt/settings_writer.h"

namespace corvane {

/// Preferences in an INI file, read once. When the event loop next runs, all values set since the
/// start are passed to another thread, which writes them, at the latest in the destructor: of two
/// programs the last choice wins as a whole. Other settings keep the values that the file has by
/// then. Comments and other groups are dropped. A file that cannot be read or written is not
/// changed; the choices then last as long as the program.
class QtPreferences final : public Preferences {
 public:
  /// `corvane/corvane.conf` in the user's configuration folder.
  static QString defaultPath();

  explicit QtPreferences(const QString& path = defaultPath());
  ~QtPreferences() override;
  QtPreferences(const QtPreferences&) = delete;
  QtPreferences& operator=(const QtPreferences&) = delete;

  std::optional<std::string> string(std::string_view key) const override;
  std::optional<double> number(std::string_view key) const override;
  std::optional<bool> boolean(std::string_view key) const override;

  /// A text that is not `SettingsText::isPlain` is not saved.
  void setString(std::string_view key, std::string_view value) override;
  void setNumber(std::string_view key, double value) override;
  void setBoolean(std::string_view key, bool value) override;

 private:
  std::optional<QByteArray> text(std::string_view key) const;
  void set(std::string_view key, const QByteArray& value);
  void save();

  const SettingsText::Values stored;  ///< by the file when the program started
  SettingsText::Values chosen;        ///< since then
  bool handedOver = true;             ///< `chosen`, as it is now
  QTimer saving;
  SettingsWriter writer;
};

}  // namespace corvane
