// SPDX-License-Identifier: MIT
#include "ui/model/menu_entries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tunings/tuning_library.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using Entry = MenuModel::Entry;

std::vector<std::string> sectionsOf(const std::vector<Entry>& entries) {
  std::vector<std::string> sections;
  for (const Entry& entry : entries) sections.push_back(entry.section.toStdString());
  sections.erase(std::unique(sections.begin(), sections.end()), sections.end());
  return sections;
}

TEST(TuningEntries, GroupTheTuningsInTheOrderOfTheirFirst) {
  EXPECT_THAT(sectionsOf(tuningEntries(Instrument::guitar, "")),
              ElementsAre("6-string", "Open and alternate", "Baritone", "7-string", "8-string",
                          "12-string"));
  EXPECT_THAT(sectionsOf(tuningEntries(Instrument::bass, "")),
              ElementsAre("4-string", "5-string", "6-string"));
  EXPECT_THAT(sectionsOf(tuningEntries(Instrument::piano, "")), ElementsAre("Piano"));
}

TEST(TuningEntries, AreEveryTuningInItsGroupInTheLibrarysOrder) {
  for (const Instrument instrument : allInstruments) {
    const auto entries = tuningEntries(instrument, "g6-dadgad");
    std::vector<Entry> expected;
    for (const std::string& section : sectionsOf(entries)) {
      for (const Tuning& tuning : TuningLibrary::tunings(instrument)) {
        if (tuning.group != section) continue;
        expected.push_back(
            {section.c_str(), tuning.name.c_str(), tuning.id.c_str(), tuning.id == "g6-dadgad"});
      }
    }
    EXPECT_TRUE(entries == expected) << rawValue(instrument);
    EXPECT_EQ(entries.size(), TuningLibrary::tunings(instrument).size());
  }
}

TEST(ConcertPitchEntries, AreOlderPitchesBelow440AndThenModernOnes) {
  const auto entries = concertPitchEntries();
  EXPECT_THAT(sectionsOf(entries), ElementsAre("Older pitches", "Modern"));
  std::vector<int> hertz;
  for (const Entry& entry : entries) {
    hertz.push_back(entry.value.toInt());
    EXPECT_EQ(entry.section == "Modern", hertz.back() >= 440) << hertz.back();
  }
  EXPECT_THAT(hertz, ElementsAre(377, 392, 415, 422, 430, 432, 435, 440, 442, 466, 560));
  EXPECT_EQ(entries[2].title, "415  Baroque");
  EXPECT_EQ(entries[5].title, "432");
}

TEST(HelpEntries, AreThePrivacyPolicyAlone) {
  EXPECT_THAT(helpEntries(), ElementsAre(Entry{"", "Privacy Policy", "", false}));
}

}  // namespace
}  // namespace corvane
