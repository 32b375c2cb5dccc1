#include "ui/menus.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tunings/tuning_library.h"

namespace corvane {
namespace {

using Entry = MenuModel::Entry;

std::vector<std::string> sectionsOf(const std::vector<Entry>& entries) {
  std::vector<std::string> sections;
  for (const Entry& entry : entries) sections.push_back(entry.section.toStdString());
  sections.erase(std::unique(sections.begin(), sections.end()), sections.end());
  return sections;
}

std::vector<std::string> valuesOf(const std::vector<Entry>& entries) {
  std::vector<std::string> values;
  for (const Entry& entry : entries) values.push_back(entry.value.toStdString());
  return values;
}

TEST(TuningEntries, StandInOneSectionAGroup) {
  EXPECT_THAT(sectionsOf(tuningEntries(Instrument::guitar, "")),
              testing::ElementsAre("6-string", "Open and alternate", "Baritone", "7-string",
                                   "8-string", "12-string"));
}

TEST(TuningEntries, AreAllTuningsOfTheInstrumentByNameAndId) {
  const auto entries = tuningEntries(Instrument::bass, "");
  ASSERT_EQ(entries.size(), TuningLibrary::bass().size());
  EXPECT_EQ(entries.front(), (Entry{"4-string", "4-string standard", "b4-standard", false}));
  EXPECT_EQ(entries.back(), (Entry{"6-string", "6-string standard", "b6-standard", false}));
}

TEST(TuningEntries, OnlyTheCurrentTuningIsChosen) {
  for (const Entry& entry : tuningEntries(Instrument::guitar, "g6-dadgad")) {
    EXPECT_EQ(entry.chosen, entry.value == "g6-dadgad") << entry.title.toStdString();
  }
}

TEST(ConcertPitchEntries, OlderPitchesComeBeforeModernOnes) {
  EXPECT_THAT(sectionsOf(concertPitchEntries()), testing::ElementsAre("Older pitches", "Modern"));
}

TEST(ConcertPitchEntries, AreEveryPresetInItsOwnOrder) {
  EXPECT_THAT(valuesOf(concertPitchEntries()),
              testing::ElementsAre("377", "392", "415", "422", "430", "432", "435", "440", "442",
                                   "466", "560"));
}

TEST(ConcertPitchEntries, TheModernSectionStartsAt440) {
  for (const Entry& entry : concertPitchEntries()) {
    EXPECT_EQ(entry.section == "Modern", entry.value.toInt() >= 440) << entry.title.toStdString();
  }
}

TEST(ConcertPitchEntries, ShowTheTitleOfThePreset) {
  const auto entries = concertPitchEntries();
  EXPECT_EQ(entries[2].title, "415  Baroque");
  EXPECT_EQ(entries[5].title, "432");
}

TEST(HelpEntries, AreThePrivacyPolicyAlone) {
  EXPECT_THAT(helpEntries(), testing::ElementsAre(Entry{"", "Privacy Policy", "", false}));
}

}  // namespace
}  // namespace corvane
