// SPDX-License-Identifier: MIT
#include "tests/support/private_home.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace corvane::support {
namespace {

namespace fs = std::filesystem;

fs::path newDirectory() {
  // Short, because the path of a socket is limited to about a hundred characters.
  std::string name = fs::temp_directory_path() / "corvane-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), name);
  }
  return name;
}

void write(const fs::path& file, const std::string& text) {
  fs::create_directories(file.parent_path());
  std::ofstream(file) << text;
}

/// Configures the session manager, WirePlumber 0.4 and 0.5, to ignore the machine's sound cards.
void forgetHardware(const fs::path& home) {
  const fs::path config = home / ".config" / "wireplumber";
  write(config / "main.lua.d" / "51-no-hardware.lua",
        "alsa_monitor.enabled = false\nv4l2_monitor.enabled = false\n"
        "libcamera_monitor.enabled = false\n");
  write(config / "bluetooth.lua.d" / "51-no-hardware.lua", "bluez_monitor.enabled = false\n");
  write(config / "wireplumber.conf.d" / "51-no-hardware.conf",
        "wireplumber.profiles = { main = { hardware.audio = disabled hardware.bluetooth = disabled "
        "hardware.video-capture = disabled } }\n");
}

}  // namespace

PrivateHome::PrivateHome() : directory(newDirectory()) {
  for (const char* name : {"HOME", "XDG_RUNTIME_DIR"}) setenv(name, directory.c_str(), 1);
  for (const char* name :
       {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME", "PULSE_SERVER", "PULSE_COOKIE",
        "PULSE_SOURCE", "PULSE_SINK", "PULSE_PROP", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH",
        "PULSE_CLIENTCONFIG", "PIPEWIRE_REMOTE", "PIPEWIRE_RUNTIME_DIR", "DISPLAY",
        "WAYLAND_DISPLAY", "XDG_SESSION_ID"}) {
    unsetenv(name);
  }
  setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + (directory / "bus").string()).c_str(), 1);
  setenv("LC_ALL", "C", 1);
  forgetHardware(directory);
}

PrivateHome::~PrivateHome() {
  std::error_code ignored;
  fs::remove_all(directory, ignored);
}

void waitFor(const std::string& what, const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + longestWait;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) {
      throw std::runtime_error("timed out waiting for " + what);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

}  // namespace corvane::support
