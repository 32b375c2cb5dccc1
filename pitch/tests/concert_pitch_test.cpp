#include <gmock/gmock.h>

#include <functional>
#include <unordered_set>

#include "pitch/pitch_math.h"

namespace corvane::PitchMath {
namespace {

using testing::ElementsAre;

TEST(SharpNames, AreTheTwelvePitchClassesFromCUpwards) {
  EXPECT_THAT(sharpNames,
              ElementsAre("C", "C♯", "D", "D♯", "E", "F", "F♯", "G", "G♯", "A", "A♯", "B"));
  EXPECT_EQ(sharpNames[1], "C\xE2\x99\xAF") << "the sharp is U+266F in UTF-8";
}

TEST(ConcertPitches, AreTheElevenPresetsInTheOrderOfTheMenu) {
  EXPECT_THAT(concertPitches,
              ElementsAre(ConcertPitch{377, "Low historical"}, ConcertPitch{392, "French Baroque"},
                          ConcertPitch{415, "Baroque"}, ConcertPitch{422, "Handel, Mozart era"},
                          ConcertPitch{430, "Classical"}, ConcertPitch{432, ""},
                          ConcertPitch{435, "French 1859"}, ConcertPitch{440, "Modern"},
                          ConcertPitch{442, "Orchestra"}, ConcertPitch{466, "High choir"},
                          ConcertPitch{560, "High historical"}));
}

TEST(ConcertPitches, HaveTitlesOfTwoColumns) {
  std::vector<std::string> titles;
  for (const ConcertPitch& pitch : concertPitches) titles.push_back(pitch.title());
  EXPECT_THAT(titles, ElementsAre("377  Low historical", "392  French Baroque", "415  Baroque",
                                  "422  Handel, Mozart era", "430  Classical", "432",
                                  "435  French 1859", "440  Modern", "442  Orchestra",
                                  "466  High choir", "560  High historical"));
}

TEST(ConcertPitches, TheOneWithoutANameHasNoTrailingSpaceAndEveryOtherExactlyTwoSpaces) {
  for (const ConcertPitch& pitch : concertPitches) {
    const std::string title = pitch.title();
    if (pitch.hertz == 432) {
      EXPECT_EQ(title, "432");
      continue;
    }
    const std::size_t gap = title.find(' ');
    ASSERT_EQ(gap, std::to_string(pitch.hertz).size()) << title;
    EXPECT_EQ(title.find_first_not_of(' ', gap), gap + 2) << title;
  }
}

TEST(ConcertPitch, WritesThousandsWithoutGrouping) {
  EXPECT_EQ((ConcertPitch{1000, ""}).title(), "1000");
  EXPECT_EQ((ConcertPitch{1234567, "Bats"}).title(), "1234567  Bats");
}

TEST(ConcertPitch, IsIdentifiedByItsFrequencyWhichNoTwoPresetsShare) {
  std::unordered_set<std::int64_t> ids;
  for (const ConcertPitch& pitch : concertPitches) {
    EXPECT_EQ(pitch.id(), pitch.hertz);
    EXPECT_TRUE(ids.insert(pitch.id()).second) << pitch.hertz;
  }
}

TEST(ConcertPitch, IsEqualWhenFrequencyAndNameAre) {
  const ConcertPitch modern{440, "Modern"};
  EXPECT_EQ(modern, (ConcertPitch{440, std::string_view("Modern, really").substr(0, 6)}));
  EXPECT_NE(modern, (ConcertPitch{441, "Modern"}));
  EXPECT_NE(modern, (ConcertPitch{440, "modern"}));
}

TEST(ConcertPitch, HashesItsFrequencyAndItsName) {
  const std::hash<ConcertPitch> hash;
  const ConcertPitch modern{440, "Modern"};
  EXPECT_EQ(hash(modern), hash({440, std::string_view("Modern, really").substr(0, 6)}));
  EXPECT_NE(hash(modern), hash({441, "Modern"}));
  EXPECT_NE(hash(modern), hash({440, "Baroque"}));
}

TEST(ConcertPitch, CanBeKeptInAHashedSet) {
  const std::unordered_set<ConcertPitch> set(concertPitches.begin(), concertPitches.end());
  EXPECT_EQ(set.size(), concertPitches.size());
  EXPECT_TRUE(set.contains({432, ""}));
  EXPECT_FALSE(set.contains({432, "Modern"}));
}

}  // namespace
}  // namespace corvane::PitchMath
