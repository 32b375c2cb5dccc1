#include "tunings/table.h"

#include <gtest/gtest.h>

namespace corvane::TuningLibrary {
namespace {

TEST(MakeTable, NumbersTheStringsAndTakesTheLabelsForTheDetail) {
  const std::vector<Tuning> table = makeTable({{"id", "Name", "Group", {40, 45}, "E A♯"}});
  const Tuning expected{"id", "Name", "Group", "E A♯", {{0, 40, "E"}, {1, 45, "A♯"}}};
  EXPECT_EQ(table, std::vector{expected});
}

TEST(MakeTable, ADetailInWordsStandsInsteadOfTheLabels) {
  const std::vector<Tuning> table = makeTable({{"id", "Name", "Group", {40}, "E", "In words"}});
  ASSERT_EQ(table.size(), 1U);
  EXPECT_EQ(table[0].detail, "In words");
  EXPECT_EQ(table[0].strings[0].label, "E");
}

TEST(MakeTableDeathTest, MoreLabelsThanPitchesStopTheProgram) {
  EXPECT_DEATH(makeTable({{"id", "Name", "Group", {40}, "E A"}}), "broken invariant");
}

}  // namespace
}  // namespace corvane::TuningLibrary
