// SPDX-License-Identifier: MIT
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

/// The default source of the audio server, in the device's own format. A start succeeds only if the
/// server is connected (`PulseConnection::connect`). Then it records again by itself after every
/// change of the server or the device.
class PulseAudioInput final : public AudioInput {
 public:
  /// `connection` and `mainQueue` must outlive the input.
  PulseAudioInput(PulseConnection& connection, MainQueue& mainQueue);
  ~PulseAudioInput() override;
  PulseAudioInput(const PulseAudioInput&) = delete;
  PulseAudioInput& operator=(const PulseAudioInput&) = delete;

  bool isRunning() const override { return run != nullptr; }
  void stop() override;
  /// Does nothing: no sound is kept from one start to the next.
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
  /// From `start` until `stop` or the failure of the start: a series of recordings.
  struct Run {
    Started started;  ///< null once called
    std::shared_ptr<MicrophoneFeed> feed;
    std::shared_ptr<Attempt> attempt;        ///< without a stream once that has ended
    std::shared_ptr<const void> watch;       ///< of the server, once started
    std::optional<Clock::Time> absentSince;  ///< while there is no microphone
  };
  /// Decides the outcome of a start.
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
  void reportAbsence();
  Outlook outlook() const;
  void reportChange();
  void silent(std::chrono::milliseconds lasting);
  bool isOfTheDevice() const;
  bool isHopeless(std::chrono::milliseconds silence) const;

  PulseConnection& connection;
  MainQueue& mainQueue;
  std::optional<Installed> installed;
  std::shared_ptr<Run> run;
  std::function<void()> changed;  ///< null unless watched
  std::optional<Outlook> seen;    ///< none until the server's first answer
  std::shared_ptr<const void> watching;
};

}  // namespace corvane
