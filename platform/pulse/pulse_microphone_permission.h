#pragma once

#include <memory>

#include "platform/microphone_permission.h"
#include "platform/pulse/pulse_audio_input.h"
#include "platform/pulse/pulse_connection.h"

namespace corvane {

/// The microphone permission as an audio server gives it: by letting this program in and letting it
/// record. A server that cannot be reached denies nothing, so the request is granted all the same
/// and the missing microphone is the news; the permission then stays undetermined, so that the next
/// start asks anew and finds a server that has come back.
class PulseMicrophonePermission final : public MicrophonePermission {
 public:
  /// `connection` and `mainQueue` must outlive the permission.
  PulseMicrophonePermission(PulseConnection& connection, MainQueue& mainQueue);

  RecordPermission recordPermission() const override;
  /// No server reports that the user has allowed the microphone. A server that has refused a
  /// recording less than a second ago is not asked.
  void refresh() override;

  /// `completion` is called on the main thread, after this call.
  void requestRecordPermission(std::function<void(bool granted)> completion) override;

 private:
  void tryToRecord();

  PulseConnection& connection;
  const std::unique_ptr<PulseAudioInput> trial;
};

}  // namespace corvane
