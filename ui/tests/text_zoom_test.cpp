// SPDX-License-Identifier: MIT
#include "ui/app/text_zoom.h"

#include <gtest/gtest.h>

#include <QFont>

namespace corvane {
namespace {

double zoomFor(double points, double dotsPerInch = 96.0) {
  QFont font("Sans");
  font.setPointSizeF(points);
  return textZoom(font, dotsPerInch);
}

TEST(TextZoom, IsInProportionFromElevenPointsToTwice) {
  for (const auto& [points, zoom] :
       {std::pair(8.0, 1.0), {11.0, 1.0}, {16.5, 1.5}, {22.0, 2.0}, {72.0, 2.0}}) {
    EXPECT_DOUBLE_EQ(zoomFor(points), zoom) << points;
  }
}

TEST(TextZoom, DependsOnTheResolutionForASizeInPointsOnly) {
  EXPECT_DOUBLE_EQ(zoomFor(11.0, 144.0), 1.5);
  QFont font("Sans");
  font.setPixelSize(22);
  EXPECT_DOUBLE_EQ(textZoom(font, 96.0), 1.5);
  EXPECT_DOUBLE_EQ(textZoom(font, 192.0), 1.5);
}

}  // namespace
}  // namespace corvane
