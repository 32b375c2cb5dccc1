#include "tests/support/private_home.h"

#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace corvane::support {
namespace {

std::filesystem::path newDirectory() {
  // Short, because the path of a socket in it has room for a hundred characters.
  std::string name = std::filesystem::temp_directory_path() / "corvane-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), name);
  }
  return name;
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
}

PrivateHome::~PrivateHome() {
  std::error_code ignored;
  std::filesystem::remove_all(directory, ignored);
}

void waitFor(const std::string& what, const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) {
      throw std::runtime_error("waited in vain for " + what);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

}  // namespace corvane::support
