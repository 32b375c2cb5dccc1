#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace corvane::support {

/// A program that a test runs; it dies with the test, however that ends.
class ChildProcess {
 public:
  /// The program's own output goes to `log`, which it appends to.
  ChildProcess(const std::vector<std::string>& command, const std::filesystem::path& log);
  ~ChildProcess() { kill(); }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Holds the program where it is, so that it answers nothing. Returns once it stands still.
  void suspend();
  void resume();

  /// Ends the program without giving it a chance to say goodbye; it is gone when this returns.
  void kill();

  /// Waits for the program to end; its exit status, or -1 when a signal ended it.
  int wait();

 private:
  pid_t pid;
};

/// What a program that ends by itself printed. Throws when it fails.
std::string outputOf(const std::vector<std::string>& command);

}  // namespace corvane::support
