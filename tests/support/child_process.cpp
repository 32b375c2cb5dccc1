// SPDX-License-Identifier: MIT
#include "tests/support/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace corvane::support {
namespace {

/// In the child between fork and exec: must not allocate.
[[noreturn]] void become(char* const* arguments, const char* log, pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(127);
  const int output = open(log, O_WRONLY | O_CREAT | O_APPEND, 0600);
  const int input = open("/dev/null", O_RDONLY);
  dup2(input, STDIN_FILENO);
  dup2(output, STDOUT_FILENO);
  dup2(output, STDERR_FILENO);
  execvp(arguments[0], arguments);
  _exit(127);
}

pid_t spawn(std::vector<std::string> command, const std::filesystem::path& log) {
  std::vector<char*> arguments;
  for (std::string& argument : command) arguments.push_back(argument.data());
  arguments.push_back(nullptr);
  const pid_t parent = getpid();
  const pid_t child = fork();
  if (child == 0) become(arguments.data(), log.c_str(), parent);
  if (child < 0) throw std::system_error(errno, std::generic_category(), "fork");
  return child;
}

std::string contentsOf(const std::filesystem::path& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& command,
                           const std::filesystem::path& log)
    : pid(spawn(command, log)) {}

void ChildProcess::suspend() {
  ::kill(pid, SIGSTOP);
  int status = 0;
  waitpid(pid, &status, WUNTRACED);
}

void ChildProcess::resume() {
  ::kill(pid, SIGCONT);
}

void ChildProcess::kill() {
  if (pid <= 0) return;
  ::kill(pid, SIGKILL);
  wait();
}

int ChildProcess::wait() {
  int status = 0;
  waitpid(std::exchange(pid, 0), &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string outputOf(const std::vector<std::string>& command) {
  const std::filesystem::path directory = std::filesystem::temp_directory_path();
  std::string name = directory / "corvane-output-XXXXXX";
  const int file = mkstemp(name.data());
  if (file < 0) throw std::system_error(errno, std::generic_category(), name);
  close(file);
  const int status = ChildProcess(command, name).wait();
  const std::string output = contentsOf(name);
  std::filesystem::remove(name);
  if (status != 0) throw std::runtime_error(command.front() + " failed: " + output);
  return output;
}

}  // namespace corvane::support
