// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>
#include <utility>

#include "platform/qt/settings_text.h"

namespace corvane {

/// A settings file that several programs may use at once. It is replaced atomically: it holds
/// either the old or the new settings, even if the program is killed or the disk is full.
class SettingsFile {
 public:
  explicit SettingsFile(QString file) : path(std::move(file)) {}

  /// The settings; empty without a file, nothing if it cannot be read. Does not wait.
  std::optional<SettingsText::Values> read() const;

  enum class Outcome {
    done,
    busy,    ///< another program is writing
    failed,  ///< the file, or what is in its place, is unchanged
  };

  /// Sets these values and keeps the other settings of the file. Does not wait.
  Outcome change(const SettingsText::Values& values) const;

 private:
  bool replace(const QByteArray& text) const;

  QString path;
};

}  // namespace corvane
