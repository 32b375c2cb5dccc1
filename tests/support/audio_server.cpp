#include "tests/support/audio_server.h"

#include <algorithm>
#include <exception>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace corvane::support {
namespace {

namespace fs = std::filesystem;

/// Both sides must agree on where each channel belongs, or the server mixes them.
std::string channelOrder(std::uint32_t channels) {
  if (channels == 1) return "mono";
  if (channels == 2) return "front-left,front-right";
  if (channels != 8) throw std::invalid_argument("1, 2 or 8 channels");
  return "front-left,front-right,front-center,lfe,rear-left,rear-right,side-left,side-right";
}

std::vector<std::string> linesWith(const std::string& prefix, const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with(prefix)) lines.push_back(line);
  }
  return lines;
}

}  // namespace

std::string nameOf(AudioServer::Kind kind) {
  return kind == AudioServer::Kind::pulseAudio ? "pulseaudio" : "pipewire";
}

AudioServer::AudioServer(Kind which) : kind(which) {
  start();
}

void AudioServer::start() {
  rooms.clear();
  modules.clear();
  kind == Kind::pulseAudio ? startPulseAudio() : startPipeWire();
  waitFor(nameOf(kind) + " to answer", [this] { return obeys({"info"}); });
}

void AudioServer::startPulseAudio() {
  run({"pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1", "-L",
       "module-native-protocol-unix"});
}

void AudioServer::startPipeWire() {
  const auto appears = [this](const std::string& socket) {
    waitFor(socket, [this, socket] { return fs::exists(home() / socket); });
  };
  run({"dbus-daemon", "--session", "--nofork", "--nopidfile",
       "--address=unix:path=" + (home() / "bus").string()});
  appears("bus");
  run({"pipewire"});
  appears("pipewire-0");
  run({"wireplumber"});
  // It ends when a client that already looks for it makes this folder at the same moment.
  fs::create_directory(home() / "pulse");
  fs::permissions(home() / "pulse", fs::perms::owner_all);
  run({"pipewire-pulse"});
}

void AudioServer::run(std::vector<std::string> command) {
  const fs::path log = home() / (command.front() + ".log");
  processes.push_back(std::make_unique<ChildProcess>(command, log));
}

std::string AudioServer::pactl(std::vector<std::string> arguments) const {
  const std::string socket = "--server=unix:" + (home() / "pulse" / "native").string();
  arguments.insert(arguments.begin(), {"pactl", socket});
  return outputOf(arguments);
}

void AudioServer::load(const std::string& device, std::vector<std::string> module) {
  module.insert(module.begin(), "load-module");
  const std::string number = pactl(std::move(module));
  modules[device] = number.substr(0, number.find('\n'));
}

void AudioServer::unplug(const std::string& name) {
  pactl({"unload-module", modules.at(name)});
  modules.erase(name);
  std::erase_if(rooms, [&name](const Room& room) { return room.microphone == name; });
}

void AudioServer::addSpeakers(const std::string& name, std::uint32_t rate, std::uint32_t channels) {
  addSink(name, {name, rate, channels}, "Audio/Sink");
}

void AudioServer::addMicrophone(const std::string& name, std::uint32_t rate, std::uint32_t channels,
                                Pace pace) {
  const std::string room = name + "-room";
  rooms.push_back({name, rate, channels, pace});
  addSink(room, rooms.back(), "Audio/Sink");
  if (kind == Kind::pulseAudio) {
    load(name,
         {"module-remap-source", "master=" + room + ".monitor", "source_name=" + name, "remix=no"});
  } else {
    // The graph runs at one rate; at another than the microphone's it would resample by itself.
    outputOf({"pw-metadata", "-n", "settings", "0", "clock.force-rate", std::to_string(rate)});
    addSink(name, rooms.back(), "Audio/Source/Virtual");
    linkChannels(room, name);
  }
  setDefaultSource(name);
}

void AudioServer::addSink(const std::string& name, const Room& room,
                          const std::string& mediaClass) {
  std::vector<std::string> module{
      "module-null-sink", "sink_name=" + name, "rate=" + std::to_string(room.rate),
      "channels=" + std::to_string(room.channels), "channel_map=" + channelOrder(room.channels)};
  if (kind == Kind::pulseAudio) {
    module.push_back("format=float32le");
    // It looks ahead only as long as it may take back what it has seen.
    if (room.pace == Pace::eager) module.push_back("norewinds=yes");
  } else {
    module.push_back("media.class=" + mediaClass);
  }
  load(name, std::move(module));
}

void AudioServer::linkChannels(const std::string& speakers, const std::string& microphone) {
  const std::size_t channels = rooms.back().channels;
  std::vector<std::string> from;
  std::vector<std::string> to;
  waitFor("the ports of " + microphone, [&] {
    from = linesWith(speakers + ":monitor_", outputOf({"pw-link", "-o"}));
    to = linesWith(microphone + ":input_", outputOf({"pw-link", "-i"}));
    return from.size() == channels && to.size() == channels;
  });
  for (std::size_t c = 0; c < channels; ++c) outputOf({"pw-link", from[c], to[c]});
}

bool AudioServer::obeys(const std::vector<std::string>& arguments) const {
  try {
    pactl(arguments);
    return true;
  } catch (const std::runtime_error&) {
    return false;
  }
}

void AudioServer::setDefaultSource(const std::string& name) {
  // PipeWire knows no default until its session manager has taken up its work.
  waitFor("defaults to be known", [&] { return obeys({"set-default-source", name}); });
  waitFor(name + " to be the default source", [this, name] {
    return linesWith("Default Source: " + name, pactl({"info"})).size() == 1;
  });
}

std::unique_ptr<ChildProcess> AudioServer::play(const std::string& microphone,
                                                const std::filesystem::path& samples) {
  const auto room = std::find_if(rooms.begin(), rooms.end(),
                                 [&](const Room& r) { return r.microphone == microphone; });
  if (room == rooms.end()) throw std::invalid_argument(microphone);
  return std::make_unique<ChildProcess>(
      std::vector<std::string>{"pacat", "--playback", "--raw", "--device=" + microphone + "-room",
                               "--format=float32le", "--rate=" + std::to_string(room->rate),
                               "--channels=" + std::to_string(room->channels),
                               "--channel-map=" + channelOrder(room->channels), samples},
      home() / "pacat.log");
}

void AudioServer::suspend() {
  for (const auto& process : processes) process->suspend();
}

void AudioServer::resume() {
  for (const auto& process : processes) process->resume();
}

void AudioServer::kill() {
  for (auto process = processes.rbegin(); process != processes.rend(); ++process) {
    (*process)->kill();
  }
  processes.clear();
  std::error_code ignored;
  for (const char* socket : {"bus", "pipewire-0", "pulse/native"}) {
    fs::remove(home() / socket, ignored);
  }
}

}  // namespace corvane::support
