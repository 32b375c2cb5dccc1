#include "ui/controls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <ostream>

#include "tunings/tuning_library.h"
#include "ui/tuner_theme.h"

namespace corvane {
namespace {

std::vector<std::string> groupNames(Instrument instrument) {
  std::vector<std::string> names;
  for (const TuningGroup& group : groupedTunings(instrument)) names.push_back(group.name);
  return names;
}

std::string title(double a4) {
  return concertPitchTitle(a4).toStdString();
}

QColor withOpacity(QColor color, float opacity) {
  color.setAlphaF(opacity);
  return color;
}

TEST(GroupedTunings, GroupsStandInTheOrderInWhichTheyFirstOccur) {
  EXPECT_THAT(groupNames(Instrument::guitar),
              testing::ElementsAre("6-string", "Open and alternate", "Baritone", "7-string",
                                   "8-string", "12-string"));
  EXPECT_THAT(groupNames(Instrument::bass),
              testing::ElementsAre("4-string", "5-string", "6-string"));
  EXPECT_THAT(groupNames(Instrument::piano), testing::ElementsAre("Piano"));
}

TEST(GroupedTunings, EveryTuningStandsOnceInItsOwnGroupInTheLibrarysOrder) {
  for (const Instrument instrument : allInstruments) {
    std::vector<Tuning> expected;
    std::vector<Tuning> listed;
    for (const TuningGroup& group : groupedTunings(instrument)) {
      for (const Tuning& tuning : TuningLibrary::tunings(instrument)) {
        if (tuning.group == group.name) expected.push_back(tuning);
      }
      listed.insert(listed.end(), group.tunings.begin(), group.tunings.end());
    }
    EXPECT_TRUE(listed == expected) << rawValue(instrument);
    EXPECT_EQ(listed.size(), TuningLibrary::tunings(instrument).size());
  }
}

TEST(WholeHertz, RoundsHalvesAwayFromZero) {
  EXPECT_EQ(wholeHertz(431.5), 432);
  EXPECT_EQ(wholeHertz(432.5), 433);
  EXPECT_EQ(wholeHertz(432.49), 432);
}

TEST(ConcertPitchTitle, OfAPresetIsItsNumberAndItsName) {
  EXPECT_EQ(title(440.0), "440  Modern");
  EXPECT_EQ(title(414.6), "415  Baroque");
}

TEST(ConcertPitchTitle, Of431Point6IsThePlainNumber432) {
  EXPECT_EQ(title(431.6), "432");
}

TEST(ConcertPitchTitle, Of441WhichNoPresetHasIsCustom) {
  EXPECT_EQ(title(441.0), "Custom");
}

TEST(QuickPitches, AreFourInRisingOrder) {
  EXPECT_THAT(quickPitches, testing::ElementsAre(415, 432, 440, 466));
}

TEST(QuickPitches, A4Of431Point6Selects432And441SelectsNone) {
  EXPECT_THAT(quickPitches, testing::Contains(wholeHertz(431.6)));
  EXPECT_EQ(wholeHertz(431.6), 432);
  EXPECT_THAT(quickPitches, testing::Not(testing::Contains(wholeHertz(441.0))));
}

TEST(ChipFill, IsTheCardsWhileTheStringIsNotHeard) {
  EXPECT_EQ(chipFill(false, false, false), TunerTheme::card);
  EXPECT_EQ(chipFill(false, false, true), TunerTheme::card);
}

TEST(ChipFill, TellsInTuneFromNotInTune) {
  EXPECT_EQ(chipFill(false, true, true), withOpacity(TunerTheme::green, 0.35F));
  EXPECT_EQ(chipFill(false, true, false), withOpacity(TunerTheme::gold, 0.16F));
}

TEST(ChipFill, DoesNotDependOnBeingSelected) {
  for (const bool hearing : {false, true}) {
    for (const bool inTune : {false, true}) {
      EXPECT_EQ(chipFill(true, hearing, inTune), chipFill(false, hearing, inTune));
    }
  }
}

TEST(NeedleCentre, RestsInTheMiddleAtZero) {
  EXPECT_DOUBLE_EQ(needleCentre(300, 16, 50, 0), 150);
  EXPECT_DOUBLE_EQ(needleCentre(300, 16, 10, 0), 150);
}

TEST(NeedleCentre, TwelvePoint34CentsFlatIsAt3766TenThousandthsOfTheCentsBar) {
  EXPECT_DOUBLE_EQ(needleCentre(500, 16, 50, -12.34), 0.3766 * 500);
}

TEST(NeedleCentre, TwelvePoint34CentsFlatIsPinnedToTheStartOfTheFineBar) {
  EXPECT_DOUBLE_EQ(needleCentre(500, 16, 10, -12.34), 8);
}

TEST(NeedleCentre, StaysWhollyInsideTheBarAtBothEnds) {
  EXPECT_DOUBLE_EQ(needleCentre(300, 14, 50, -50), 7);
  EXPECT_DOUBLE_EQ(needleCentre(300, 14, 50, 50), 293);
  EXPECT_DOUBLE_EQ(needleCentre(300, 14, 50, -2400), 7);
  EXPECT_DOUBLE_EQ(needleCentre(300, 14, 50, 2400), 293);
}

TEST(NeedleMoves, ByATenthOfAPointButNotByLess) {
  // On 500 points for 20 cents a cent is 25 points.
  EXPECT_TRUE(needleMoves(500, 16, 10, 1.0, 1.005));
  EXPECT_TRUE(needleMoves(500, 16, 10, 1.0, 0.995));
  EXPECT_FALSE(needleMoves(500, 16, 10, 1.0, 1.003));
  EXPECT_FALSE(needleMoves(500, 16, 10, 1.0, 0.997));
}

TEST(NeedleMoves, ByAnyChangeOnABarThatIsNotLaidOutYet) {
  EXPECT_TRUE(needleMoves(0, 16, 10, 1.0, 1.001));
  EXPECT_FALSE(needleMoves(0, 16, 10, 1.0, 1.0));
}

TEST(NeedleMoves, NotBeyondTheEndOfItsBar) {
  EXPECT_FALSE(needleMoves(500, 16, 10, 12, 40));
  EXPECT_FALSE(needleMoves(500, 16, 10, -12, -40));
}

TEST(ScaleText, NamesBothEndsOfTheMeter) {
  EXPECT_EQ(scaleText(50).toStdString(), "−50   0   +50");
  EXPECT_EQ(scaleText(10).toStdString(), "−10   0   +10");
}

TEST(ScaleText, CutsOffTheFraction) {
  EXPECT_EQ(scaleText(10.9).toStdString(), "−10   0   +10");
}

TEST(ScaleTextDeathTest, StopsAtASpanThatIsNotFinite) {
  EXPECT_DEATH(scaleText(std::numeric_limits<double>::infinity()), "finite");
  EXPECT_DEATH(scaleText(std::numeric_limits<double>::quiet_NaN()), "finite");
}

}  // namespace
}  // namespace corvane
