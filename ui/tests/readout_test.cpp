#include "ui/readout.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <QString>
#include <clocale>
#include <ostream>

namespace corvane {
namespace {

std::string cents(bool heard, double value) {
  return centsText(heard, value).toStdString();
}
std::string hertz(bool heard, double value) {
  return frequencyText(heard, value).toStdString();
}
std::string hearing(bool heard, bool isPiano, std::string_view spelling) {
  return hearingText(heard, isPiano, spelling).toStdString();
}

TEST(CentsText, IsZeroWithoutASignWhileNothingIsHeard) {
  EXPECT_EQ(cents(false, 37.0), "0.0 ¢");
}

TEST(CentsText, HasARealMinusSign) {
  EXPECT_EQ(cents(true, -12.34), "−12.3 ¢");
}

TEST(CentsText, HasAPlusSign) {
  EXPECT_EQ(cents(true, 3.0), "+3.0 ¢");
}

TEST(CentsText, HasNoSignAtExactlyZero) {
  EXPECT_EQ(cents(true, 0.0), "0.0 ¢");
  EXPECT_EQ(cents(true, -0.0), "0.0 ¢");
}

TEST(CentsText, TakesTheSignBeforeRounding) {
  EXPECT_EQ(cents(true, -0.04), "−0.0 ¢");
  EXPECT_EQ(cents(true, 0.04), "+0.0 ¢");
}

TEST(CentsText, RoundsLikePrintf) {
  // Halves that a 64-bit float holds exactly go to the even digit.
  EXPECT_EQ(cents(true, 0.25), "+0.2 ¢");
  EXPECT_EQ(cents(true, 0.75), "+0.8 ¢");
  EXPECT_EQ(cents(true, -2399.96), "−2400.0 ¢");
}

TEST(FrequencyText, HasOneDecimal) {
  EXPECT_EQ(hertz(true, 440.04), "440.0 Hz");
}

TEST(FrequencyText, IsADashWhileNothingIsHeard) {
  EXPECT_EQ(hertz(false, 440.0), "— Hz");
}

TEST(FrequencyText, HasADotInEveryLanguage) {
  if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8") == nullptr) {
    std::setlocale(LC_NUMERIC, "C.UTF-8");
    std::puts("no locale with a decimal comma is installed: only the toolkit's is tried");
  }
  QLocale::setDefault(QLocale(QLocale::German));
  EXPECT_EQ(hertz(true, 1234.5), "1234.5 Hz");
  QLocale::setDefault(QLocale::c());
  std::setlocale(LC_NUMERIC, "C");
}

TEST(HearingText, NamesTheHeardNote) {
  EXPECT_EQ(hearing(true, false, "A♯4"), "Hearing A♯4");
}

TEST(HearingText, IsEmptyOnThePianoWithoutASoundAndWithoutASpelling) {
  EXPECT_EQ(hearing(true, true, "A4"), "");
  EXPECT_EQ(hearing(false, false, "A4"), "");
  EXPECT_EQ(hearing(true, false, ""), "");
}

}  // namespace
}  // namespace corvane
