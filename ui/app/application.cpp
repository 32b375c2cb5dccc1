#include "ui/app/application.h"

#include <cstdio>
#include <cstdlib>

#include "ui/app/session_bus.h"

namespace corvane {
namespace {

QtMessageHandler usual = nullptr;

/// Without a display the toolkit says so at length, in several ways, and aborts.
void sayOnce(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type == QtDebugMsg) return usual(type, context, message);
  if (type != QtFatalMsg) return;
  std::fputs("corvane: there is no display to show the tuner on\n", stderr);
  std::_Exit(1);
}

void setUnlessTold(const char* name, const char* value) {
  if (!qEnvironmentVariableIsSet(name)) qputenv(name, value);
}

/// What the toolkit asks its environment alone.
void drawAtOnce() {
  // It would wait for 5 ms after what changes the screen, lest more does: a reading changes all at
  // once.
  setUnlessTold("QT_QPA_UPDATE_IDLE_TIME", "0");
  // Memory that is shared with the display saves copying, but each frame waits for the display to
  // have read the last one. What a reading changes is small.
  setUnlessTold("QT_XCB_NO_MITSHM", "1");
}

}  // namespace

std::unique_ptr<QGuiApplication> openApplication(int& argc, char** argv) {
  drawAtOnce();
  // Nothing of ours is lost when the session ends, and the toolkit waits for the session manager's
  // answer without end.
  const QByteArray sessionManager = qgetenv("SESSION_MANAGER");
  qunsetenv("SESSION_MANAGER");
  if (!sessionBusAnswers()) qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
  usual = qInstallMessageHandler(sayOnce);
  auto app = std::make_unique<QGuiApplication>(argc, argv);
  qInstallMessageHandler(usual);
  // It is for the programs that we start.
  if (!sessionManager.isEmpty()) qputenv("SESSION_MANAGER", sessionManager);
  return app;
}

}  // namespace corvane
