// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/pulse/pulse_audio_input.h"
#include "platform/pulse/pulse_audio_output.h"
#include "platform/pulse/pulse_connection.h"
#include "platform/pulse/pulse_microphone_permission.h"
#include "platform/pulse/tests/coded_signal.h"
#include "platform/pulse/tests/test_clock.h"
#include "tests/support/audio_server.h"
#include "tests/support/pumped_queue.h"

namespace corvane {

namespace support {

inline void PrintTo(AudioServer::Kind kind, std::ostream* out) {
  *out << nameOf(kind);
}

}  // namespace support

/// Keeps the buffers of a tap for the test's thread.
class Recording {
 public:
  AudioInput::Tap tap();
  /// The buffers since the last `take`, without the first `from`.
  std::vector<RecordedBuffer> buffers(std::size_t from = 0) const;
  std::size_t size() const;
  /// Passes all buffers to `look`, drops them, and calls `measure` before any other is kept.
  template <class Look, class Measure>
  auto withoutAny(const Look& look, const Measure& measure) {
    const std::lock_guard held(lock);
    look(kept);
    kept = {};
    return measure();
  }
  /// Moves all buffers out.
  std::vector<RecordedBuffer> take();

 private:
  mutable std::mutex lock;
  std::vector<RecordedBuffer> kept;
};

/// Keeps the reported ends of buffers in order, with their thread: "1 on corvane.pulse".
class Ends {
 public:
  AudioOutput::Ended of(int buffer);
  std::vector<std::string> told() const;

 private:
  mutable std::mutex lock;
  std::vector<std::string> all;
};

/// The adapters as the engine uses them, with the test's thread as the main thread. Tests declare
/// their private home or server before it.
class Client {
 public:
  static constexpr std::uint32_t bufferFrames = 4096;
  /// The user notices a main thread that is busy for longer. Tests with a hung server and a stopped
  /// clock show that it does not wait: it would wait forever.
  static constexpr std::chrono::milliseconds longestJob{100};

  Client();
  /// Fails the test if a job, or destruction, took longer than `longestJob`.
  ~Client();
  void begin();
  /// Destroys the adapters; nothing is reported afterwards.
  void end();

  /// Makes a call of the main thread, which may not take long.
  void prompt(const std::function<void()>& call);
  /// Moves the clock. When this returns, all due timers have run.
  void advance(std::chrono::milliseconds duration);
  bool pumpUntil(const std::function<bool()>& condition);
  /// Returns once the loop has run all earlier jobs.
  void waitForTheLoop();
  /// The default source as the server reports it to this client; empty without a server.
  std::string defaultSource();
  void reconnect();

  /// Requests permission; the outcome.
  std::optional<bool> ask();
  /// Starts recording, by default in the device's own format; sets `outcome` when the start ends.
  void start(std::optional<bool>& outcome, const AudioFormat& format);
  void start(std::optional<bool>& outcome) { start(outcome, input->inputFormat()); }
  /// Starts and waits for the outcome; nothing without a format or an outcome.
  std::optional<bool> listen();
  void stop();
  /// Pumps until `count` more buffers of the coded signal of `room` have arrived.
  bool hear(std::uint32_t room, std::size_t count);
  /// Waits until the device has this format; false if it never has.
  bool finds(const AudioFormat& format);

  bool startOutput();
  void press(int buffer, std::vector<float> samples);
  bool waitForEnds(int count);
  /// Waits for the ends of buffers 1 to `count`, destroys the adapters, and fails unless each end
  /// was reported once, in order, on the loop's thread.
  void expectEnds(int count);

  Recording recording;
  Ends ends;
  support::PumpedQueue mainQueue;
  std::optional<PulseConnection> connection;
  std::optional<PulseMicrophonePermission> permission;
  std::optional<PulseAudioInput> input;
  std::optional<PulseAudioOutput> output;
};

/// A client and a server of the parameter's kind.
class PulseTest : public testing::TestWithParam<support::AudioServer::Kind> {
 protected:
  static constexpr AudioFormat stereo{48000.0, 2};
  /// The room of the microphone has loudspeakers.
  static constexpr const char* loudspeakers = "mic-room";

  PulseTest() { testClock().stop(); }

  bool onPipeWire() const { return GetParam() == support::AudioServer::Kind::pipeWire; }
  /// Returns once the server reports it to the client too. PipeWire 0.3 sometimes stops reporting
  /// changes to one client: that is printed, and the client reconnects, at most ten times.
  void setDefaultSource(const std::string& name);
  void addMicrophone(const std::string& name = "mic", const AudioFormat& format = stereo);
  /// Plays the coded signal of `room` to a microphone of the server, for `seconds`.
  void play(const std::string& microphone, std::uint32_t room, const AudioFormat& format = stereo);
  /// Adds a microphone and plays to it.
  void addSoundingMicrophone(const std::string& name, std::uint32_t room,
                             const AudioFormat& format = stereo);
  /// Adds a microphone, plays room 1 to it and records from it.
  void listenToMicrophone(const AudioFormat& format = stereo);

  /// Adds the loudspeakers and starts the output.
  void startOutput(const AudioFormat& format = {44100.0, 1});
  void addLoudspeakers(const AudioFormat& format = {44100.0, 1});
  /// Plays twenty seconds of sound and waits until the server plays it.
  void pressUntilTheServerPlays(int buffer);

  /// The number of this program's streams of a kind, "source-outputs" or "sink-inputs".
  std::ptrdiff_t streams(const char* kind);
  bool forgets(const char* kind);
  /// The server's latency, in s, between this program's stream, in the list `kind`, and a device in
  /// the list `devices`.
  double latencyOf(const char* devices, const std::string& device, const char* kind);

  /// Fails if `faultOf` finds a fault. Repeats it, ten times at most, when the server reports that
  /// it lost sound meanwhile.
  void expectNoFault(const std::function<std::string()>& faultOf);

  double seconds = 60.0;
  support::AudioServer server{GetParam()};
  Client client;
  std::vector<std::unique_ptr<support::ChildProcess>> players;
};

/// Both servers, by name.
inline auto eitherServer() {
  return testing::Values(support::AudioServer::Kind::pulseAudio,
                         support::AudioServer::Kind::pipeWire);
}

inline std::string serverName(const testing::TestParamInfo<support::AudioServer::Kind>& info) {
  return nameOf(info.param);
}

}  // namespace corvane
