#pragma once

#include <functional>

namespace corvane {

/// Whether there is something to listen with, for those who do not listen. Main thread only.
class MicrophoneWatch {
 public:
  virtual ~MicrophoneWatch() = default;

  /// Until `end`, calls `changed` with true when a microphone has come, and with false when there
  /// has been none for so long that the user should know.
  virtual void begin(std::function<void(bool present)> changed) = 0;
  virtual void end() = 0;
};

}  // namespace corvane
