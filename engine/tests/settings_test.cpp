#include <cmath>
#include <limits>

#include "engine/tests/engine_fixture.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::Optional;
using Value = fakes::MemoryPreferences::Value;

class Settings : public EngineTest {
 protected:
  Value stored(const std::string& key) { return world.preferences->values.at(key); }

  void startWith(const std::string& key, Value value) {
    world.preferences->values[key] = std::move(value);
    makeEngine();
  }

  /// What `persist` writes, once.
  static auto oneSave() {
    return ElementsAre("tuner.instrument", "tuner.tuning", "tuner.a4", "tuner.left");
  }
};

TEST_F(Settings, AnEmptyStoreStartsAsAStandardRightHandedGuitarAt440) {
  EXPECT_EQ(engine->instrument(), Instrument::guitar);
  EXPECT_EQ(engine->tuningID(), "g6-standard");
  EXPECT_EQ(engine->a4(), 440.0);
  EXPECT_FALSE(engine->leftHanded());
  EXPECT_EQ(engine->lockedStringIndex(), std::nullopt);

  EXPECT_EQ(stored("tuner.instrument"), Value("guitar"));
  EXPECT_EQ(stored("tuner.tuning"), Value("g6-standard"));
  EXPECT_EQ(stored("tuner.a4"), Value(440.0));
  EXPECT_EQ(stored("tuner.left"), Value(false));
  EXPECT_THAT(world.preferences->writes, oneSave());
}

TEST_F(Settings, EveryStoredChoiceIsRestored) {
  world.preferences->values = {{"tuner.instrument", "bass"},
                               {"tuner.tuning", "b5-dropa"},
                               {"tuner.a4", 415.5},
                               {"tuner.left", true}};
  makeEngine();
  EXPECT_EQ(engine->instrument(), Instrument::bass);
  EXPECT_EQ(engine->tuningID(), "b5-dropa");
  EXPECT_EQ(engine->a4(), 415.5);
  EXPECT_TRUE(engine->leftHanded());
}

TEST_F(Settings, AStoredPitchOutside377To560StartsAt440) {
  for (const double hertz :
       {376.9, 560.1, 0.0, -440.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
    startWith("tuner.a4", hertz);
    EXPECT_EQ(engine->a4(), 440.0) << hertz;
    EXPECT_EQ(stored("tuner.a4"), Value(440.0));
  }
}

TEST_F(Settings, AStoredPitchOf377Or560IsKept) {
  startWith("tuner.a4", 377.0);
  EXPECT_EQ(engine->a4(), 377.0);
  startWith("tuner.a4", 560.0);
  EXPECT_EQ(engine->a4(), 560.0);
}

TEST_F(Settings, Assigning600LeavesAndSaves560AndPublishesTwice) {
  const auto fields = published([this] { engine->setA4(600.0); });
  EXPECT_EQ(engine->a4(), 560.0);
  EXPECT_EQ(stored("tuner.a4"), Value(560.0));
  EXPECT_THAT(fields, ElementsAre(Field::a4, Field::a4));
}

TEST_F(Settings, Assigning300Leaves377) {
  engine->setA4(300.0);
  EXPECT_EQ(engine->a4(), 377.0);
  EXPECT_EQ(stored("tuner.a4"), Value(377.0));
}

TEST_F(Settings, AssigningWhatIsNotANumberLeaves377) {
  engine->setA4(std::nan(""));
  EXPECT_EQ(engine->a4(), 377.0);
  EXPECT_EQ(stored("tuner.a4"), Value(377.0));
}

TEST_F(Settings, AssigningAPitchInRangePublishesAndSavesOnce) {
  world.preferences->writes.clear();
  EXPECT_THAT(published([this] { engine->setA4(377.0); }), ElementsAre(Field::a4));
  EXPECT_THAT(world.preferences->writes, oneSave());
}

TEST_F(Settings, AStoredInstrumentMustMatchToTheCase) {
  startWith("tuner.instrument", "Bass");
  EXPECT_EQ(engine->instrument(), Instrument::guitar);
}

TEST_F(Settings, AStoredValueOfAnotherTypeReadsAsAbsent) {
  world.preferences->values = {{"tuner.instrument", 1.0},
                               {"tuner.tuning", true},
                               {"tuner.a4", "442"},
                               {"tuner.left", "yes"}};
  makeEngine();
  EXPECT_EQ(engine->instrument(), Instrument::guitar);
  EXPECT_EQ(engine->tuningID(), "g6-standard");
  EXPECT_EQ(engine->a4(), 440.0);
  EXPECT_FALSE(engine->leftHanded());
}

TEST_F(Settings, ABassTuningStoredForAGuitarStartsWithTheGuitarsFirst) {
  world.preferences->values = {{"tuner.instrument", "guitar"}, {"tuner.tuning", "b5-standard"}};
  makeEngine();
  EXPECT_EQ(engine->tuningID(), "g6-standard");
  EXPECT_EQ(stored("tuner.tuning"), Value("g6-standard"));
}

TEST_F(Settings, SwitchingToPianoAdoptsItsTuningClearsLockAndSmoothingAndSavesTwice) {
  hear(109.0);
  hear(109.0);
  engine->setLockedStringIndex(2);
  world.preferences->writes.clear();

  const auto fields = published([this] { engine->setInstrument(Instrument::piano); });
  EXPECT_EQ(engine->tuningID(), "piano-chromatic");
  EXPECT_EQ(engine->tuning().id, "piano-chromatic");
  EXPECT_EQ(engine->lockedStringIndex(), std::nullopt);
  EXPECT_EQ(world.preferences->writes.size(), 8U);
  EXPECT_EQ(stored("tuner.instrument"), Value("piano"));
  EXPECT_EQ(stored("tuner.tuning"), Value("piano-chromatic"));
  EXPECT_THAT(fields, ElementsAre(Field::instrument, Field::tuningID, Field::lockedStringIndex,
                                  Field::highlightedString, Field::lockedStringIndex));
  hear(111.0);
  EXPECT_EQ(engine->frequency(), 111.0);
}

TEST_F(Settings, ChoosingTheSameInstrumentAgainKeepsTheTuningAndClearsTheLock) {
  engine->setTuningID("g6-dadgad");
  engine->setLockedStringIndex(2);
  world.preferences->writes.clear();
  engine->setInstrument(Instrument::guitar);
  EXPECT_EQ(engine->tuningID(), "g6-dadgad");
  EXPECT_EQ(engine->lockedStringIndex(), std::nullopt);
  EXPECT_THAT(world.preferences->writes, oneSave());
}

TEST_F(Settings, AnotherTuningOfTheInstrumentClearsTheLockButNotTheSmoothing) {
  hear(109.0);
  hear(109.0);
  engine->setLockedStringIndex(2);
  engine->setTuningID("g6-dropd");
  EXPECT_EQ(engine->instrument(), Instrument::guitar);
  EXPECT_EQ(engine->lockedStringIndex(), std::nullopt);
  hear(111.0);
  EXPECT_EQ(engine->frequency(), 109.0);
}

TEST_F(Settings, SelectingTheSelectedTuningStillSavesAndClearsTheLock) {
  engine->setLockedStringIndex(2);
  world.preferences->writes.clear();
  engine->setTuningID("g6-standard");
  EXPECT_THAT(world.preferences->writes, oneSave());
  EXPECT_EQ(engine->lockedStringIndex(), std::nullopt);
}

TEST_F(Settings, AHighlightThatTheNewTuningHasNoStringForIsDropped) {
  hear(off(64, 0.0));
  ASSERT_THAT(engine->highlightedString(), Optional(5));
  engine->setTuningID("g6-dropd");
  EXPECT_THAT(engine->highlightedString(), Optional(5));
  engine->setInstrument(Instrument::bass);
  EXPECT_EQ(engine->highlightedString(), std::nullopt);
  engine->playReference();
  EXPECT_TRUE(engine->playingReference());
}

TEST_F(Settings,
       AHighlightThatTheNewInstrumentHasNoStringForIsDroppedThoughItsTuningWasNamedBefore) {
  engine->setTuningID("b5-standard");  // which the guitar lacks, so it shows its first tuning
  hear(329.63);
  ASSERT_THAT(engine->highlightedString(), Optional(5));
  engine->setInstrument(Instrument::bass);
  EXPECT_EQ(engine->highlightedString(), std::nullopt);
  engine->playReference();
  EXPECT_EQ(world.output->played.size(), 1U);
}

TEST_F(Settings, AnUnknownTuningReadsAsTheInstrumentsFirst) {
  engine->setTuningID("b4-standard");
  EXPECT_EQ(engine->tuning().id, "g6-standard");
}

TEST_F(Settings, LeftHandedIsSavedAndLeavesTheLockAlone) {
  engine->setLockedStringIndex(2);
  engine->setLeftHanded(true);
  EXPECT_EQ(stored("tuner.left"), Value(true));
  EXPECT_THAT(engine->lockedStringIndex(), Optional(2));
}

TEST_F(Settings, LockingAStringSavesNothing) {
  world.preferences->writes.clear();
  EXPECT_THAT(published([this] { engine->setLockedStringIndex(1); }),
              ElementsAre(Field::lockedStringIndex));
  EXPECT_TRUE(world.preferences->writes.empty());
}

TEST_F(Settings, CreatingAnEngineStartsNothing) {
  EXPECT_TRUE(world.input->calls.empty());
  EXPECT_TRUE(world.permission->requests.empty());
  EXPECT_TRUE(world.output->formats.empty());
}

using SettingsDeathTest = Settings;

TEST_F(SettingsDeathTest, MeasuringAgainstALockedStringOutsideTheTuningStopsTheProgram) {
  engine->setLockedStringIndex(6);
  EXPECT_DEATH(hear(110.0), "a chosen string lies in the current tuning");
}

}  // namespace
}  // namespace corvane
