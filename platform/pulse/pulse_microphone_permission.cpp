#include "platform/pulse/pulse_microphone_permission.h"

#include <chrono>
#include <utility>

namespace corvane {

using State = PulseConnection::State;

namespace {

/// A server may ask the user each time.
constexpr std::chrono::seconds pauseBetweenTrials{1};

}  // namespace

PulseMicrophonePermission::PulseMicrophonePermission(PulseConnection& server, MainQueue& queue)
    : connection(server), trial(std::make_unique<PulseAudioInput>(server, queue)) {}

RecordPermission PulseMicrophonePermission::recordPermission() const {
  switch (connection.state()) {
    case State::connected:
      if (!connection.recordingRefused()) return RecordPermission::granted;
      tryToRecord();
      return RecordPermission::denied;
    case State::refused:
      connection.connect([](State) {});
      return RecordPermission::denied;
    case State::unknown:
      break;
  }
  return RecordPermission::undetermined;
}

/// By a recording that nobody hears: what the user reads stays until it is no longer true.
void PulseMicrophonePermission::tryToRecord() const {
  const bool justSaid = connection.now() < *connection.recordingRefused() + pauseBetweenTrials;
  const AudioFormat format = trial->inputFormat();
  if (trial->isRunning() || justSaid || format == AudioFormat{}) return;
  trial->installTap(4096, format, [](const AudioBuffer&) {});
  trial->start([this](bool allowed) {
    trial->stop();
    if (allowed) connection.allowRecording();
  });
}

void PulseMicrophonePermission::requestRecordPermission(
    std::function<void(bool granted)> completion) {
  connection.connect([completion = std::move(completion)](State outcome) {
    completion(outcome != State::refused);
  });
}

}  // namespace corvane
