#pragma once

#include <memory>
#include <optional>

#include "pitch/pitch_detector.h"
#include "platform/main_queue.h"

namespace corvane {

class TunerEngine;

/// Hands readings to the engine on the main thread, for as long as there is an engine.
class ApplySink {
 public:
  ApplySink(std::weak_ptr<TunerEngine> engine, std::shared_ptr<MainQueue> mainQueue);

  /// A reading, or nothing, which the engine must hear of too: it lets the display fall back. Any
  /// thread; readings are applied in the order of the calls.
  void deliver(const std::optional<PitchDetector::Reading>& reading) const;

 private:
  std::weak_ptr<TunerEngine> engine;
  std::shared_ptr<MainQueue> mainQueue;
};

}  // namespace corvane
