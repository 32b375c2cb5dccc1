// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

namespace corvane::support {

/// A private home directory without server, sound or display: from now on this process and its
/// children do not see the desktop.
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

/// The timeout for what must happen eventually. It only ends a failing test.
constexpr std::chrono::seconds longestWait{30};

/// Waits until `condition` holds; throws with `what` after `longestWait`.
void waitFor(const std::string& what, const std::function<bool()>& condition);

}  // namespace corvane::support
