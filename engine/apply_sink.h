// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "pitch/pitch_detector.h"
#include "platform/main_queue.h"

namespace corvane {

class TunerEngine;

/// Passes readings to the engine on the main thread, while the engine exists.
class ApplySink {
 public:
  ApplySink(std::weak_ptr<TunerEngine> engine, std::shared_ptr<MainQueue> mainQueue);

  /// A reading, or nothing, which makes the display fall back. Any thread; readings are applied in
  /// the order of the calls.
  void deliver(const std::optional<PitchDetector::Reading>& reading) const;

 private:
  std::weak_ptr<TunerEngine> engine;
  std::shared_ptr<MainQueue> mainQueue;
};

}  // namespace corvane
