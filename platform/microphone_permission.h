#pragma once

#include <functional>

namespace corvane {

enum class RecordPermission {
  undetermined,  ///< nobody has asked yet
  denied,
  granted,
  unknown,  ///< the system gave an answer that is none of these
};

/// Whether this program may use the microphone. Every member is called on the main thread.
class MicrophonePermission {
 public:
  virtual ~MicrophonePermission() = default;

  /// What is known now; never waits. A system without the concept answers granted.
  virtual RecordPermission recordPermission() const = 0;

  /// While denied, asks the system again in the background. `AudioInput::watch` reports a change.
  virtual void refresh() = 0;

  /// Asks the system. `completion` is called once with the outcome, on any thread, also after the
  /// caller is gone.
  virtual void requestRecordPermission(std::function<void(bool granted)> completion) = 0;
};

}  // namespace corvane
