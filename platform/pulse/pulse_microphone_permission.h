// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/microphone_permission.h"
#include "platform/pulse/pulse_audio_input.h"
#include "platform/pulse/pulse_connection.h"

namespace corvane {

/// The microphone permission of an audio server: it accepts this program and its recordings. A
/// server that cannot be reached denies nothing, so the request is granted and the microphone is
/// reported missing. The permission stays undetermined, so the next start asks again and finds a
/// server that has returned.
class PulseMicrophonePermission final : public MicrophonePermission {
 public:
  /// `connection` and `mainQueue` must outlive the permission.
  PulseMicrophonePermission(PulseConnection& connection, MainQueue& mainQueue);

  RecordPermission recordPermission() const override;
  /// Needed because no server reports that the user allowed the microphone. Does nothing within a
  /// second after a refused recording.
  void refresh() override;

  /// `completion` is called on the main thread, after this call.
  void requestRecordPermission(std::function<void(bool granted)> completion) override;

 private:
  void tryToRecord();

  PulseConnection& connection;
  const std::unique_ptr<PulseAudioInput> trial;
};

}  // namespace corvane
