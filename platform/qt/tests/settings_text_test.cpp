// SPDX-License-Identifier: MIT
#include "platform/qt/settings_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane::SettingsText {
namespace {

TEST(SettingsText, ReadsOnlyWholeLinesOfTheGeneralGroup) {
  const QByteArray damaged("[General]\n\x00=1\n=\n\xff\xfe=3\nb=\x7f\nplain\nc=4\ntuner.a4", 41);
  const Values a4 = {{"tuner.a4", "415"}};
  for (const auto& [text, values] :
       {std::pair(QByteArray(""), Values{}),
        {"[General]\ntuner.a4=441.7\n tuner.left = true \r\n",
         {{"tuner.a4", "441.7"}, {"tuner.left", "true"}}},
        {"tuner.a4=415", a4},
        {"; remark\r\n[other]\r\ntuner.a4=500\r\n[General]\r\n tuner.a4 = 415 \r\n[last\r\na=1",
         a4},
        {"[General]\ntuner.a4=1\ntuner.a4=415\n", a4},
        {damaged, {{"c", "4"}}}}) {
    EXPECT_EQ(parse(text), values) << text.constData();
  }
}

TEST(SettingsText, ParsesToTheSameValuesOnceFormatted) {
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    const QByteArray text = QByteArray("a") + c + "b=c" + c + "d\ntuner.a4=440" + c;
    const Values values = parse(text);
    EXPECT_EQ(parse(format(values)), values) << byte;
  }
}

TEST(SettingsText, IsPlainWithoutSpecialCharacters) {
  for (const auto* const text : {"tuner.a4", "g6-standard", "1e+20", "true", "a_b", "azAZ09"}) {
    EXPECT_TRUE(isPlain(text)) << text;
  }
  for (const auto* const text : {"", "a b", "a=b", "[a]", "a,b", "@a", "\"a\"", "ä", "a\n"}) {
    EXPECT_FALSE(isPlain(text)) << text;
  }
}

}  // namespace
}  // namespace corvane::SettingsText
