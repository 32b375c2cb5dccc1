#pragma once

#include <pulse/operation.h>

#include <functional>
#include <vector>

#include "platform/pulse/pulse_stream.h"

namespace corvane {

/// One mono buffer on its way to the default loudspeakers.
class PlayStream final : public PulseStream {
 public:
  /// `ended` is called once on the loop's thread, played out or not. Any thread.
  PlayStream(double sampleRate, std::vector<float> samples, std::function<void()> ended);

  /// Ends the sound at once, and tells it. On the loop's thread.
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
