#include <gtest/gtest.h>

#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <QQuickWindow>

#include "pictures.h"
#include "ui/tuner_theme.h"

namespace corvane::sheet {
namespace {

/// The screen on a desktop whose windows have this colour, and its texts the other.
QImage pictureOn(const QColor& window, const QColor& text) {
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  int argc = 1;
  char name[] = "test";
  char* argv[] = {name, nullptr};
  const QGuiApplication app(argc, argv);
  QPalette palette(window);
  for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
    palette.setColor(role, window);
  }
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, text);
  }
  QGuiApplication::setPalette(palette);
  return picture(scenes().front());
}

TEST(Appearance, TheScreenIsDarkInALightAndInADarkAppearance) {
  const QImage onLight = pictureOn(Qt::white, Qt::black);
  const QImage onDark = pictureOn(Qt::black, Qt::white);
  EXPECT_EQ(onLight, onDark);
  EXPECT_EQ(onLight.pixelColor(0, 0).rgb(), TunerTheme::bg.rgb());
}

TEST(Appearance, NoTextOfAnyStateIsCut) {
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  int argc = 1;
  char name[] = "test";
  char* argv[] = {name, nullptr};
  const QGuiApplication app(argc, argv);
  for (const Scene& scene : scenes()) {
    for (const QString& text : cutTextsOf(scene)) {
      ADD_FAILURE() << text.toStdString() << " is cut in " << scene.name.toStdString();
    }
  }
}

}  // namespace
}  // namespace corvane::sheet
