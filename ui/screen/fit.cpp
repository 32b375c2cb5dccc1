// SPDX-License-Identifier: MIT
#include "ui/screen/fit.h"

#include <algorithm>

namespace corvane {
namespace {

/// "Auto" and eight strings with their gaps fill the row exactly where the card is compact, the
/// area at least 428 points wide, and the chips below their largest. In a narrower area, or a card
/// that is not compact, they run into the card's padding, by no more than 8 points.
double chipSide(double width, double height) {
  const double row = width > 640.0 ? 600.0 : width - 40.0;
  const double side = std::max((row - 64.0) / 9.0, 36.0);
  return std::min(side, height < 720.0 ? 46.0 : 54.0);
}

double regionGap(double height) {
  if (height < 720.0) return 6.0;
  return height < 900.0 ? 8.0 : 12.0;
}

}  // namespace

Fit Fit::forSize(double width, double height) {
  return {
      .note = std::clamp(height * 0.105, 52.0, 100.0),
      .gap = regionGap(height),
      .pad = height < 720.0 ? 8.0 : 12.0,
      .side = width < 420.0 ? 12.0 : 18.0,
      .chip = chipSide(width, height),
      .bar = height < 720.0 ? 14.0 : 16.0,
      .compact = (height < 900.0),
      .showsHint = (height > 780.0),
      .showsVersion = height > 720.0,
  };
}

}  // namespace corvane
