// SPDX-License-Identifier: MIT
#include "tunings/instrument.h"

#include <gmock/gmock.h>

#include <unordered_set>

namespace corvane {
namespace {

TEST(Instrument, AllAreInTheOrderOfThePicker) {
  EXPECT_THAT(allInstruments,
              testing::ElementsAre(Instrument::guitar, Instrument::bass, Instrument::piano));
  const std::unordered_set<Instrument> hashed(allInstruments.begin(), allInstruments.end());
  EXPECT_EQ(hashed.size(), 3U);
}

TEST(Instrument, CapitalisedTitleIsNoRawValue) {
  struct Names {
    Instrument instrument;
    const char* raw;
    const char* title;
  };
  for (const auto& [instrument, raw, title] :
       {Names{Instrument::guitar, "guitar", "Guitar"}, Names{Instrument::bass, "bass", "Bass"},
        Names{Instrument::piano, "piano", "Piano"}}) {
    EXPECT_EQ(rawValue(instrument), raw);
    EXPECT_EQ(displayTitle(instrument), title);
    EXPECT_THAT(instrumentFromRawValue(raw), testing::Optional(instrument));
    EXPECT_FALSE(instrumentFromRawValue(title)) << "capitalised";
  }
}

TEST(Instrument, OtherTextGivesNothing) {
  for (const std::string_view text : {"", "guita", "guitars", " guitar", "guitar ", "GUITAR"}) {
    EXPECT_FALSE(instrumentFromRawValue(text)) << text;
  }
  EXPECT_FALSE(instrumentFromRawValue(std::string_view("bass\0", 5)));
}

}  // namespace
}  // namespace corvane
