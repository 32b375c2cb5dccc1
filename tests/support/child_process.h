// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace corvane::support {

/// A program that ends with the test process.
class ChildProcess {
 public:
  /// Appends the program's output to `log`.
  ChildProcess(const std::vector<std::string>& command, const std::filesystem::path& log);
  ~ChildProcess() { kill(); }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Stops the process (SIGSTOP). Returns once it has stopped.
  void suspend();
  void resume();

  /// Kills the process (SIGKILL) and waits for its end.
  void kill();

  /// Waits for the end. Returns the exit status, or -1 after a signal.
  int wait();

 private:
  pid_t pid;
};

/// Runs a program and returns its output. Throws if it fails.
std::string outputOf(const std::vector<std::string>& command);

}  // namespace corvane::support
