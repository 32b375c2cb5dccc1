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

/// A real audio server of the test's own, without any hardware. While it exists, this process and
/// the programs that it starts find no other. Whatever fails throws, with the reason.
class AudioServer {
 public:
  enum class Kind { pulseAudio, pipeWire };

  /// Unless a recording asks for less, PulseAudio lets a sound card collect two seconds before it
  /// looks, and so does a lazy microphone. An eager one is heard at once. PipeWire knows only
  /// these.
  enum class Pace { eager, lazy };

  explicit AudioServer(Kind kind);

  /// Adds a microphone that hears what is played in the room "<name>-room", and makes it the
  /// default source. 1, 2 or 8 channels.
  void addMicrophone(const std::string& name, std::uint32_t rate, std::uint32_t channels,
                     Pace pace = Pace::eager);

  /// Adds loudspeakers, whose monitor is a source but no microphone.
  void addSpeakers(const std::string& name, std::uint32_t rate, std::uint32_t channels);

  /// Takes a microphone or loudspeakers away again.
  void unplug(const std::string& name);

  void setDefaultSource(const std::string& name);

  /// Plays a file of interleaved float samples in the room of a microphone, which must be of this
  /// format, until the process that it returns is destroyed.
  std::unique_ptr<ChildProcess> play(const std::string& microphone,
                                     const std::filesystem::path& samples, std::uint32_t rate,
                                     std::uint32_t channels);

  /// What the server's own command prints.
  std::string pactl(std::vector<std::string> arguments) const;

  /// True if the server may have lost sound since the last call, and prints its reports.
  ///
  /// PipeWire does not wait for a client, or itself, to finish a cycle: when the next one begins,
  /// the sound of that cycle is lost, and the server logs it. PulseAudio never loses sound: its
  /// devices here have no clock to keep up with and render all the time that has passed, however
  /// late they run.
  bool mayHaveLostSound();

  /// Has PipeWire work in cycles of 93 ms at 44100 Hz instead of down to 6 ms, so that losses are
  /// rare where latency does not matter.
  void useLongCycles();

  /// The server answers nothing until it is resumed.
  void suspend();
  void resume();

  /// Ends the server without a goodbye to its clients; `start` has a new, empty one.
  void kill();
  void start();

  const std::filesystem::path& home() const { return privateHome.path(); }

 private:
  void startPulseAudio();
  void startPipeWire();
  void run(std::vector<std::string> command);
  std::string newReportsOfLosses();
  /// Whether the server does what its own command asks for.
  bool obeys(const std::vector<std::string>& arguments) const;
  void load(const std::string& device, std::vector<std::string> module);
  void addSink(const std::string& name, std::uint32_t rate, std::uint32_t channels, Pace pace,
               const std::string& mediaClass = "Audio/Sink");
  void linkChannels(const std::string& speakers, const std::string& microphone,
                    std::size_t channels);

  PrivateHome privateHome;
  Kind kind;
  std::vector<std::unique_ptr<ChildProcess>> processes;
  std::map<std::string, std::string> modules;  ///< by the name of the device that each made
  std::map<std::string, std::size_t> read;     ///< bytes of each log
  std::chrono::steady_clock::time_point lastLook;
  std::chrono::steady_clock::time_point lastReport = std::chrono::steady_clock::time_point::min();
};

/// "pulseaudio" or "pipewire", for the names of tests.
std::string nameOf(AudioServer::Kind kind);

}  // namespace corvane::support
