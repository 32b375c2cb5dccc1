// SPDX-License-Identifier: MIT
#include "ui/speech/spoken_text.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(DeviationInWords, SaysWholeCentsAndTheSide) {
  EXPECT_EQ(deviationInWords(-4.2), "4 cents flat");
  EXPECT_EQ(deviationInWords(12.5), "13 cents sharp");
  EXPECT_EQ(deviationInWords(-1.4), "1 cent flat");
  EXPECT_EQ(deviationInWords(0.5), "1 cent sharp");
  EXPECT_EQ(deviationInWords(0.0), "no cents off");
  EXPECT_EQ(deviationInWords(-0.4), "no cents off");
}

TEST(MeterInWords, NamesTheNoteWithinTheMetersRange) {
  EXPECT_EQ(meterInWords(true, "E2", -40.0, 50.0), "E2, 40 cents flat");
  EXPECT_EQ(meterInWords(true, "E2", -40.0, 10.0), "E2, more than 10 cents flat");
  EXPECT_EQ(meterInWords(true, "E2", 10.0, 10.0), "E2, 10 cents sharp");
  EXPECT_EQ(meterInWords(true, "E2", 10.01, 10.0), "E2, more than 10 cents sharp");
  EXPECT_EQ(meterInWords(false, "E2", -12.0, 50.0), "nothing heard");
}

TEST(LevelInWords, GoesInTensOfAPercent) {
  EXPECT_EQ(levelInWords(1.0), "100 percent");
  EXPECT_EQ(levelInWords(0.64), "60 percent");
  EXPECT_EQ(levelInWords(0.005), "10 percent");
  EXPECT_EQ(levelInWords(0.0049), "silent");
}

}  // namespace
}  // namespace corvane
