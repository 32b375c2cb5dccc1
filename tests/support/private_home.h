#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

namespace corvane::support {

/// A home directory of the test's own, without any server, sound or display: this process and the
/// programs it starts from now on see nothing of the desktop it runs on.
class PrivateHome {
 public:
  PrivateHome();
  ~PrivateHome();
  PrivateHome(const PrivateHome&) = delete;
  PrivateHome& operator=(const PrivateHome&) = delete;

  const std::filesystem::path& path() const { return directory; }

 private:
  std::filesystem::path directory;
};

/// How long a test waits for what must happen: it ends a test that has failed, and is no measure.
constexpr std::chrono::seconds longestWait{30};

/// Waits until `condition` holds; throws with `what` if it does not within `longestWait`.
void waitFor(const std::string& what, const std::function<bool()>& condition);

}  // namespace corvane::support
