#include "platform/pulse/pulse_microphone_watch.h"

#include <utility>

namespace corvane {

PulseMicrophoneWatch::PulseMicrophoneWatch(PulseConnection& server) : connection(server) {}

void PulseMicrophoneWatch::begin(std::function<void(bool present)> tell) {
  changed = std::move(tell);
  present.reset();
  if (connection.state() == PulseConnection::State::connected) present = isPresent();
  watch = connection.watch([this] { look(); });
}

/// Whoever begins to watch is about to ask for a microphone too, and learns the first answer so.
void PulseMicrophoneWatch::look() {
  const auto before = std::exchange(present, isPresent());
  if (before && before != present) changed(*present);
}

}  // namespace corvane
