#include "tunings/instrument.h"

#include <gmock/gmock.h>

#include <unordered_set>

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::Optional;

TEST(Instrument, TheThreeComeInTheOrderOfThePicker) {
  EXPECT_THAT(allInstruments, ElementsAre(Instrument::guitar, Instrument::bass, Instrument::piano));
}

TEST(Instrument, RawValuesAreTheTextsThatAreKeptInThePreferences) {
  EXPECT_EQ(rawValue(Instrument::guitar), "guitar");
  EXPECT_EQ(rawValue(Instrument::bass), "bass");
  EXPECT_EQ(rawValue(Instrument::piano), "piano");
}

TEST(Instrument, DisplayTitlesAreCapitalised) {
  EXPECT_EQ(displayTitle(Instrument::guitar), "Guitar");
  EXPECT_EQ(displayTitle(Instrument::bass), "Bass");
  EXPECT_EQ(displayTitle(Instrument::piano), "Piano");
}

TEST(Instrument, IsFoundByItsRawValue) {
  EXPECT_THAT(instrumentFromRawValue("guitar"), Optional(Instrument::guitar));
  EXPECT_THAT(instrumentFromRawValue("bass"), Optional(Instrument::bass));
  EXPECT_THAT(instrumentFromRawValue("piano"), Optional(Instrument::piano));
}

TEST(Instrument, TheCapitalisedTitleIsNoRawValue) {
  EXPECT_FALSE(instrumentFromRawValue("Guitar"));
  EXPECT_FALSE(instrumentFromRawValue("Bass"));
  EXPECT_FALSE(instrumentFromRawValue("Piano"));
}

TEST(Instrument, AnyOtherTextGivesNone) {
  for (const char* text : {"", "guita", "guitars", " guitar", "guitar ", "GUITAR", "ukulele"}) {
    EXPECT_FALSE(instrumentFromRawValue(text)) << text;
  }
  EXPECT_FALSE(instrumentFromRawValue(std::string_view("bass\0", 5)));
}

TEST(Instrument, CanBeKeptInAHashedSet) {
  const std::unordered_set<Instrument> set(allInstruments.begin(), allInstruments.end());
  EXPECT_EQ(set.size(), 3U);
}

}  // namespace
}  // namespace corvane
