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

  /// While denied, each query has the server asked again meanwhile, unless it has just said so:
  /// nobody tells when the user allows the microphone elsewhere.
  RecordPermission recordPermission() const override;

  /// `completion` is called on the main thread, after this call.
  void requestRecordPermission(std::function<void(bool granted)> completion) override;

 private:
  void tryToRecord() const;

  PulseConnection& connection;
  const std::unique_ptr<PulseAudioInput> trial;
};

}  // namespace corvane
