// SPDX-License-Identifier: MIT
#include "platform/qt/qt_preferences.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLocale>
#include <cmath>

#include "platform/qt/tests/settings_folder.h"

namespace corvane {
namespace {

using testing::Optional;

class QtPreferencesTest : public SettingsFolderTest {
 protected:
  void expectNothingStored() const {
    const QtPreferences preferences(path);
    EXPECT_EQ(preferences.string("tuner.instrument"), std::nullopt);
    EXPECT_EQ(preferences.number("tuner.a4"), std::nullopt);
    EXPECT_EQ(preferences.boolean("tuner.left"), std::nullopt);
  }
};

TEST_F(QtPreferencesTest, EveryTypeIsRestoredInEveryLanguage) {
  QDir(folder.path()).rmdir("corvane");
  expectNothingStored();
  QLocale::setDefault(QLocale(QLocale::German));
  {
    QtPreferences preferences(path);
    preferences.setString("tuner.instrument", "bass");
    preferences.setNumber("tuner.a4", 441.5);
    preferences.setBoolean("tuner.left", true);
    preferences.setBoolean("other", false);
  }
  const QtPreferences preferences(path);
  EXPECT_THAT(preferences.string("tuner.instrument"), Optional(std::string("bass")));
  EXPECT_THAT(preferences.number("tuner.a4"), Optional(441.5));
  EXPECT_THAT(preferences.boolean("tuner.left"), Optional(true));
  EXPECT_THAT(preferences.boolean("other"), Optional(false));
  QLocale::setDefault(QLocale::c());
  EXPECT_EQ(read(),
            "[General]\nother=false\ntuner.a4=441.5\ntuner.instrument=bass\ntuner.left=true\n");
}

TEST_F(QtPreferencesTest, ANumberIsRestoredToTheLastBit) {
  for (const double value : {377.0, std::nextafter(440.0, 441.0), 1.0 / 3.0, 559.9999999999999}) {
    {
      QtPreferences(path).setNumber("tuner.a4", value);
    }
    EXPECT_THAT(QtPreferences(path).number("tuner.a4"), Optional(value));
  }
}

TEST_F(QtPreferencesTest, AValueOfAnotherTypeReadsAsAbsent) {
  for (const auto& [a4, left] :
       {std::pair("concert", "maybe"), {"", "1"}, {"440, 442", "@Invalid()"}}) {
    write(QByteArray("[General]\ntuner.a4=") + a4 + "\ntuner.left=" + left + "\n");
    expectNothingStored();
  }
  for (const char* text : {"guitar, bass", "@Variant(\\0\\0\\0\\x9)", "\\x41", "é♯"}) {
    write(QByteArray("[General]\ntuner.instrument=") + text + "\n");
    expectNothingStored();
  }
}

TEST_F(QtPreferencesTest, ATooLargeFileIsNotChanged) {
  constexpr int largest = 64 * 1024;
  const QByteArray begin = "[General]\ntuner.left=true\n";
  const QByteArray fits = begin + QByteArray(largest - begin.size(), 'x');
  const QByteArray isTooLarge = fits + "x";
  write(fits);
  EXPECT_THAT(QtPreferences(path).boolean("tuner.left"), Optional(true));
  write(isTooLarge);
  expectNothingStored();
  {
    QtPreferences(path).setBoolean("tuner.left", false);
  }
  EXPECT_TRUE(read() == isTooLarge);
}

TEST_F(QtPreferencesTest, TheFileIsInTheConfigurationFolder) {
  const QByteArray before = qgetenv("XDG_CONFIG_HOME");
  qputenv("XDG_CONFIG_HOME", "/their/folder");
  EXPECT_EQ(QtPreferences::defaultPath(), "/their/folder/corvane/corvane.conf");
  for (const char* ignored : {"", "relative", "./here", "~/.config"}) {
    qputenv("XDG_CONFIG_HOME", ignored);
    EXPECT_EQ(QtPreferences::defaultPath(), QDir::homePath() + "/.config/corvane/corvane.conf");
  }
  qputenv("XDG_CONFIG_HOME", before);
}

}  // namespace
}  // namespace corvane
