#pragma once

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

  /// Plays a file of interleaved float samples in the room of a microphone, in its format, until
  /// the process that it returns is destroyed.
  std::unique_ptr<ChildProcess> play(const std::string& microphone,
                                     const std::filesystem::path& samples);

  /// What the server's own command prints.
  std::string pactl(std::vector<std::string> arguments) const;

  /// The server answers nothing until it is resumed.
  void suspend();
  void resume();

  /// Ends the server without a goodbye to its clients; `start` has a new, empty one.
  void kill();
  void start();

  const std::filesystem::path& home() const { return privateHome.path(); }

 private:
  struct Room {
    std::string microphone;
    std::uint32_t rate;
    std::uint32_t channels;
    Pace pace = Pace::eager;
  };

  void startPulseAudio();
  void startPipeWire();
  void run(std::vector<std::string> command);
  /// Whether the server does what its own command asks for.
  bool obeys(const std::vector<std::string>& arguments) const;
  void load(const std::string& device, std::vector<std::string> module);
  void addSink(const std::string& name, const Room& room, const std::string& mediaClass);
  void linkChannels(const std::string& speakers, const std::string& microphone);

  PrivateHome privateHome;
  Kind kind;
  std::vector<std::unique_ptr<ChildProcess>> processes;
  std::vector<Room> rooms;
  std::map<std::string, std::string> modules;  ///< by the name of the device that each made
};

/// "pulseaudio" or "pipewire", for the names of tests.
std::string nameOf(AudioServer::Kind kind);

}  // namespace corvane::support
