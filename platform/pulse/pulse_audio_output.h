// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include "platform/audio_output.h"
#include "platform/pulse/play_stream.h"
#include "platform/pulse/pulse_connection.h"

namespace corvane {

/// The default sink of the audio server. Each buffer has its own stream, so that the device can
/// suspend between them. `Ended` is called on the loop's thread.
class PulseAudioOutput final : public AudioOutput {
 public:
  /// `connection` must outlive the output.
  explicit PulseAudioOutput(PulseConnection& connection);
  ~PulseAudioOutput() override;
  PulseAudioOutput(const PulseAudioOutput&) = delete;
  PulseAudioOutput& operator=(const PulseAudioOutput&) = delete;

  /// True after a successful `start` while the server has loudspeakers.
  bool isRunning() const override;
  /// Connects in the background if no server is connected, for the next call.
  bool start(const AudioFormat& format) override;
  void play(std::vector<float> samples, Ended ended) override;

 private:
  void cutOff();

  PulseConnection& connection;
  double sampleRate = 0.0;  ///< Hz; 0 until started
  std::shared_ptr<PlayStream> sounding;
};

}  // namespace corvane
