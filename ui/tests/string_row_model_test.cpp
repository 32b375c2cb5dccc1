#include "ui/string_row_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/apply_sink.h"
#include "tests/support/fake_platform.h"
#include "ui/tuner_theme.h"

namespace corvane {
namespace {

class StringRowModelTest : public testing::Test {
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

  void hear(const std::optional<PitchDetector::Reading>& reading) {
    ApplySink(engine, world.mainQueue).deliver(reading);
    world.mainQueue->runAll();
    row.update(*engine);
  }

  template <class T>
  std::vector<T> all(StringRowModel::Role role) const {
    std::vector<T> values;
    for (int i = 0; i < row.count(); ++i) values.push_back(row.data(row.index(i), role).value<T>());
    return values;
  }

  QColor fill(int position) const {
    return row.data(row.index(position), StringRowModel::Fill).value<QColor>();
  }

  fakes::World world;
  std::shared_ptr<TunerEngine> engine =
      TunerEngine::create(world.platform(), PitchCapture::create(std::make_unique<InlineQueue>()));
  StringRowModel row;
  int countChanges = 0;
  int resets = 0;
  std::vector<int> changed;
};

constexpr PitchDetector::Reading sharpA2{111.0, 0.99, 0.05F};
constexpr PitchDetector::Reading inTuneA2{110.0, 0.99, 0.05F};

QColor withOpacity(QColor color, float opacity) {
  color.setAlphaF(opacity);
  return color;
}

TEST_F(StringRowModelTest, ShowsTheStringsInTheTuningsOrder) {
  EXPECT_THAT(all<QString>(StringRowModel::Label),
              testing::ElementsAre("E", "A", "D", "G", "B", "E"));
  EXPECT_THAT(all<int>(StringRowModel::Octave), testing::ElementsAre(2, 2, 3, 3, 3, 4));
  EXPECT_THAT(all<int>(StringRowModel::StringIndex), testing::ElementsAre(0, 1, 2, 3, 4, 5));
}

TEST_F(StringRowModelTest, LeftHandedASixStringTuningShowsItsChipsHighToLow) {
  engine->setLeftHanded(true);
  row.update(*engine);
  EXPECT_THAT(all<QString>(StringRowModel::Label),
              testing::ElementsAre("E", "B", "G", "D", "A", "E"));
  EXPECT_THAT(all<int>(StringRowModel::Octave), testing::ElementsAre(4, 3, 3, 3, 2, 2));
}

TEST_F(StringRowModelTest, LeftHandedEachChipKeepsItsStringsOwnIndex) {
  engine->setLeftHanded(true);
  engine->setLockedStringIndex(1);
  row.update(*engine);
  EXPECT_THAT(all<int>(StringRowModel::StringIndex), testing::ElementsAre(5, 4, 3, 2, 1, 0));
  EXPECT_THAT(all<bool>(StringRowModel::Selected),
              testing::ElementsAre(false, false, false, false, true, false));
}

TEST_F(StringRowModelTest, ThePianoHasNoChips) {
  engine->setInstrument(Instrument::piano);
  row.update(*engine);
  EXPECT_EQ(row.count(), 0);
}

TEST_F(StringRowModelTest, EveryTuningButThePianosHasAChipForEachString) {
  engine->setTuningID("g8-standard");
  row.update(*engine);
  EXPECT_EQ(row.count(), 8);
  engine->setInstrument(Instrument::bass);
  row.update(*engine);
  EXPECT_EQ(row.count(), 4);
}

TEST_F(StringRowModelTest, TheStringThatIsHeardGlowsGoldUntilItIsInTune) {
  hear(sharpA2);
  EXPECT_EQ(fill(1), withOpacity(TunerTheme::gold, 0.16F));
  EXPECT_EQ(fill(0), TunerTheme::card);
}

TEST_F(StringRowModelTest, TheStringThatIsInTuneGlowsGreen) {
  hear(inTuneA2);
  EXPECT_EQ(fill(1), withOpacity(TunerTheme::green, 0.35F));
}

TEST_F(StringRowModelTest, AStringThatIsHighlightedWhileNothingIsHeardHasThePlainFill) {
  engine->setLockedStringIndex(1);
  hear(sharpA2);
  hear(std::nullopt);
  ASSERT_EQ(engine->highlightedString(), 1);
  EXPECT_EQ(fill(1), TunerTheme::card);
}

TEST_F(StringRowModelTest, OnlyTheChipsThatDifferAreAnnounced) {
  hear(sharpA2);
  EXPECT_EQ(changed, std::vector{1});
  changed.clear();
  hear(sharpA2);
  EXPECT_TRUE(changed.empty());
  EXPECT_EQ(resets, 0);
}

TEST_F(StringRowModelTest, ATuningWithAsManyStringsKeepsTheChips) {
  engine->setTuningID("g6-dropd");
  row.update(*engine);
  EXPECT_EQ(changed, std::vector{0});
  EXPECT_EQ(resets, 0);
  EXPECT_EQ(countChanges, 0);
}

TEST_F(StringRowModelTest, ATuningWithMoreStringsMakesTheRowAnew) {
  engine->setTuningID("g7-standard");
  row.update(*engine);
  EXPECT_EQ(resets, 1);
  EXPECT_EQ(countChanges, 1);
  EXPECT_EQ(row.count(), 7);
}

TEST_F(StringRowModelTest, NamesItsRolesForTheScreen) {
  const auto names = row.roleNames();
  EXPECT_EQ(names[StringRowModel::StringIndex], "stringIndex");
  EXPECT_EQ(names[StringRowModel::Label], "label");
  EXPECT_EQ(names[StringRowModel::Octave], "octave");
  EXPECT_EQ(names[StringRowModel::Selected], "selected");
  EXPECT_EQ(names[StringRowModel::Fill], "fill");
}

TEST_F(StringRowModelTest, HasNothingOutsideItsRows) {
  EXPECT_FALSE(row.data(row.index(6), StringRowModel::Label).isValid());
  EXPECT_FALSE(row.data(row.index(0), Qt::DisplayRole).isValid());
  EXPECT_EQ(row.rowCount(row.index(0)), 0);
}

}  // namespace
}  // namespace corvane
