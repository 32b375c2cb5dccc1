#include "ui/text_zoom.h"

#include <gtest/gtest.h>

#include <QFont>

namespace corvane {
namespace {

double zoomFor(double points, double dotsPerInch = 96.0) {
  QFont font("Sans");
  font.setPointSizeF(points);
  return textZoom(font, dotsPerInch);
}

TEST(TextZoom, IsOneForEverySizeThatADesktopStartsWith) {
  for (const double points : {8.0, 9.0, 10.0, 11.0}) EXPECT_EQ(zoomFor(points), 1.0) << points;
}

TEST(TextZoom, IsInProportionAboveElevenPoints) {
  EXPECT_DOUBLE_EQ(zoomFor(16.5), 1.5);
  EXPECT_DOUBLE_EQ(zoomFor(22.0), 2.0);
}

TEST(TextZoom, IsAtMostTwo) {
  EXPECT_EQ(zoomFor(72.0), 2.0);
}

TEST(TextZoom, CountsTheDotsPerInchOfTexts) {
  EXPECT_DOUBLE_EQ(zoomFor(11.0, 144.0), 1.5);
}

TEST(TextZoom, TakesASizeInPixelsAsItIs) {
  QFont font("Sans");
  font.setPixelSize(22);
  EXPECT_DOUBLE_EQ(textZoom(font, 96.0), 1.5);
  EXPECT_DOUBLE_EQ(textZoom(font, 192.0), 1.5);
}

}  // namespace
}  // namespace corvane
