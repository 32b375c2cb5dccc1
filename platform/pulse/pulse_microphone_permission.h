#pragma once

#include "platform/microphone_permission.h"
#include "platform/pulse/pulse_connection.h"

namespace corvane {

/// The microphone permission as an audio server gives it: by letting this program in. A server
/// that cannot be reached denies nothing, so the request is granted all the same and the missing
/// microphone is the news; the permission then stays undetermined, so that the next start asks
/// anew and finds a server that has come back.
class PulseMicrophonePermission final : public MicrophonePermission {
 public:
  /// `connection` must outlive the permission.
  explicit PulseMicrophonePermission(PulseConnection& connection);

  /// While denied, each query has the server asked again meanwhile: nobody tells when the user
  /// allows the microphone elsewhere.
  RecordPermission recordPermission() const override;

  /// `completion` is called on the main thread, after this call.
  void requestRecordPermission(std::function<void(bool granted)> completion) override;

 private:
  PulseConnection& connection;
};

}  // namespace corvane
