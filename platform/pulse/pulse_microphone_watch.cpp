#include "platform/pulse/pulse_microphone_watch.h"

#include <utility>

namespace corvane {

PulseMicrophoneWatch::PulseMicrophoneWatch(PulseConnection& server) : connection(server) {}

void PulseMicrophoneWatch::begin(std::function<void(bool present)> tell) {
  changed = std::move(tell);
  seen.reset();
  if (connection.state() == PulseConnection::State::connected) seen = see();
  watch = connection.watch([this] { look(); });
}

/// Whoever begins to watch is about to ask for a microphone too, and learns the first answer so.
void PulseMicrophoneWatch::look() {
  const auto before = std::exchange(seen, see());
  if (before && before != seen) changed(seen->present);
}

PulseMicrophoneWatch::Seen PulseMicrophoneWatch::see() const {
  return {.denied = connection.state() == PulseConnection::State::refused ||
                    connection.recordingRefused(),
          .present = connection.recordable() != AudioFormat{}};
}

}  // namespace corvane
