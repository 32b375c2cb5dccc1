#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "platform/audio_input.h"
#include "platform/main_queue.h"
#include "platform/pulse/microphone_feed.h"
#include "platform/pulse/pulse_connection.h"
#include "platform/pulse/record_stream.h"

namespace corvane {

/// The microphone that the audio server has as its default, in the device's own format. The
/// server must be connected (`PulseConnection::connect`) for a start to succeed. From then on it
/// records again by itself after whatever happened to the server or the device.
class PulseAudioInput final : public AudioInput {
 public:
  /// `connection` and `mainQueue` must outlive the input.
  PulseAudioInput(PulseConnection& connection, MainQueue& mainQueue);
  ~PulseAudioInput() override;
  PulseAudioInput(const PulseAudioInput&) = delete;
  PulseAudioInput& operator=(const PulseAudioInput&) = delete;

  bool isRunning() const override { return run != nullptr; }
  void stop() override;
  /// Nothing is kept from one start to the next, so nothing is left to drop.
  void reset() override;
  AudioFormat inputFormat() const override;
  AudioFormat outputFormat() const override;
  void installTap(std::uint32_t frames, const AudioFormat& format, Tap tap) override;
  void start(Started started) override;
  void watch(std::function<void()> changed) override;

 private:
  struct Installed {
    std::uint32_t frames;
    AudioFormat format;
    Tap tap;
  };
  struct Attempt {
    std::shared_ptr<RecordStream> stream;
    AudioFormat format;
    pa_channel_map order{};
    Clock::Time begun;
    bool ready = false;
  };
  /// From `start` until `stop` or the start's failure: one recording after the other.
  struct Run {
    Started started;  ///< none once it has been told
    std::shared_ptr<MicrophoneFeed> feed;
    std::shared_ptr<Attempt> attempt;      ///< also after its stream has ended, which it then lacks
    std::shared_ptr<const void> watch;     ///< of the server; once started
    std::optional<Clock::Time> deafSince;  ///< none while there is a microphone
  };
  /// What decides how a start ends.
  struct Outlook {
    bool denied, present;
    bool operator==(const Outlook&) const = default;
  };

  void open(const AudioFormat& format);
  void close();
  RecordStream::Observer observer();
  std::function<void(std::function<void()>)> poster(std::weak_ptr<void> lifetime) const;
  pa_channel_map channelOrder(const AudioFormat& format) const;
  void ready();
  void ended(int error);
  void serverChanged();
  void goWithout();
  Outlook outlook() const;
  void lookAgain();
  void silent(std::chrono::milliseconds lasting);
  bool isOfTheDevice() const;
  bool isHopeless(std::chrono::milliseconds silence) const;

  PulseConnection& connection;
  MainQueue& mainQueue;
  std::optional<Installed> installed;
  std::shared_ptr<Run> run;
  std::function<void()> changed;  ///< null while nobody watches
  std::optional<Outlook> seen;    ///< none until the server's first answer
  std::shared_ptr<const void> watching;
};

}  // namespace corvane
