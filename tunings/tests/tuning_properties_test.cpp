#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string_view>

#include "tunings/tuning_library.h"

namespace corvane {
namespace {

/// Every tuning of every instrument.
std::vector<Tuning> everyTuning() {
  std::vector<Tuning> all;
  for (const Instrument instrument : allInstruments) {
    const auto& table = TuningLibrary::tunings(instrument);
    all.insert(all.end(), table.begin(), table.end());
  }
  return all;
}

TEST(TuningProperties, AllIdsAreDistinct) {
  std::set<std::string> ids;
  for (const Tuning& tuning : everyTuning()) EXPECT_TRUE(ids.insert(tuning.id).second) << tuning.id;
  EXPECT_EQ(ids.size(), 33U);
}

TEST(TuningProperties, StringsAscendStrictlyInPitch) {
  for (const Tuning& tuning : everyTuning()) {
    for (std::size_t i = 1; i < tuning.strings.size(); ++i) {
      EXPECT_LT(tuning.strings[i - 1].midi, tuning.strings[i].midi) << tuning.id;
    }
  }
}

TEST(TuningProperties, StringsAreNumberedFromZeroAndIdentifiedByTheirNumber) {
  for (const Tuning& tuning : everyTuning()) {
    std::int64_t next = 0;
    for (const GuitarString& string : tuning.strings) {
      EXPECT_EQ(string.index, next++) << tuning.id;
      EXPECT_EQ(string.id(), string.index);
    }
  }
}

/// The pitch class that a label such as "F♯" names, 0 for C; -1 when it is no label.
int pitchClass(std::string_view label) {
  constexpr std::string_view letters = "C D EF G A B";
  const std::size_t letter = letters.find(label.substr(0, 1));
  if (letter == std::string_view::npos || label[0] == ' ') return -1;
  const std::string_view sign = label.substr(1);
  const int natural = static_cast<int>(letter);
  if (sign.empty()) return natural;
  if (sign == "♯") return (natural + 1) % 12;
  return sign == "♭" ? (natural + 11) % 12 : -1;
}

TEST(TuningProperties, LabelsNameThePitchOfTheirString) {
  for (const Tuning& tuning : everyTuning()) {
    for (const GuitarString& string : tuning.strings) {
      EXPECT_EQ(pitchClass(string.label), string.midi % 12) << tuning.id << ' ' << string.label;
    }
  }
}

TEST(TuningProperties, IdsOfStringedInstrumentsBeginWithTheInstrumentAndTheNumberOfStrings) {
  const auto prefix = [](char letter, const Tuning& tuning) {
    // A twelve-string guitar is tuned as six courses.
    const std::size_t count = tuning.id == "g12-standard" ? 12 : tuning.strings.size();
    return letter + std::to_string(count) + '-';
  };
  for (const Tuning& tuning : TuningLibrary::guitar()) {
    EXPECT_TRUE(tuning.id.starts_with(prefix('g', tuning))) << tuning.id;
  }
  for (const Tuning& tuning : TuningLibrary::bass()) {
    EXPECT_TRUE(tuning.id.starts_with(prefix('b', tuning))) << tuning.id;
  }
}

TEST(TuningProperties, TheTwelveStringGuitarIsTunedAsItsSixCourses) {
  const Tuning& twelve = TuningLibrary::resolve(Instrument::guitar, "g12-standard");
  EXPECT_EQ(twelve.strings, TuningLibrary::guitar().front().strings);
}

TEST(GuitarString, IsEqualWhenAllThreeFieldsAre) {
  const GuitarString string{1, 45, "A"};
  EXPECT_EQ(string, (GuitarString{1, 45, "A"}));
  EXPECT_NE(string, (GuitarString{2, 45, "A"}));
  EXPECT_NE(string, (GuitarString{1, 46, "A"}));
  EXPECT_NE(string, (GuitarString{1, 45, "B"}));
}

TEST(Tuning, IsEqualWhenAllFiveFieldsAre) {
  const Tuning tuning{"id", "name", "group", "detail", {{0, 45, "A"}}};
  EXPECT_EQ(tuning, (Tuning{"id", "name", "group", "detail", {{0, 45, "A"}}}));
  EXPECT_NE(tuning, (Tuning{"ID", "name", "group", "detail", {{0, 45, "A"}}}));
  EXPECT_NE(tuning, (Tuning{"id", "Name", "group", "detail", {{0, 45, "A"}}}));
  EXPECT_NE(tuning, (Tuning{"id", "name", "Group", "detail", {{0, 45, "A"}}}));
  EXPECT_NE(tuning, (Tuning{"id", "name", "group", "Detail", {{0, 45, "A"}}}));
  EXPECT_NE(tuning, (Tuning{"id", "name", "group", "detail", {{0, 45, "B"}}}));
  EXPECT_NE(tuning, (Tuning{"id", "name", "group", "detail", {}}));
}

}  // namespace
}  // namespace corvane
