// SPDX-License-Identifier: MIT
#pragma once

#include <pulse/operation.h>

#include <functional>
#include <vector>

#include "platform/pulse/pulse_stream.h"

namespace corvane {

/// Plays one mono buffer on the default sink.
class PlayStream final : public PulseStream {
 public:
  /// `ended` is called once on the loop's thread, when the buffer was played or cut off. Any
  /// thread.
  PlayStream(double sampleRate, std::vector<float> samples, std::function<void()> ended);

  /// Ends the sound immediately and calls `ended`. On the loop's thread.
  void cutOff();

 private:
  bool connect() override;
  void ready() override;
  void ended(int error) override;
  void disconnectCallbacks() override;

  std::vector<float> samples;
  std::function<void()> onEnd;
  pa_operation* drain = nullptr;  ///< from `ready` until the end
};

}  // namespace corvane
