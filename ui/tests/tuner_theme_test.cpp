// SPDX-License-Identifier: MIT
#include "ui/paint/tuner_theme.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

QColor withOpacity(QColor color, float opacity) {
  color.setAlphaF(opacity);
  return color;
}

void expectColor(const QColor& color, float red, float green, float blue, float opacity) {
  // Qt keeps 16 bits a channel.
  constexpr float step = 1.0F / 65535.0F;
  EXPECT_NEAR(color.redF(), red, step);
  EXPECT_NEAR(color.greenF(), green, step);
  EXPECT_NEAR(color.blueF(), blue, step);
  EXPECT_NEAR(color.alphaF(), opacity, step);
}

TEST(TunerTheme, HasTheColoursOfTheDesign) {
  expectColor(TunerTheme::bg, 0.06F, 0.07F, 0.09F, 1.0F);
  expectColor(TunerTheme::card, 0.12F, 0.13F, 0.16F, 1.0F);
  expectColor(TunerTheme::muted, 1.0F, 1.0F, 1.0F, 0.55F);
  expectColor(TunerTheme::flat, 0.98F, 0.62F, 0.24F, 1.0F);
  expectColor(TunerTheme::gold, 0.93F, 0.74F, 0.32F, 1.0F);
  expectColor(TunerTheme::green, 0.29F, 0.86F, 0.56F, 1.0F);
  expectColor(TunerTheme::sharp, 0.45F, 0.70F, 1.0F, 1.0F);
  expectColor(Shades::chosen, 0.93F, 0.74F, 0.32F, 0.22F);
  for (const auto& [shade, opacity] : {std::pair(Shades::track, 0.08F),
                                       {Shades::outline, 0.08F},
                                       {Shades::capsule, 0.06F},
                                       {Shades::raised, 0.2F},
                                       {Shades::off, 0.16F},
                                       {Shades::highlight, 0.1F},
                                       {Shades::held, 0.16F},
                                       {Shades::unavailable, 0.3F},
                                       {Shades::line, 0.14F}}) {
    expectColor(shade, 1.0F, 1.0F, 1.0F, opacity);
  }
  expectColor(Shades::menu, 0.15F, 0.1625F, 0.2F, 1.0F);
}

TEST(NeedleColor, IsMutedWhileNothingIsHeardAndElseShowsTheVerdict) {
  EXPECT_EQ(needleColor(false, true, 37.0), TunerTheme::muted);
  EXPECT_EQ(needleColor(true, true, 3.0), TunerTheme::green);
  EXPECT_EQ(needleColor(true, false, -12.34), TunerTheme::flat);
}

TEST(NeedleColor, IsSharpAtExactlyZeroWhenNotInTune) {
  EXPECT_EQ(needleColor(true, false, 0.0), TunerTheme::sharp);
}

TEST(ChipFill, DependsOnHearingAndTheVerdictButNotOnTheSelection) {
  for (const bool selected : {false, true}) {
    EXPECT_EQ(chipFill(selected, false, false), TunerTheme::card);
    EXPECT_EQ(chipFill(selected, false, true), TunerTheme::card);
    EXPECT_EQ(chipFill(selected, true, true), withOpacity(TunerTheme::green, 0.35F));
    EXPECT_EQ(chipFill(selected, true, false), withOpacity(TunerTheme::gold, 0.16F));
  }
}

}  // namespace
}  // namespace corvane
