#include "platform/qt/qt_preferences.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
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

TEST_F(QtPreferencesTest, AnAbsentFileHoldsNothing) {
  expectNothingStored();
}

TEST_F(QtPreferencesTest, EveryTypeSurvivesARestart) {
  {
    QtPreferences preferences(path);
    preferences.setString("tuner.instrument", "bass");
    preferences.setString("tuner.tuning", "b5-dropa");
    preferences.setNumber("tuner.a4", 441.7);
    preferences.setBoolean("tuner.left", true);
  }
  const QtPreferences preferences(path);
  EXPECT_THAT(preferences.string("tuner.instrument"), Optional(std::string("bass")));
  EXPECT_THAT(preferences.string("tuner.tuning"), Optional(std::string("b5-dropa")));
  EXPECT_THAT(preferences.number("tuner.a4"), Optional(441.7));
  EXPECT_THAT(preferences.boolean("tuner.left"), Optional(true));
}

TEST_F(QtPreferencesTest, ANumberComesBackToTheLastBit) {
  for (const double value : {377.0, std::nextafter(440.0, 441.0), 1.0 / 3.0, 559.9999999999999}) {
    { QtPreferences(path).setNumber("tuner.a4", value); }
    EXPECT_THAT(QtPreferences(path).number("tuner.a4"), Optional(value));
  }
}

TEST_F(QtPreferencesTest, AValueIsReadBackBeforeItIsWritten) {
  QtPreferences preferences(path);
  preferences.setNumber("tuner.a4", 442.0);
  preferences.setBoolean("tuner.left", true);
  EXPECT_THAT(preferences.number("tuner.a4"), Optional(442.0));
  EXPECT_THAT(preferences.boolean("tuner.left"), Optional(true));
}

TEST_F(QtPreferencesTest, ValuesReachTheFileWhileTheProgramRuns) {
  { QtPreferences(path).setString("other.key", "kept"); }
  QtPreferences preferences(path);
  preferences.setString("tuner.tuning", "g6-dropd");
  EXPECT_TRUE(saves("tuner.tuning=g6-dropd"));
  EXPECT_THAT(read().toStdString(), testing::HasSubstr("other.key=kept"));
}

TEST_F(QtPreferencesTest, AValueOfAnotherTypeReadsAsAbsent) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("corvane"));
  for (const char* values : {"tuner.a4=concert\ntuner.left=maybe", "tuner.a4=\ntuner.left=1",
                             "tuner.a4=440, 442\ntuner.left=@Invalid()"}) {
    write("[General]\n" + QByteArray(values) + "\n");
    expectNothingStored();
  }
}

TEST_F(QtPreferencesTest, AValueThatDescribesSomethingElseThanATextReadsAsAbsent) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("corvane"));
  for (const std::string value : {"guitar, bass", "@Variant(\\0\\0\\0\\x9)", "@Rect(1 2 3 4)",
                                  "a=b", "\"quoted\"", "\\x41", "[General]", "é♯"}) {
    write(QByteArray::fromStdString("[General]\ntuner.instrument=" + value + "\n"));
    EXPECT_EQ(QtPreferences(path).string("tuner.instrument"), std::nullopt) << value;
  }
}

TEST_F(QtPreferencesTest, AFileThatDescribesListsWithinListsDoesNotOverflowTheStack) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("corvane"));
  // As the toolkit would write a list that holds one list, and so on, deeper than any stack.
  const QByteArray list = QByteArray("\\0\\0\\0\\x9\\0\\0\\0\\x1").repeated(200000);
  write("[General]\ntuner.a4=@Variant(" + list + ")\n");
  EXPECT_EQ(QtPreferences(path).number("tuner.a4"), std::nullopt);
}

TEST_F(QtPreferencesTest, AFileFarLargerThanAnySettingsIsLeftAsItIs) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("corvane"));
  const QByteArray text = "[General]\ntuner.left=true\n" + QByteArray(100000, 'x') + "=1\n";
  write(text);
  {
    QtPreferences preferences(path);
    EXPECT_EQ(preferences.boolean("tuner.left"), std::nullopt);
    preferences.setBoolean("tuner.left", false);
  }
  EXPECT_EQ(read().toStdString(), text.toStdString());
}

TEST_F(QtPreferencesTest, OnlyTheGeneralSectionIsRead) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("corvane"));
  write(
      "; a remark\r\n[other]\r\ntuner.a4=500\r\n[General]\r\n tuner.a4 = 415 "
      "\r\n[last\r\ntuner.a4=390\r\n");
  EXPECT_THAT(QtPreferences(path).number("tuner.a4"), Optional(415.0));
}

TEST_F(QtPreferencesTest, WhatIsNoSettingIsNotKeptByASave) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("corvane"));
  write("; a remark\n[other]\nkey=1\n[General]\ntuner.a4=415\n");
  { QtPreferences(path).setBoolean("tuner.left", true); }
  EXPECT_EQ(read(), "[General]\ntuner.a4=415\ntuner.left=true\n");
}

TEST_F(QtPreferencesTest, WhatStandsBeforeAnySectionIsGeneral) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("corvane"));
  write("tuner.a4=415\n");
  EXPECT_THAT(QtPreferences(path).number("tuner.a4"), Optional(415.0));
}

TEST_F(QtPreferencesTest, ANumberIsWrittenTheSameWayInEveryLanguage) {
  QLocale::setDefault(QLocale(QLocale::German));
  { QtPreferences(path).setNumber("tuner.a4", 441.5); }
  EXPECT_THAT(read().toStdString(), testing::HasSubstr("tuner.a4=441.5"));
  EXPECT_THAT(QtPreferences(path).number("tuner.a4"), Optional(441.5));
  QLocale::setDefault(QLocale::c());
}

TEST_F(QtPreferencesTest, ACorruptFileReadsAsAbsentAndIsReplacedByTheNextSave) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("corvane"));
  write(QByteArray("\x00\xff[[[\n=\n\x7f garbage", 18));
  expectNothingStored();
  { QtPreferences(path).setNumber("tuner.a4", 415.0); }
  EXPECT_THAT(QtPreferences(path).number("tuner.a4"), Optional(415.0));
}

TEST_F(QtPreferencesTest, WhereTheFileCannotBeWrittenTheProgramGoesOnWithWhatItHas) {
  ASSERT_TRUE(QDir(folder.path()).mkpath("corvane/corvane.conf"));  // a folder in its place
  QtPreferences preferences(path);
  EXPECT_EQ(preferences.number("tuner.a4"), std::nullopt);
  preferences.setNumber("tuner.a4", 415.0);
  QCoreApplication::processEvents();
  EXPECT_THAT(preferences.number("tuner.a4"), Optional(415.0));
}

TEST_F(QtPreferencesTest, TheFileLiesInTheUsersConfigurationFolder) {
  EXPECT_TRUE(QtPreferences::defaultPath().endsWith("/corvane/corvane.conf"));
}

}  // namespace
}  // namespace corvane
