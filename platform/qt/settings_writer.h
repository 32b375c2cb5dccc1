#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "platform/qt/settings_file.h"

namespace corvane {

/// Puts values into a settings file on a thread of its own, so that nobody waits for the disk,
/// which may take seconds while it has other work. What could not be written is tried again, ever
/// less often, and once more in the end.
class SettingsWriter {
 public:
  explicit SettingsWriter(SettingsFile settings) : file(std::move(settings)) {}
  /// Saves what is not in the file yet. Waits for a save that is under way, and up to a second for
  /// another program that writes.
  ~SettingsWriter();
  SettingsWriter(const SettingsWriter&) = delete;
  SettingsWriter& operator=(const SettingsWriter&) = delete;

  /// Returns at once; the values, in the place of those of the last call, will be in the file soon.
  /// One thread only.
  void write(const SettingsText::Values& values);

 private:
  void start();
  void run();
  bool takeValues(std::optional<std::chrono::milliseconds> limit);
  SettingsFile::Outcome save();

  const SettingsFile file;
  std::mutex gate;
  std::condition_variable changed;
  SettingsText::Values handedOver;  ///< under `gate`; none once taken
  bool ending = false;              ///< under `gate`
  SettingsText::Values unsaved;     ///< of the thread, while there is one
  std::thread thread;               ///< from the first change on
};

}  // namespace corvane
