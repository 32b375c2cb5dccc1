#pragma once

#include <QString>
#include <QTimer>

#include "platform/preferences.h"
#include "platform/qt/settings_writer.h"

namespace corvane {

/// Preferences in an INI file, read once. All that have been set since are handed over together
/// when the event loop next runs, and written on another thread, at the latest in the end: of two
/// programs the last choice wins as a whole. Settings that we do not know keep the values that they
/// have by then; what is no setting of the group "General", as a remark or another group, is not
/// kept. A file that cannot be read is left as it is, and so is one that cannot be written, until
/// it can: until then the choices last as long as the program.
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

  /// A text that is not `SettingsText::isPlain` lasts as long as the program.
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
