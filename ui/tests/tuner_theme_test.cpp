#include "ui/tuner_theme.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

void expectColor(const QColor& color, float red, float green, float blue, float opacity) {
  // Qt keeps 16 bits a channel.
  constexpr float step = 1.0F / 65535.0F;
  EXPECT_NEAR(color.redF(), red, step);
  EXPECT_NEAR(color.greenF(), green, step);
  EXPECT_NEAR(color.blueF(), blue, step);
  EXPECT_NEAR(color.alphaF(), opacity, step);
}

TEST(TunerTheme, HasSevenColours) {
  expectColor(TunerTheme::bg, 0.06F, 0.07F, 0.09F, 1.0F);
  expectColor(TunerTheme::card, 0.12F, 0.13F, 0.16F, 1.0F);
  expectColor(TunerTheme::muted, 1.0F, 1.0F, 1.0F, 0.55F);
  expectColor(TunerTheme::flat, 0.98F, 0.62F, 0.24F, 1.0F);
  expectColor(TunerTheme::gold, 0.93F, 0.74F, 0.32F, 1.0F);
  expectColor(TunerTheme::green, 0.29F, 0.86F, 0.56F, 1.0F);
  expectColor(TunerTheme::sharp, 0.45F, 0.70F, 1.0F, 1.0F);
}

TEST(Shades, OfChosenChipsOutlinesAndCapsulesAreThoseOfTheDesign) {
  expectColor(Shades::chosen, 0.93F, 0.74F, 0.32F, 0.22F);
  expectColor(Shades::outline, 1.0F, 1.0F, 1.0F, 0.08F);
  expectColor(Shades::capsule, 1.0F, 1.0F, 1.0F, 0.06F);
}

TEST(NeedleColor, IsMutedWhileNothingIsHeard) {
  EXPECT_EQ(needleColor(false, true, 37.0), TunerTheme::muted);
}

TEST(NeedleColor, IsGreenInTune) {
  EXPECT_EQ(needleColor(true, true, 3.0), TunerTheme::green);
}

TEST(NeedleColor, TellsFlatFromSharp) {
  EXPECT_EQ(needleColor(true, false, -12.34), TunerTheme::flat);
  EXPECT_EQ(needleColor(true, false, 12.34), TunerTheme::sharp);
}

TEST(NeedleColor, IsSharpAtExactlyZeroWhenNotInTune) {
  EXPECT_EQ(needleColor(true, false, 0.0), TunerTheme::sharp);
}

}  // namespace
}  // namespace corvane
