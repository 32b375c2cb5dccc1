#include "ui/window_icon.h"

#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>

namespace corvane {
namespace {

QIcon icon() {
  QIcon sizes;
  for (const char* size : {"16", "32", "48"})
    sizes.addFile(QStringLiteral(":/icons/%1.png").arg(size));
  return sizes;
}

}  // namespace

void showIcon(QQuickWindow& window) {
  if (QGuiApplication::platformName() != "xcb") return;
  const auto give = [&window] { window.setIcon(icon()); };
  QObject::connect(&window, &QQuickWindow::frameSwapped, &window, give,
                   Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
}

}  // namespace corvane
