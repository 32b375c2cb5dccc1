#include "platform/pulse/pulse_microphone_permission.h"

#include <utility>

namespace corvane {

using State = PulseConnection::State;

PulseMicrophonePermission::PulseMicrophonePermission(PulseConnection& server)
    : connection(server) {}

RecordPermission PulseMicrophonePermission::recordPermission() const {
  switch (connection.state()) {
    case State::connected:
      return RecordPermission::granted;
    case State::refused:
      connection.connect([](State) {});
      return RecordPermission::denied;
    case State::unknown:
      break;
  }
  return RecordPermission::undetermined;
}

void PulseMicrophonePermission::requestRecordPermission(
    std::function<void(bool granted)> completion) {
  connection.connect([completion = std::move(completion)](State outcome) {
    completion(outcome != State::refused);
  });
}

}  // namespace corvane
