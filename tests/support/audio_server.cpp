// SPDX-License-Identifier: MIT
#include "tests/support/audio_server.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace corvane::support {
namespace {

namespace fs = std::filesystem;

/// Both sides must use the same channel order; otherwise the server mixes.
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

/// A socket exists for a moment before the server listens, and WirePlumber exits when refused.
bool isListenedTo(const fs::path& socketFile) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  socketFile.string().copy(address.sun_path, sizeof address.sun_path - 1);
  const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const int result = connect(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address);
  close(descriptor);
  return result == 0;
}

}  // namespace

std::string nameOf(AudioServer::Kind kind) {
  return kind == AudioServer::Kind::pulseAudio ? "pulseaudio" : "pipewire";
}

AudioServer::AudioServer(Kind which) : kind(which) {
  for (const char* const program : {"pipewire", "pipewire-pulse"}) {
    const fs::path folder = home() / ".config/pipewire" / (std::string(program) + ".conf.d");
    fs::create_directories(folder);
    // PipeWire reports losses at this level.
    std::ofstream(folder / "log.conf") << "context.properties = { log.level = 3 }\n";
  }
  start();
}

void AudioServer::start() {
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
    waitFor(socket, [this, socket] { return isListenedTo(home() / socket); });
  };
  run({"dbus-daemon", "--session", "--nofork", "--nopidfile",
       "--address=unix:path=" + (home() / "bus").string()});
  appears("bus");
  run({"pipewire"});
  appears("pipewire-0");
  run({"wireplumber"});
  // PipeWire exits if a searching client creates this directory at the same moment.
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
}

void AudioServer::addSpeakers(const std::string& name, std::uint32_t rate, std::uint32_t channels) {
  addSink(name, rate, channels, Pace::eager);
}

void AudioServer::addMicrophone(const std::string& name, std::uint32_t rate, std::uint32_t channels,
                                Pace pace) {
  const std::string room = name + "-room";
  addSink(room, rate, channels, pace);
  if (kind == Kind::pulseAudio) {
    load(name,
         {"module-remap-source", "master=" + room + ".monitor", "source_name=" + name, "remix=no"});
  } else {
    // The graph has one rate; with another than the microphone's it would resample.
    outputOf({"pw-metadata", "-n", "settings", "0", "clock.force-rate", std::to_string(rate)});
    addSink(name, rate, channels, pace, "Audio/Source/Virtual");
    linkChannels(room, name, channels);
  }
  setDefaultSource(name);
}

void AudioServer::addSink(const std::string& name, std::uint32_t rate, std::uint32_t channels,
                          Pace pace, const std::string& mediaClass) {
  std::vector<std::string> module{
      "module-null-sink", "sink_name=" + name, "rate=" + std::to_string(rate),
      "channels=" + std::to_string(channels), "channel_map=" + channelOrder(channels)};
  if (kind == Kind::pulseAudio) {
    module.push_back("format=float32le");
    // The sink renders ahead only if it may rewind.
    if (pace == Pace::eager) module.push_back("norewinds=yes");
  } else {
    module.push_back("media.class=" + mediaClass);
  }
  load(name, std::move(module));
}

void AudioServer::linkChannels(const std::string& speakers, const std::string& microphone,
                               std::size_t channels) {
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
  // PipeWire has no default until its session manager runs.
  waitFor("defaults to be known", [&] { return obeys({"set-default-source", name}); });
  waitFor(name + " to be the default source", [this, name] {
    return linesWith("Default Source: " + name, pactl({"info"})).size() == 1;
  });
}

std::unique_ptr<ChildProcess> AudioServer::play(const std::string& microphone,
                                                const std::filesystem::path& samples,
                                                std::uint32_t rate, std::uint32_t channels) {
  return std::make_unique<ChildProcess>(
      std::vector<std::string>{"pacat", "--playback", "--raw", "--device=" + microphone + "-room",
                               "--format=float32le", "--rate=" + std::to_string(rate),
                               "--channels=" + std::to_string(channels),
                               "--channel-map=" + channelOrder(channels), samples},
      home() / "pacat.log");
}

bool AudioServer::mayHaveLostSound() {
  // PipeWire reports one loss within this time.
  constexpr std::chrono::seconds oneReport{2};
  const auto begun = std::exchange(lastLook, std::chrono::steady_clock::now());
  const std::string reports = newReportsOfLosses();
  std::cout << reports;
  if (!reports.empty()) lastReport = lastLook;
  return begun < lastReport + oneReport;
}

std::string AudioServer::newReportsOfLosses() {
  std::string found;
  for (const char* const log : {"pipewire.log", "pipewire-pulse.log"}) {
    std::ifstream file(home() / log);
    file.seekg(static_cast<std::streamoff>(read[log]));
    for (std::string line; std::getline(file, line) && !file.eof(); read[log] += line.size() + 1) {
      for (const char* const loss : {"too slow", "XRun", "xrun", "overrun", "underrun"}) {
        if (line.find(loss) != std::string::npos) found += "reported: " + line + "\n";
      }
    }
  }
  return found;
}

void AudioServer::useLongCycles() {
  if (kind == Kind::pipeWire) {
    outputOf({"pw-metadata", "-n", "settings", "0", "clock.force-quantum", "4096"});
  }
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
