#include "platform/qt/settings_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane::SettingsText {
namespace {

TEST(SettingsText, KeysAndValuesAreReadAsTheyStand) {
  EXPECT_EQ(parse("[General]\ntuner.a4=441.7\n tuner.left = true \r\n"),
            (Values{{"tuner.a4", "441.7"}, {"tuner.left", "true"}}));
}

TEST(SettingsText, WhatStandsBeforeEveryGroupIsReadToo) {
  EXPECT_EQ(parse("tuner.a4=415"), (Values{{"tuner.a4", "415"}}));
}

TEST(SettingsText, AnotherGroupIsPassedOver) {
  EXPECT_EQ(parse("[Other]\ntuner.a4=415\n[General]\ntuner.left=true\n"),
            (Values{{"tuner.left", "true"}}));
}

TEST(SettingsText, TheLastOfTwoLinesCounts) {
  EXPECT_EQ(parse("[General]\na=1\na=2\n"), (Values{{"a", "2"}}));
}

TEST(SettingsText, AnEmptyTextHoldsNothing) {
  EXPECT_EQ(parse(""), Values{});
}

TEST(SettingsText, DamagedLinesArePassedOver) {
  const QByteArray damaged("[General]\n\x00=1\n=\n\xff\xfe=3\nb=\x7f\nplain\nc=4\ntuner.a4", 41);
  EXPECT_EQ(parse(damaged), (Values{{"c", "4"}}));
}

TEST(SettingsText, EveryTextIsReadBackTheSameOnceItHasBeenWritten) {
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    const QByteArray text = QByteArray("a") + c + "b=c" + c + "d\ntuner.a4=440" + c;
    const Values values = parse(text);
    EXPECT_EQ(parse(format(values)), values) << byte;
  }
}

TEST(SettingsText, PlainIsWhatCannotBeTakenForAnythingElse) {
  for (const auto* const text : {"tuner.a4", "g6-standard", "1e+20", "true", "a_b"}) {
    EXPECT_TRUE(isPlain(text)) << text;
  }
  for (const auto* const text : {"", "a b", "a=b", "[a]", "a,b", "@a", "\"a\"", "ä", "a\n"}) {
    EXPECT_FALSE(isPlain(text)) << text;
  }
}

}  // namespace
}  // namespace corvane::SettingsText
