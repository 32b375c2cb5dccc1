#pragma once

#include <memory>
#include <optional>

#include "platform/microphone_watch.h"
#include "platform/pulse/pulse_connection.h"

namespace corvane {

/// Sees microphones come and go on the audio server, and the server itself.
class PulseMicrophoneWatch final : public MicrophoneWatch {
 public:
  /// `connection` must outlive the watch.
  explicit PulseMicrophoneWatch(PulseConnection& connection);

  void begin(std::function<void(bool present)> changed) override;
  void end() override { watch = nullptr; }

 private:
  void look();

  struct Seen {
    bool denied, present;
    bool operator==(const Seen&) const = default;
  };
  Seen see() const;

  PulseConnection& connection;
  std::function<void(bool present)> changed;
  std::optional<Seen> seen;  ///< none until the server's first answer
  std::shared_ptr<const void> watch;
};

}  // namespace corvane
