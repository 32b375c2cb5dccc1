#pragma once

#include <functional>

namespace corvane {

/// Whether there is something to listen with, and whether we may. Main thread only.
class MicrophoneWatch {
 public:
  virtual ~MicrophoneWatch() = default;

  /// Until `end`, calls `changed` after each change: with true when there is a microphone that we
  /// may use, else with false.
  virtual void begin(std::function<void(bool present)> changed) = 0;
  virtual void end() = 0;
};

}  // namespace corvane
