#include "ui/display.h"

#include <cstdio>
#include <cstdlib>

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

}  // namespace

std::unique_ptr<QGuiApplication> openDisplay(int& argc, char** argv) {
  usual = qInstallMessageHandler(sayOnce);
  auto app = std::make_unique<QGuiApplication>(argc, argv);
  qInstallMessageHandler(usual);
  return app;
}

}  // namespace corvane
