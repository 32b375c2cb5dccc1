#pragma once

#include <QString>
#include <optional>
#include <utility>

#include "platform/qt/settings_text.h"

namespace corvane {

/// A settings file that several programs may use at once. It is replaced in one step, so that it
/// holds either all of what it held or all of what it shall hold, whatever ends the program or
/// fills the disk meanwhile.
class SettingsFile {
 public:
  explicit SettingsFile(QString file) : path(std::move(file)) {}

  /// What the file holds: nothing of it when there is none, and no answer when there is something
  /// that cannot be read. Waits for nobody.
  std::optional<SettingsText::Values> read() const;

  enum class Outcome {
    done,
    busy,    ///< another program is writing
    failed,  ///< the file, or what is in its place, is as it was
  };

  /// Gives the file these values, beside whatever else it holds by now. Waits for nobody.
  Outcome change(const SettingsText::Values& values) const;

 private:
  bool replace(const QByteArray& text) const;

  QString path;
};

}  // namespace corvane
