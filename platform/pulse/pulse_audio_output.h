#pragma once

#include <memory>
#include <vector>

#include "platform/audio_output.h"
#include "platform/pulse/play_stream.h"
#include "platform/pulse/pulse_connection.h"

namespace corvane {

/// The loudspeakers that the audio server has as its default. Each buffer is a stream of its own,
/// so that the server's device sleeps between them; `Ended` comes on the thread that speaks to the
/// server.
class PulseAudioOutput final : public AudioOutput {
 public:
  /// `connection` must outlive the output.
  explicit PulseAudioOutput(PulseConnection& connection);
  ~PulseAudioOutput() override;
  PulseAudioOutput(const PulseAudioOutput&) = delete;
  PulseAudioOutput& operator=(const PulseAudioOutput&) = delete;

  /// True while there is a server with loudspeakers and `start` has succeeded.
  bool isRunning() const override;
  /// A server that is not connected is asked meanwhile, for the next time.
  bool start(const AudioFormat& format) override;
  void play(std::vector<float> samples, Ended ended) override;

 private:
  void cutOff();

  PulseConnection& connection;
  double sampleRate = 0.0;  ///< Hz; 0 until started
  std::shared_ptr<PlayStream> sounding;
};

}  // namespace corvane
