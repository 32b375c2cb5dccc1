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

/// Keeps what a tap was given, for the test's thread to look at.
class Recording {
 public:
  AudioInput::Tap tap();
  /// All but the first `from` of those that have been kept since the last `take`.
  std::vector<RecordedBuffer> buffers(std::size_t from = 0) const;
  std::size_t size() const;
  /// Gives all that has been kept to `look`, and calls `measure` before anything is kept again.
  template <class Look, class Measure>
  auto withoutAny(const Look& look, const Measure& measure) {
    const std::lock_guard held(lock);
    look(kept);
    kept = {};
    return measure();
  }
  /// Gives away all that has been kept.
  std::vector<RecordedBuffer> take();

 private:
  mutable std::mutex lock;
  std::vector<RecordedBuffer> kept;
};

/// Keeps which buffers' ends have been told, in order, and on which thread: "1 on corvane.pulse".
class Ends {
 public:
  AudioOutput::Ended of(int buffer);
  std::vector<std::string> told() const;

 private:
  mutable std::mutex lock;
  std::vector<std::string> all;
};

/// This program as the engine uses it, with the test's thread as the main thread. Derived tests
/// have a private home or server before it.
class Client {
 public:
  static constexpr std::uint32_t bufferFrames = 4096;
  /// A busy main thread becomes visible to the user from a tenth of a second on. That it waits for
  /// no server is shown where a server hangs while the clock stands still: it would wait for ever.
  static constexpr std::chrono::milliseconds longestJob{100};

  Client();
  /// Fails the test when something has kept the main thread busy, destruction included.
  ~Client();
  void begin();
  /// Ends the program's audio, after which nothing can be told any more.
  void end();

  /// Calls on the main thread, which it may not keep busy.
  void prompt(const std::function<void()>& call);
  /// Moves the clock. When it returns, what is due has been done.
  void advance(std::chrono::milliseconds duration);
  bool pumpUntil(const std::function<bool()>& condition);
  /// Returns once the loop has run every job before.
  void waitForTheLoop();
  /// The default source as the server tells it to this program; empty without a server.
  std::string defaultSource();
  void reconnect();

  /// Asks for permission; the outcome.
  std::optional<bool> ask();
  /// Starts recording, in the device's own format unless told otherwise; `outcome` is how the
  /// start ends.
  void start(std::optional<bool>& outcome, const AudioFormat& format);
  void start(std::optional<bool>& outcome) { start(outcome, input->inputFormat()); }
  /// The same and waits; nothing when there is no format or no end.
  std::optional<bool> listen();
  void stop();
  /// Pumps until `count` buffers of the coded signal of `room` have come since now.
  bool hear(std::uint32_t room, std::size_t count);
  /// Whether the device has this format, in time.
  bool finds(const AudioFormat& format);

  bool startOutput();
  void press(int buffer, std::vector<float> samples);
  bool waitForEnds(int count);
  /// Waits for the ends of buffers 1 to `count`, ends the program's audio, and fails unless each
  /// end was told once, in order, on the loop's thread.
  void expectEnds(int count);

  Recording recording;
  Ends ends;
  support::PumpedQueue mainQueue;
  std::optional<PulseConnection> connection;
  std::optional<PulseMicrophonePermission> permission;
  std::optional<PulseAudioInput> input;
  std::optional<PulseAudioOutput> output;
};

/// A client and a server of either kind.
class PulseTest : public testing::TestWithParam<support::AudioServer::Kind> {
 protected:
  static constexpr AudioFormat stereo{48000.0, 2};
  /// The room of the microphone has loudspeakers.
  static constexpr const char* loudspeakers = "mic-room";

  PulseTest() { testClock().stop(); }

  bool onPipeWire() const { return GetParam() == support::AudioServer::Kind::pipeWire; }
  /// Returns once the server reports it to the client too. PipeWire 0.3 sometimes stops reporting
  /// changes to one client: that is printed, and the client connects anew, at most ten times.
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
  /// Twenty seconds of sound: as good as endless. Waits until the server plays it.
  void pressUntilTheServerPlays(int buffer);

  /// How many streams of a kind, "source-outputs" or "sink-inputs", this program has there.
  std::ptrdiff_t streams(const char* kind);
  bool forgets(const char* kind);
  /// How long, in s, the server keeps the sound of this program's stream, which is in the list
  /// `kind`, on its way from or to a device in the list `devices`.
  double latencyOf(const char* devices, const std::string& device, const char* kind);

  /// Measures until `faultOf` finds nothing, and again, ten times in all, where the server says
  /// that it has lost sound meanwhile.
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
