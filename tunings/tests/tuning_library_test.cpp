// SPDX-License-Identifier: MIT
#include "tunings/tuning_library.h"

#include <gtest/gtest.h>

#include <set>

#include "tunings/table.h"

namespace corvane::TuningLibrary {
namespace {

TEST(MakeTable, NumbersTheStringsAndUsesTheLabelsAsDetail) {
  const std::vector<Tuning> table = makeTable({{"id", "Name", "Group", {40, 45}, "E A♯"},
                                               {"other", "Name", "Group", {40}, "E", "In words"}});
  EXPECT_EQ(table, (std::vector<Tuning>{
                       {"id", "Name", "Group", "E A♯", {{0, 40, "E"}, {1, 45, "A♯"}}},
                       {"other", "Name", "Group", "In words", {{0, 40, "E"}}},
                   }));
}

TEST(MakeTableDeathTest, MoreLabelsThanPitchesStopTheProgram) {
  EXPECT_DEATH(makeTable({{"id", "Name", "Group", {40}, "E A"}}), "broken invariant");
}

TEST(TuningLibrary, IdsAreDistinctAndResolveToTheirRow) {
  std::set<std::string> ids;
  for (const Instrument instrument : allInstruments) {
    for (const Tuning& row : tunings(instrument)) {
      EXPECT_TRUE(ids.insert(row.id).second) << row.id;
      EXPECT_EQ(&resolve(instrument, row.id), &row) << row.id;
      EXPECT_EQ(find(instrument, row.id), &row) << row.id;
    }
  }
  EXPECT_EQ(ids.size(), 33U);
}

TEST(TuningLibrary, StringsAscendInPitchAndAreNumberedFromZero) {
  for (const Instrument instrument : allInstruments) {
    for (const Tuning& tuning : tunings(instrument)) {
      for (std::size_t i = 0; i < tuning.strings.size(); ++i) {
        const GuitarString& string = tuning.strings[i];
        EXPECT_EQ(string.index, static_cast<std::int64_t>(i)) << tuning.id;
        EXPECT_EQ(string.id(), string.index);
        EXPECT_TRUE(i == 0 || tuning.strings[i - 1].midi < string.midi) << tuning.id;
      }
    }
  }
}

TEST(TuningLibrary, FindsDropDForTheGuitarOnly) {
  EXPECT_EQ(resolve(Instrument::guitar, "g6-dropd").name, "Drop D");
  EXPECT_EQ(resolve(Instrument::bass, "g6-dropd").id, "b4-standard");
  EXPECT_EQ(find(Instrument::bass, "g6-dropd"), nullptr);
}

TEST(TuningLibrary, AnEmptyOrForeignIdGivesTheDefault) {
  struct Default {
    Instrument instrument;
    const char* id;
  };
  for (const auto& [instrument, id] :
       {Default{Instrument::guitar, "g6-standard"}, Default{Instrument::bass, "b4-standard"},
        Default{Instrument::piano, "piano-chromatic"}}) {
    for (const char* unknown : {"", "G6-dropd", "g6-dropD", "g6-drop", "g6-dropd ", "Drop D"}) {
      EXPECT_EQ(find(instrument, unknown), nullptr) << unknown;
      EXPECT_EQ(resolve(instrument, unknown).id, id) << unknown;
    }
  }
  EXPECT_EQ(find(Instrument::guitar, std::string_view("g6-dropd\0", 9)), nullptr);
}

}  // namespace
}  // namespace corvane::TuningLibrary
