// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QPalette>

#include "pictures.h"
#include "ui/paint/tuner_theme.h"

namespace corvane::sheet {
namespace {

/// The screen on a desktop with these window and text colours.
QImage pictureOn(const QColor& window, const QColor& text) {
  const QPalette before = QGuiApplication::palette();
  QGuiApplication::setPalette(QPalette(text, window, window, window, window, text, window));
  const QImage shown = picture(particularScenes().front());
  QGuiApplication::setPalette(before);
  return shown;
}

TEST(Appearance, TheScreenIsDarkInALightAndInADarkAppearance) {
  pictureOn(Qt::white, Qt::black);  // the first drawing of a note differs slightly from later ones
  const QImage onLight = pictureOn(Qt::white, Qt::black);
  EXPECT_EQ(onLight, pictureOn(Qt::black, Qt::white));
  EXPECT_EQ(onLight.pixelColor(0, 0).rgb(), TunerTheme::bg.rgb());
}

TEST(Appearance, NoTextOfAnyStateIsCut) {
  for (const Scene& scene : scenes()) {
    for (const QString& text : cutTextsOf(scene)) {
      ADD_FAILURE() << text.toStdString() << " is cut in " << scene.name.toStdString();
    }
  }
}

}  // namespace
}  // namespace corvane::sheet
