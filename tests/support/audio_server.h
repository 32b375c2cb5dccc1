// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/private_home.h"

namespace corvane::support {

/// A private audio server without hardware. While it exists, this process and its children find no
/// other server. Failures throw with the reason.
class AudioServer {
 public:
  enum class Kind { pulseAudio, pipeWire };

  /// Unless a recording requests less, PulseAudio reads a sound card every two seconds, and so does
  /// a lazy microphone. An eager one is read at once. PipeWire has only eager ones.
  enum class Pace { eager, lazy };

  explicit AudioServer(Kind kind);

  /// Adds a microphone that records what is played to the sink "<name>-room", and makes it the
  /// default source. 1, 2 or 8 channels.
  void addMicrophone(const std::string& name, std::uint32_t rate, std::uint32_t channels,
                     Pace pace = Pace::eager);

  /// Adds a sink, whose monitor is a source but no microphone.
  void addSpeakers(const std::string& name, std::uint32_t rate, std::uint32_t channels);

  /// Removes a microphone or sink.
  void unplug(const std::string& name);

  void setDefaultSource(const std::string& name);

  /// Plays interleaved float samples to a microphone of the same format until the returned process
  /// is destroyed.
  std::unique_ptr<ChildProcess> play(const std::string& microphone,
                                     const std::filesystem::path& samples, std::uint32_t rate,
                                     std::uint32_t channels);

  /// The output of pactl.
  std::string pactl(std::vector<std::string> arguments) const;

  /// True if the server may have lost sound since the last call, and prints its reports.
  ///
  /// PipeWire does not wait for an unfinished cycle: when the next one begins, that cycle's sound
  /// is lost, and the server logs it. PulseAudio loses none: its virtual devices render all elapsed
  /// time, however late they run.
  bool mayHaveLostSound();

  /// Sets PipeWire's cycles to 93 ms at 44100 Hz instead of down to 6 ms: losses are rare, for
  /// tests in which latency does not matter.
  void useLongCycles();

  /// Stops the server's process until it is resumed.
  void suspend();
  void resume();

  /// Kills the server; `start` starts a new, empty one.
  void kill();
  void start();

  const std::filesystem::path& home() const { return privateHome.path(); }

 private:
  void startPulseAudio();
  void startPipeWire();
  void run(std::vector<std::string> command);
  std::string newReportsOfLosses();
  /// Whether pactl succeeds.
  bool obeys(const std::vector<std::string>& arguments) const;
  void load(const std::string& device, std::vector<std::string> module);
  void addSink(const std::string& name, std::uint32_t rate, std::uint32_t channels, Pace pace,
               const std::string& mediaClass = "Audio/Sink");
  void linkChannels(const std::string& speakers, const std::string& microphone,
                    std::size_t channels);

  PrivateHome privateHome;
  Kind kind;
  std::vector<std::unique_ptr<ChildProcess>> processes;
  std::map<std::string, std::string> modules;  ///< by the name of their device
  std::map<std::string, std::size_t> read;     ///< bytes of each log
  std::chrono::steady_clock::time_point lastLook;
  std::chrono::steady_clock::time_point lastReport = std::chrono::steady_clock::time_point::min();
};

/// "pulseaudio" or "pipewire", for test names.
std::string nameOf(AudioServer::Kind kind);

}  // namespace corvane::support
