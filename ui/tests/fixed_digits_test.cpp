// SPDX-License-Identifier: MIT
#include "ui/paint/fixed_digits.h"

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <cmath>

namespace corvane {
namespace {

class FixedDigitsTest : public testing::Test {
 protected:
  FixedDigitsTest() {
    font.setPixelSize(25);
    item.setProperty("font", font);
  }

  /// The implicit width, in whole points.
  double widthOf(const QString& text) {
    item.setProperty("text", text);
    return item.implicitWidth();
  }

  QFont font;
  FixedDigits item;
};

TEST_F(FixedDigitsTest, OnlyDigitsAreAsWideAsTheWidest) {
  if (QFontDatabase::families().contains("Quicksand")) {
    font.setFamily("Quicksand");
    item.setProperty("font", font);
    ASSERT_NE(QFontMetricsF(font).horizontalAdvance(u'1'),
              QFontMetricsF(font).horizontalAdvance(u'8'));
  } else {
    std::puts("the font Quicksand, whose digits are unequal, is not installed");
  }
  double widest = 0.0;
  for (const QChar digit : QStringLiteral("0123456789")) {
    widest = std::max(widest, QFontMetricsF(font).horizontalAdvance(digit));
  }
  ASSERT_GT(widest, 0.0);
  for (const QChar digit : QStringLiteral("0123456789")) {
    // Ten digits, so that rounding to points cannot hide a difference.
    EXPECT_EQ(widthOf(QString(10, digit)), std::ceil(10.0 * widest)) << digit.digitValue();
  }
  EXPECT_EQ(widthOf("¢"), std::ceil(QFontMetricsF(font).horizontalAdvance(u'¢')));
  EXPECT_EQ(widthOf(""), 0.0);
}

TEST_F(FixedDigitsTest, IsMeasuredOnceItsFontIsCompletelySet) {
  FixedDigits made;
  QQmlParserStatus& making = made;
  making.classBegin();
  made.setProperty("text", "440");
  made.setProperty("font", font);
  EXPECT_EQ(made.implicitWidth(), 0.0);
  making.componentComplete();
  EXPECT_EQ(made.implicitWidth(), widthOf("440"));
  EXPECT_EQ(made.implicitHeight(), std::ceil(QFontMetricsF(font).height()));
  EXPECT_EQ(made.baselineOffset(), QFontMetricsF(font).ascent());
}

}  // namespace
}  // namespace corvane
