// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/qt/settings_file.h"

namespace corvane {

/// Writes values into a settings file on its own thread, because a busy disk may take seconds. A
/// failed save is retried, at growing intervals, and once more at the end.
class SettingsWriter {
 public:
  explicit SettingsWriter(SettingsFile settings) : file(std::move(settings)) {}
  /// Saves what is not in the file yet. Waits for a save in progress, and up to a second for
  /// another program that writes.
  ~SettingsWriter();
  SettingsWriter(const SettingsWriter&) = delete;
  SettingsWriter& operator=(const SettingsWriter&) = delete;

  /// Returns at once; the values, which replace those of the last call, will be in the file soon.
  /// One thread only.
  void write(SettingsText::Values values);

 private:
  void run();
  SettingsFile::Outcome save(std::unique_lock<std::mutex>& held);

  const SettingsFile file;
  std::mutex gate;
  std::condition_variable changed;
  SettingsText::Values unsaved;  ///< under `gate`
  bool isNew = false;            ///< under `gate`: no save of `unsaved` has begun
  bool ending = false;           ///< under `gate`
  std::thread thread;            ///< from the first change on
};

}  // namespace corvane
