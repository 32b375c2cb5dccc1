// SPDX-License-Identifier: MIT
#include "platform/pulse/pulse_microphone_permission.h"

#include <chrono>
#include <utility>

namespace corvane {

using State = PulseConnection::State;

namespace {

/// The server may ask the user each time.
constexpr std::chrono::seconds pauseBetweenTrials{1};

}  // namespace

PulseMicrophonePermission::PulseMicrophonePermission(PulseConnection& server, MainQueue& queue)
    : connection(server), trial(std::make_unique<PulseAudioInput>(server, queue)) {}

RecordPermission PulseMicrophonePermission::recordPermission() const {
  if (connection.isDenied()) return RecordPermission::denied;
  const bool connected = connection.state() == State::connected;
  return connected ? RecordPermission::granted : RecordPermission::undetermined;
}

void PulseMicrophonePermission::refresh() {
  if (connection.state() == State::refused) connection.connect([](State) {});
  if (connection.recordingRefused()) tryToRecord();
}

/// Starts a recording that is not delivered. The denial stands until it succeeds.
void PulseMicrophonePermission::tryToRecord() {
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
