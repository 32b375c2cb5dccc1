#pragma once

#include <QSettings>
#include <QString>

#include "platform/preferences.h"

namespace corvane {

/// Preferences in a file of `key=value` lines. Values are kept in memory and written when the event
/// loop next runs; a file that cannot be read counts as empty, one that cannot be written is left
/// as it is. A text must be one line without spaces at its ends.
class QtPreferences final : public Preferences {
 public:
  /// `corvane/corvane.conf` in the user's configuration folder.
  static QString defaultPath();

  explicit QtPreferences(const QString& path = defaultPath());

  std::optional<std::string> string(std::string_view key) const override;
  std::optional<double> number(std::string_view key) const override;
  std::optional<bool> boolean(std::string_view key) const override;

  void setString(std::string_view key, std::string_view value) override;
  void setNumber(std::string_view key, double value) override;
  void setBoolean(std::string_view key, bool value) override;

 private:
  std::optional<QString> text(std::string_view key) const;

  QSettings settings;
};

}  // namespace corvane
