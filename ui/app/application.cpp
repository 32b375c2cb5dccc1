// SPDX-License-Identifier: MIT
#include "ui/app/application.h"

#include <cstdio>
#include <cstdlib>

#include "ui/app/session_bus.h"

namespace corvane {
namespace {

QtMessageHandler usual = nullptr;

/// Without a display Qt prints several messages and aborts.
void printOnce(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type == QtDebugMsg) return usual(type, context, message);
  if (type != QtFatalMsg) return;
  std::fputs("corvane: there is no display to show the tuner on\n", stderr);
  std::_Exit(1);
}

void setIfUnset(const char* name, const char* value) {
  if (!qEnvironmentVariableIsSet(name)) qputenv(name, value);
}

/// Qt reads these settings only from the environment.
void drawAtOnce() {
  // Qt batches updates for 5 ms; a reading changes everything at once.
  setIfUnset("QT_QPA_UPDATE_IDLE_TIME", "0");
  // With shared memory each frame waits until the display has read the last one; the areas that a
  // reading changes are small enough to send.
  setIfUnset("QT_XCB_NO_MITSHM", "1");
}

}  // namespace

std::unique_ptr<QGuiApplication> openApplication(int& argc, char** argv) {
  drawAtOnce();
  // Qt waits for the session manager without a limit, and nothing needs saving at the session's
  // end.
  const QByteArray sessionManager = qgetenv("SESSION_MANAGER");
  qunsetenv("SESSION_MANAGER");
  if (!sessionBusAnswers()) qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
  usual = qInstallMessageHandler(printOnce);
  auto app = std::make_unique<QGuiApplication>(argc, argv);
  qInstallMessageHandler(usual);
  // For child processes.
  if (!sessionManager.isEmpty()) qputenv("SESSION_MANAGER", sessionManager);
  return app;
}

}  // namespace corvane
