#include "ui/app/session_bus.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QByteArray>
#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <string_view>

namespace corvane {
namespace {

/// Of a bus on a busy machine: who is left without it has no screen reader.
constexpr int patienceMilliseconds = 3000;
/// To which every bus answers with the ways in which it can be told who we are.
constexpr std::string_view question{"\0AUTH\r\n", 7};

/// Where `sun_path` of the bus begins with a zero byte, the name is abstract. Empty for a bus that
/// is not on a socket of this machine.
QByteArray socketOfTheBus() {
  const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  if (address.isEmpty()) return qgetenv("XDG_RUNTIME_DIR") + "/bus";
  const QByteArray first = address.split(';').front().split(',').front();
  const QByteArray name = QByteArray::fromPercentEncoding(first.sliced(first.indexOf('=') + 1));
  if (first.startsWith("unix:path=")) return name;
  return first.startsWith("unix:abstract=") ? '\0' + name : QByteArray();
}

bool isThere(pollfd answer) {
  int outcome = 0;
  do {
    outcome = poll(&answer, 1, patienceMilliseconds);
  } while (outcome < 0 && errno == EINTR);
  return outcome > 0;
}

}  // namespace

bool sessionBusAnswers() {
  const QByteArray name = socketOfTheBus();
  sockaddr_un bus{};
  bus.sun_family = AF_UNIX;
  if (name.isEmpty() || static_cast<std::size_t>(name.size()) >= sizeof bus.sun_path) return true;
  std::ranges::copy(name, bus.sun_path);
  const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) +
                                             static_cast<std::size_t>(name.size()));

  const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  bool answers = true;
  if (connect(descriptor, reinterpret_cast<const sockaddr*>(&bus), length) == 0) {
    pollfd answer{.fd = descriptor, .events = POLLIN, .revents = 0};
    answers =
        send(descriptor, question.data(), question.size(), MSG_NOSIGNAL) < 0 || isThere(answer);
  } else if (errno == EAGAIN) {
    answers = false;  // It has let others wait for so long that there is no room for one more.
  }
  close(descriptor);
  return answers;
}

}  // namespace corvane
