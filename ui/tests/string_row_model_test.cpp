// SPDX-License-Identifier: MIT
#include "ui/model/string_row_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ui/paint/tuner_theme.h"
#include "ui/tests/engine_on_fakes.h"

namespace corvane {
namespace {

using testing::ElementsAre;

class StringRowModelTest : public testing::Test, protected EngineOnFakes {
 protected:
  StringRowModelTest() {
    row.update(*engine);
    QObject::connect(&row, &StringRowModel::countChanged, [this] { ++countChanges; });
    QObject::connect(&row, &StringRowModel::modelReset, [this] { ++resets; });
    QObject::connect(&row, &StringRowModel::dataChanged,
                     [this](const QModelIndex& first, const QModelIndex& last) {
                       for (int i = first.row(); i <= last.row(); ++i) changed.push_back(i);
                     });
  }

  template <class T>
  std::vector<T> all(StringRowModel::Role role) {
    row.update(*engine);
    std::vector<T> values;
    for (int i = 0; i < row.count(); ++i) values.push_back(row.data(row.index(i), role).value<T>());
    return values;
  }

  QColor fillOfA2() { return all<QColor>(StringRowModel::Fill).at(1); }

  StringRowModel row;
  int countChanges = 0;
  int resets = 0;
  std::vector<int> changed;
};

TEST_F(StringRowModelTest, ShowsTheStringsInTheTuningsOrder) {
  EXPECT_THAT(all<QString>(StringRowModel::Label), ElementsAre("E", "A", "D", "G", "B", "E"));
  EXPECT_THAT(all<int>(StringRowModel::Octave), ElementsAre(2, 2, 3, 3, 3, 4));
  EXPECT_THAT(all<int>(StringRowModel::StringIndex), ElementsAre(0, 1, 2, 3, 4, 5));
}

TEST_F(StringRowModelTest, LeftHandedShowsHighToLowAndKeepsEachStringsOwnIndex) {
  engine->setLeftHanded(true);
  engine->setLockedStringIndex(1);
  EXPECT_THAT(all<QString>(StringRowModel::Label), ElementsAre("E", "B", "G", "D", "A", "E"));
  EXPECT_THAT(all<int>(StringRowModel::Octave), ElementsAre(4, 3, 3, 3, 2, 2));
  EXPECT_THAT(all<int>(StringRowModel::StringIndex), ElementsAre(5, 4, 3, 2, 1, 0));
  EXPECT_THAT(all<bool>(StringRowModel::Selected),
              ElementsAre(false, false, false, false, true, false));
}

TEST_F(StringRowModelTest, HasAChipForEachStringButNoneForThePiano) {
  for (const auto& [instrument, tuning, strings] :
       {std::tuple(Instrument::guitar, "g8-standard", 8),
        {Instrument::bass, "b4-standard", 4},
        {Instrument::piano, "piano-chromatic", 0}}) {
    engine->setInstrument(instrument);
    engine->setTuningID(tuning);
    row.update(*engine);
    EXPECT_EQ(row.count(), strings) << tuning;
  }
}

TEST_F(StringRowModelTest, FillsTheHeardChipByTheVerdict) {
  hearA2(15.0);
  EXPECT_EQ(fillOfA2(), chipFill(false, true, false));
  EXPECT_THAT(all<bool>(StringRowModel::Hearing),
              ElementsAre(false, true, false, false, false, false));
  hearA2(0.0);
  hearA2(0.0);
  hearA2(0.0);
  EXPECT_EQ(fillOfA2(), chipFill(false, true, true));
}

TEST_F(StringRowModelTest, AHighlightedStringInSilenceHasThePlainFill) {
  engine->setLockedStringIndex(1);
  hearA2(15.0);
  hearNothing();
  ASSERT_EQ(engine->state().highlightedString, 1);
  EXPECT_EQ(fillOfA2(), TunerTheme::card);
}

TEST_F(StringRowModelTest, ReportsOnlyTheChipsThatDiffer) {
  hearA2(15.0);
  row.update(*engine);
  row.update(*engine);
  EXPECT_THAT(changed, ElementsAre(1));
  hearNothing();
  row.update(*engine);
  engine->setTuningID("g6-dropd");
  row.update(*engine);
  EXPECT_THAT(changed, ElementsAre(1, 1, 0));
  EXPECT_EQ(std::pair(resets, countChanges), std::pair(0, 0));
  engine->setTuningID("g7-standard");
  row.update(*engine);
  EXPECT_EQ(std::pair(resets, countChanges), std::pair(1, 1));
}

TEST_F(StringRowModelTest, IsEmptyOutsideItsRowsAndRoles) {
  EXPECT_FALSE(row.data(row.index(6), StringRowModel::Label).isValid());
  EXPECT_FALSE(row.data(row.index(0), Qt::DisplayRole).isValid());
  EXPECT_EQ(row.rowCount(row.index(0)), 0);
}

}  // namespace
}  // namespace corvane
