// SPDX-License-Identifier: MIT
#include "ui/app/window_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>

#include "base/require.h"

namespace corvane {
namespace {

/// From raw pixels, because reading a PNG loads all of Qt's image plugins.
QPixmap picture(int side) {
  QFile file(QStringLiteral(":/icons/%1.raw").arg(side));
  require(file.open(QIODevice::ReadOnly), "the program carries its own icon");
  const QByteArray pixels = file.readAll();
  require(pixels.size() == 4 * side * side, "the icon is as large as it is called");
  const auto* bytes = reinterpret_cast<const uchar*>(pixels.constData());
  return QPixmap::fromImage(QImage(bytes, side, side, QImage::Format_RGBA8888));
}

QIcon icon() {
  QIcon sizes;
  for (const int side : {16, 32, 48}) sizes.addPixmap(picture(side));
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
