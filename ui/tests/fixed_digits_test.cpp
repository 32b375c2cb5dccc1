#include "ui/fixed_digits.h"

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>

namespace corvane {
namespace {

class FixedDigitsTest : public testing::Test {
 protected:
  FixedDigitsTest() {
    font.setPixelSize(25);
    item.setProperty("font", font);
  }

  void show(const QString& text) { item.setProperty("text", text); }

  /// In whole points, as it asks the screen for room.
  double widthOf(const QString& text) {
    item.setProperty("font", font);
    show(text);
    return item.implicitWidth();
  }

  QImage painted() {
    item.setSize({item.implicitWidth(), item.implicitHeight()});
    QImage image(item.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    item.paint(&painter);
    return image;
  }

  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QGuiApplication app{argc, argv};
  QFont font;
  FixedDigits item;
};

bool hasInk(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y).alpha() > 0) return true;
    }
  }
  return false;
}

TEST_F(FixedDigitsTest, AllDigitsAreAsWideAsTheWidest) {
  const QFontMetricsF metrics(font);
  double widest = 0.0;
  for (const QChar digit : QStringLiteral("0123456789")) {
    widest = std::max(widest, metrics.horizontalAdvance(digit));
  }
  ASSERT_GT(widest, 0.0);
  for (const QChar digit : QStringLiteral("0123456789")) {
    EXPECT_EQ(widthOf(digit), std::ceil(widest)) << digit.digitValue();
  }
}

TEST_F(FixedDigitsTest, InAFontOfUnequalDigitsTheyAreEqual) {
  if (!QFontDatabase::families().contains("Quicksand")) {
    GTEST_SKIP() << "the font Quicksand, whose digits are unequal, is not installed";
  }
  font.setFamily("Quicksand");
  const QFontMetricsF metrics(font);
  ASSERT_NE(metrics.horizontalAdvance(u'1'), metrics.horizontalAdvance(u'8'));
  // Ten of them, so that whole points cannot hide a difference.
  EXPECT_EQ(widthOf("1111111111"), widthOf("8888888888"));
}

TEST_F(FixedDigitsTest, OtherCharactersKeepTheirOwnWidth) {
  const QFontMetricsF metrics(font);
  EXPECT_EQ(widthOf("¢"), std::ceil(metrics.horizontalAdvance(u'¢')));
  EXPECT_EQ(widthOf(""), 0.0);
}

TEST_F(FixedDigitsTest, IsNotMeasuredBeforeItsFontIsToldInFull) {
  FixedDigits made;
  QQmlParserStatus& making = made;
  making.classBegin();
  made.setProperty("text", "440");
  made.setProperty("font", font);
  EXPECT_EQ(made.implicitWidth(), 0.0);
  making.componentComplete();
  EXPECT_GT(made.implicitWidth(), 0.0);
}

TEST_F(FixedDigitsTest, KeepsItsWidthWhileTheDigitsChange) {
  show("111.1 Hz");
  const double before = item.implicitWidth();
  ASSERT_GT(before, 0.0);
  for (const char* text : {"888.8 Hz", "940.2 Hz", "000.7 Hz"}) {
    show(text);
    EXPECT_EQ(item.implicitWidth(), before) << text;
  }
}

TEST_F(FixedDigitsTest, WantsRoomForOneLineOfItsText) {
  show("440.0 Hz");
  const QFontMetricsF metrics(font);
  EXPECT_GE(item.implicitWidth(), metrics.horizontalAdvance("440.0 Hz"));
  EXPECT_EQ(item.implicitHeight(), std::ceil(metrics.height()));
}

TEST_F(FixedDigitsTest, StandsOnTheBaselineOfItsFont) {
  show("440");
  EXPECT_DOUBLE_EQ(item.baselineOffset(), QFontMetricsF(font).ascent());
  // Digits have no descender: their ink ends where the baseline is, give or take the overshoot of
  // round digits and the pixel that it falls into.
  const QImage image = painted();
  const int baseline = static_cast<int>(std::ceil(item.baselineOffset()));
  EXPECT_TRUE(hasInk(image.copy(0, 0, image.width(), baseline)));
  EXPECT_FALSE(hasInk(image.copy(0, baseline + 2, image.width(), image.height() - baseline - 2)));
}

TEST_F(FixedDigitsTest, ALargerFontNeedsMoreRoom) {
  show("440.0 Hz");
  const QSizeF before(item.implicitWidth(), item.implicitHeight());
  font.setPixelSize(50);
  item.setProperty("font", font);
  EXPECT_GT(item.implicitWidth(), before.width());
  EXPECT_GT(item.implicitHeight(), before.height());
}

TEST_F(FixedDigitsTest, WhatFollowsADigitStaysWhereItIs) {
  show("1 Hz");
  const QImage one = painted();
  show("8 Hz");
  const QImage eight = painted();
  const double start = QFontMetricsF(font).horizontalAdvance(u' ') + widthOf("8");
  const int unit = static_cast<int>(std::ceil(start));
  ASSERT_NE(one, eight);
  EXPECT_EQ(one.copy(unit, 0, one.width() - unit, one.height()),
            eight.copy(unit, 0, eight.width() - unit, eight.height()));
}

TEST_F(FixedDigitsTest, IsDrawnInItsColour) {
  item.setProperty("color", QColor(Qt::red));
  show("440");
  const QImage image = painted();
  ASSERT_TRUE(hasInk(image));
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      EXPECT_EQ(image.pixelColor(x, y).green(), 0);
      EXPECT_EQ(image.pixelColor(x, y).blue(), 0);
    }
  }
}

}  // namespace
}  // namespace corvane
