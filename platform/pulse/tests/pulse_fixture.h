#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/pulse/pulse_audio_input.h"
#include "platform/pulse/pulse_connection.h"
#include "platform/pulse/pulse_microphone_permission.h"
#include "platform/pulse/tests/coded_signal.h"
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
  /// All but the first `from` of those that have been kept since the last `clear`.
  std::vector<RecordedBuffer> buffers(std::size_t from = 0) const;
  std::size_t size() const;
  void clear();
  /// Gives away all that has been kept.
  std::vector<RecordedBuffer> take();

 private:
  mutable std::mutex lock;
  std::vector<RecordedBuffer> kept;
};

/// This program as the engine uses it, with the test's thread as the main thread. Derived tests
/// have a private home or server before it.
class Client {
 public:
  static constexpr std::uint32_t bufferFrames = 4096;
  /// A wait on the main thread becomes visible to the user from a tenth of a second on.
  static constexpr std::chrono::milliseconds longestWait{100};

  Client();
  /// Fails the test when something has held the main thread, destruction included.
  ~Client();

  /// Calls on the main thread, which it may not hold.
  void prompt(const std::function<void()>& call);

  /// Asks for permission; the outcome, or nothing within `limit`.
  std::optional<bool> ask(std::chrono::seconds limit = std::chrono::seconds(10));
  /// Starts recording in the device's own format; how the start ended, or nothing when
  /// there is no format or no end within 10 s.
  std::optional<bool> listen();
  void stop();

  bool pumpUntil(const std::function<bool()>& condition,
                 std::chrono::seconds limit = std::chrono::seconds(10));
  /// Pumps until `count` buffers of the coded signal of `room` have come since now.
  bool hear(std::uint32_t room, std::size_t count,
            std::chrono::seconds limit = std::chrono::seconds(10));

  Recording recording;
  support::PumpedQueue mainQueue;
  std::optional<PulseConnection> connection;
  std::optional<PulseMicrophonePermission> permission;
  std::optional<PulseAudioInput> input;
};

/// A client and a server of either kind.
class PulseTest : public testing::TestWithParam<support::AudioServer::Kind> {
 protected:
  /// Plays the coded signal of `room` into a microphone of the server.
  void play(const std::string& microphone, std::uint32_t room, const AudioFormat& format,
            double seconds = 20.0);
  /// Adds a microphone, plays room 1 to it and records from it.
  void listenToMicrophone(const AudioFormat& format = {48000.0, 2},
                          support::AudioServer::Pace pace = support::AudioServer::Pace::eager,
                          double seconds = 20.0);

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
