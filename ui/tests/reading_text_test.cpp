// SPDX-License-Identifier: MIT
#include "ui/model/reading_text.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <QString>
#include <clocale>
#include <limits>
#include <ostream>

namespace corvane {
namespace {

TEST(CentsText, IsZeroWithoutASignWhileNothingIsHeard) {
  EXPECT_EQ(centsText(false, 37.0), "0.0 ¢");
}

TEST(CentsText, HasARealMinusSignOrAPlusSign) {
  EXPECT_EQ(centsText(true, -12.34), "−12.3 ¢");
  EXPECT_EQ(centsText(true, 3.0), "+3.0 ¢");
}

TEST(CentsText, HasNoSignAtExactlyZeroAndTakesItBeforeRounding) {
  EXPECT_EQ(centsText(true, 0.0), "0.0 ¢");
  EXPECT_EQ(centsText(true, -0.0), "0.0 ¢");
  EXPECT_EQ(centsText(true, -0.04), "−0.0 ¢");
  EXPECT_EQ(centsText(true, 0.04), "+0.0 ¢");
}

TEST(CentsText, RoundsLikePrintf) {
  // Halves that are exact in a 64-bit float round to the even digit.
  EXPECT_EQ(centsText(true, 0.25), "+0.2 ¢");
  EXPECT_EQ(centsText(true, 0.75), "+0.8 ¢");
  EXPECT_EQ(centsText(true, -2399.96), "−2400.0 ¢");
}

TEST(FrequencyText, HasOneDecimalOrADashWhileNothingIsHeard) {
  EXPECT_EQ(frequencyText(true, 440.04), "440.0 Hz");
  EXPECT_EQ(frequencyText(false, 440.0), "— Hz");
}

TEST(FrequencyText, HasADotInEveryLanguage) {
  if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8") == nullptr) {
    std::puts("no locale with a decimal comma is installed: only the toolkit's is tested");
  }
  QLocale::setDefault(QLocale(QLocale::German));
  EXPECT_EQ(frequencyText(true, 1234.5), "1234.5 Hz");
  QLocale::setDefault(QLocale::c());
  std::setlocale(LC_NUMERIC, "C");
}

TEST(HearingText, NamesTheHeardNoteButNotOnThePiano) {
  EXPECT_EQ(hearingText(true, false, "A♯4"), "Hearing A♯4");
  EXPECT_EQ(hearingText(true, true, "A4"), "");
  EXPECT_EQ(hearingText(false, false, "A4"), "");
  EXPECT_EQ(hearingText(true, false, ""), "");
}

TEST(ScaleText, NamesBothEndsOfTheMeterInWholeCents) {
  EXPECT_EQ(scaleText(50), "−50   0   +50");
  EXPECT_EQ(scaleText(10.9), "−10   0   +10");
}

TEST(ScaleTextDeathTest, StopsAtASpanThatIsNotFinite) {
  EXPECT_DEATH(scaleText(std::numeric_limits<double>::infinity()), "finite");
  EXPECT_DEATH(scaleText(std::numeric_limits<double>::quiet_NaN()), "finite");
}

}  // namespace
}  // namespace corvane
