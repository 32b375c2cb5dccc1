// SPDX-License-Identifier: MIT
#include <cmath>
#include <limits>

#include "engine/tests/engine_fixture.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;
using testing::Optional;
using testing::Pair;
using Value = fakes::MemoryPreferences::Value;

const auto oneSave =
    ElementsAre(Key("tuner.instrument"), Key("tuner.tuning"), Key("tuner.a4"), Key("tuner.left"));

class Settings : public EngineTest {
 protected:
  Value stored(const std::string& key) { return world.preferences->values.at(key); }

  void startWith(std::map<std::string, Value, std::less<>> values) {
    world.preferences->values = std::move(values);
    makeEngine();
  }

  /// The engine's selection and the saved one.
  void expectSelection(Instrument instrument, const char* tuning, double a4, bool leftHanded) {
    EXPECT_EQ(engine->state().instrument, instrument);
    EXPECT_EQ(engine->state().tuningID, tuning);
    EXPECT_EQ(engine->state().a4, a4);
    EXPECT_EQ(engine->state().leftHanded, leftHanded);
    EXPECT_EQ(stored("tuner.instrument"), Value(std::string(rawValue(instrument))));
    EXPECT_EQ(stored("tuner.tuning"), Value(tuning));
    EXPECT_EQ(stored("tuner.a4"), Value(a4));
    EXPECT_EQ(stored("tuner.left"), Value(leftHanded));
  }

  /// What is saved while `action` runs.
  std::vector<std::pair<std::string, Value>> savedBy(const std::function<void()>& action) {
    world.preferences->writes.clear();
    action();
    return world.preferences->writes;
  }
};

TEST_F(Settings, AnEmptyStoreGivesAStandardRightHandedGuitarAt440) {
  expectSelection(Instrument::guitar, "g6-standard", 440.0, false);
  EXPECT_EQ(engine->state().lockedStringIndex, std::nullopt);
  EXPECT_THAT(world.preferences->writes, oneSave);
}

TEST_F(Settings, StoredChoicesAreRestored) {
  startWith({{"tuner.instrument", "bass"},
             {"tuner.tuning", "b5-dropa"},
             {"tuner.a4", 415.5},
             {"tuner.left", true}});
  expectSelection(Instrument::bass, "b5-dropa", 415.5, true);
}

TEST_F(Settings, AStoredPitchOutside377To560StartsAt440) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double hertz : {376.9, 560.1, 0.0, -440.0, std::nan(""), infinity}) {
    startWith({{"tuner.a4", hertz}});
    expectSelection(Instrument::guitar, "g6-standard", 440.0, false);
  }
  for (const double hertz : {377.0, 560.0}) {
    startWith({{"tuner.a4", hertz}});
    expectSelection(Instrument::guitar, "g6-standard", hertz, false);
  }
}

TEST_F(Settings, AssigningAPitchOutOfRangeSavesTheNearerBound) {
  struct Assigned {
    double hertz, kept;
  };
  for (const auto& [hertz, kept] :
       {Assigned{600.0, 560.0}, Assigned{300.0, 377.0}, Assigned{std::nan(""), 377.0}}) {
    EXPECT_THAT(savedBy([&, wanted = hertz] { engine->setA4(wanted); }), oneSave);
    expectSelection(Instrument::guitar, "g6-standard", kept, false);
  }
}

TEST_F(Settings, AssigningAPitchInRangeNotifiesAndSavesOnce) {
  for (const double hertz : {377.0, 441.0, 560.0}) {
    const auto assign = [&] { engine->setA4(hertz); };
    EXPECT_THAT(savedBy([&] { EXPECT_EQ(notifications(assign), 1); }), oneSave);
    EXPECT_EQ(engine->state().a4, hertz);
  }
}

TEST_F(Settings, AStoredInstrumentMustMatchInCaseAndType) {
  startWith({{"tuner.instrument", "Bass"}});
  expectSelection(Instrument::guitar, "g6-standard", 440.0, false);
  startWith({{"tuner.instrument", 1.0},
             {"tuner.tuning", true},
             {"tuner.a4", "442"},
             {"tuner.left", "yes"}});
  expectSelection(Instrument::guitar, "g6-standard", 440.0, false);
}

TEST_F(Settings, ABassTuningStoredForAGuitarGivesTheGuitarsFirst) {
  startWith({{"tuner.instrument", "guitar"}, {"tuner.tuning", "b5-standard"}});
  expectSelection(Instrument::guitar, "g6-standard", 440.0, false);
}

TEST_F(Settings, SwitchingToPianoAdoptsItsTuningAndSavesTwice) {
  hear(109.0);
  hear(109.0);
  engine->setLockedStringIndex(2);
  const auto saves = savedBy([this] {
    EXPECT_EQ(notifications([this] { engine->setInstrument(Instrument::piano); }), 1);
  });
  ASSERT_EQ(saves.size(), 8U);
  EXPECT_THAT(saves[0], Pair("tuner.instrument", Value("piano")));
  EXPECT_THAT(saves[1], Pair("tuner.tuning", Value("g6-standard"))) << "not yet adopted";
  expectSelection(Instrument::piano, "piano-chromatic", 440.0, false);
  EXPECT_EQ(engine->tuning().id, "piano-chromatic");
  EXPECT_EQ(engine->state().lockedStringIndex, std::nullopt);
  hear(111.0);
  EXPECT_EQ(engine->state().frequency, 111.0) << "the history is empty";
}

TEST_F(Settings, TheSameInstrumentAgainKeepsOnlyItsTuning) {
  engine->setTuningID("g6-dadgad");
  engine->setLockedStringIndex(2);
  hear(109.0);
  hear(109.0);
  EXPECT_THAT(savedBy([this] { engine->setInstrument(Instrument::guitar); }), oneSave);
  EXPECT_EQ(engine->state().tuningID, "g6-dadgad");
  EXPECT_EQ(engine->state().lockedStringIndex, std::nullopt);
  hear(111.0);
  EXPECT_EQ(engine->state().frequency, 111.0) << "the history is empty";
}

TEST_F(Settings, AnotherTuningClearsTheLockButNotTheHistory) {
  hear(109.0);
  hear(109.0);
  engine->setLockedStringIndex(2);
  engine->setTuningID("g6-dropd");
  EXPECT_EQ(engine->state().instrument, Instrument::guitar);
  EXPECT_EQ(engine->state().lockedStringIndex, std::nullopt);
  hear(111.0);
  EXPECT_EQ(engine->state().frequency, 109.0);
}

TEST_F(Settings, TheSelectedTuningAgainStillSavesAndClearsTheLock) {
  engine->setLockedStringIndex(2);
  EXPECT_THAT(savedBy([this] { engine->setTuningID("g6-standard"); }), oneSave);
  EXPECT_EQ(engine->state().lockedStringIndex, std::nullopt);
}

TEST_F(Settings, AHighlightWithoutAStringIsDropped) {
  hear(off(64, 0.0));
  engine->setTuningID("g6-dropd");
  EXPECT_THAT(engine->state().highlightedString, Optional(5));
  engine->setInstrument(Instrument::bass);
  EXPECT_EQ(engine->state().highlightedString, std::nullopt);

  engine->setTuningID("b5-standard");
  hear(off(43, 0.0));  // its fifth string
  ASSERT_THAT(engine->state().highlightedString, Optional(4));
  engine->setTuningID("b4-standard");
  EXPECT_EQ(engine->state().highlightedString, std::nullopt);

  // Not a guitar tuning: the first is shown, with a string that the bass lacks.
  engine->setInstrument(Instrument::guitar);
  engine->setTuningID("b5-standard");
  EXPECT_EQ(engine->tuning().id, "g6-standard");
  hear(off(64, 0.0));
  ASSERT_THAT(engine->state().highlightedString, Optional(5));
  engine->setInstrument(Instrument::bass);
  EXPECT_EQ(engine->state().highlightedString, std::nullopt);
  engine->playReference();
  EXPECT_EQ(world.output->played.size(), 1U);
}

TEST_F(Settings, LeftHandedIsSavedAndTheLockIsNot) {
  EXPECT_THAT(
      savedBy([this] { EXPECT_EQ(notifications([this] { engine->setLockedStringIndex(2); }), 1); }),
      IsEmpty());
  EXPECT_THAT(savedBy([this] { engine->setLeftHanded(true); }), oneSave);
  EXPECT_EQ(stored("tuner.left"), Value(true));
  EXPECT_THAT(engine->state().lockedStringIndex, Optional(2));
}

TEST_F(Settings, CreatingAnEngineStartsNothing) {
  EXPECT_TRUE(world.input->calls.empty());
  EXPECT_TRUE(world.permission->requests.empty());
  EXPECT_TRUE(world.output->formats.empty());
}

using SettingsDeathTest = Settings;

TEST_F(SettingsDeathTest, ALockedStringOutsideTheTuningStopsTheProgram) {
  engine->setLockedStringIndex(6);
  EXPECT_DEATH(hear(110.0), "a chosen string lies in the current tuning");
  engine->setLockedStringIndex(-1);
  EXPECT_DEATH(engine->playReference(), "a chosen string lies in the current tuning");
}

}  // namespace
}  // namespace corvane
