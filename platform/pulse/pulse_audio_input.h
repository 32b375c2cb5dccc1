#pragma once

#include <memory>
#include <optional>

#include "platform/audio_input.h"
#include "platform/main_queue.h"
#include "platform/pulse/pulse_connection.h"
#include "platform/pulse/record_stream.h"

namespace corvane {

/// The microphone that the audio server has as its default, in the device's own format. The
/// server must be connected (`PulseConnection::connect`) for it to tell or record anything.
class PulseAudioInput final : public AudioInput {
 public:
  /// `connection` and `mainQueue` must outlive the input.
  PulseAudioInput(PulseConnection& connection, MainQueue& mainQueue);
  ~PulseAudioInput() override;
  PulseAudioInput(const PulseAudioInput&) = delete;
  PulseAudioInput& operator=(const PulseAudioInput&) = delete;

  /// Also false once a recording has ended by itself, as it does when the server goes.
  bool isRunning() const override { return run != nullptr; }
  void stop() override;
  /// Nothing is kept from one start to the next, so nothing is left to drop.
  void reset() override;
  AudioFormat inputFormat() const override;
  AudioFormat outputFormat() const override;
  void installTap(std::uint32_t frames, const AudioFormat& format, Tap tap) override;
  void start(Started started) override;

 private:
  struct Installed {
    std::uint32_t frames;
    AudioFormat format;
    Tap tap;
  };
  struct Run {
    Started started;  ///< none once it has been told
    std::shared_ptr<RecordStream> stream;
  };

  RecordStream::Observer observer();
  pa_channel_map channelOrder(const AudioFormat& format) const;
  void ready();
  void ended(int error);

  PulseConnection& connection;
  MainQueue& mainQueue;
  std::optional<Installed> installed;
  std::shared_ptr<Run> run;  ///< from `start` until `stop` or the recording's end
};

}  // namespace corvane
