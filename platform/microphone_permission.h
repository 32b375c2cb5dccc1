// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace corvane {

enum class RecordPermission {
  undetermined,  ///< not requested yet
  denied,
  granted,
  unknown,  ///< the system reported another value
};

/// Whether this program may use the microphone. Every member is called on the main thread.
class MicrophonePermission {
 public:
  virtual ~MicrophonePermission() = default;

  /// What is known now; does not wait. A system without permissions reports granted.
  virtual RecordPermission recordPermission() const = 0;

  /// While denied, asks the system again in the background. `AudioInput::watch` reports a change.
  virtual void refresh() = 0;

  /// Asks the system. `completion` is called once with the outcome, on any thread, perhaps after
  /// the caller was destroyed.
  virtual void requestRecordPermission(std::function<void(bool granted)> completion) = 0;
};

}  // namespace corvane
