// SPDX-License-Identifier: MIT
#include "ui/app/session_bus.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QByteArray>
#include <QList>
#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <string_view>

namespace corvane {
namespace {

/// Generous, because a screen reader needs the bus.
constexpr int busTimeoutMilliseconds = 3000;
/// Every bus replies to this with its authentication methods.
constexpr std::string_view question{"\0AUTH\r\n", 7};

/// The bus's `sun_path`, which begins with a zero byte if the name is abstract. Empty for a bus
/// that is not a local socket.
QByteArray busSocket() {
  const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  if (address.isEmpty()) return qgetenv("XDG_RUNTIME_DIR") + "/bus";
  const QByteArray first = address.split(';').front().split(',').front();
  const QByteArray name = QByteArray::fromPercentEncoding(first.sliced(first.indexOf('=') + 1));
  if (first.startsWith("unix:path=")) return name;
  return first.startsWith("unix:abstract=") ? '\0' + name : QByteArray();
}

bool isReadable(pollfd answer) {
  int outcome = 0;
  do {
    outcome = poll(&answer, 1, busTimeoutMilliseconds);
  } while (outcome < 0 && errno == EINTR);
  return outcome > 0;
}

}  // namespace

bool sessionBusAnswers() {
  const QByteArray name = busSocket();
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
        send(descriptor, question.data(), question.size(), MSG_NOSIGNAL) < 0 || isReadable(answer);
  } else if (errno == EAGAIN) {
    answers = false;  // Its queue of unanswered connections is full.
  }
  close(descriptor);
  return answers;
}

}  // namespace corvane
