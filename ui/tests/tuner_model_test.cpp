// SPDX-License-Identifier: MIT
#include "ui/model/tuner_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "ui/model/privacy_policy.h"
#include "ui/paint/tuner_theme.h"
#include "ui/tests/engine_on_fakes.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class TunerModelTest : public testing::Test, protected EngineOnFakes {
 protected:
  /// How often `signal` is emitted while `action` runs.
  template <class Signal, class Action>
  int countOf(Signal signal, Action action) {
    int count = 0;
    const auto connection = QObject::connect(&model, signal, [&] { ++count; });
    action();
    QObject::disconnect(connection);
    return count;
  }

  /// How often the signals of readout, cents, frequency, level and needle color are emitted.
  template <class Action>
  std::vector<int> reports(Action action) {
    std::vector<int> counts(5);
    const QObject counting;  // ends the connections
    QObject::connect(&model, &TunerModel::readoutChanged, &counting, [&] { ++counts[0]; });
    QObject::connect(&model, &TunerModel::centsChanged, &counting, [&] { ++counts[1]; });
    QObject::connect(&model, &TunerModel::frequencyChanged, &counting, [&] { ++counts[2]; });
    QObject::connect(&model, &TunerModel::levelChanged, &counting, [&] { ++counts[3]; });
    QObject::connect(&model, &TunerModel::needleColorChanged, &counting, [&] { ++counts[4]; });
    action();
    return counts;
  }

  /// A frequency until it alone is the smoothed one, with a string locked or none.
  void hearLocked(std::optional<int> string, double frequency) {
    engine->setLockedStringIndex(string);
    for (int i = 0; i < 5; ++i) hear(PitchDetector::Reading{frequency, 0.99, 0.05F});
  }

  TunerModel model{engine, world.urlOpener};
};

TEST_F(TunerModelTest, ShowsWhatTheEngineHears) {
  hear(PitchDetector::Reading{111.0, 0.99, 0.05F});
  EXPECT_TRUE(model.heard());
  EXPECT_EQ(model.noteLabel() + model.octaveLabel(), "A2");
  // 1200 log2(111 / 110) = 15.67 cents.
  EXPECT_NEAR(model.cents(), 15.67, 0.005);
  EXPECT_EQ(model.centsText(), "+15.7 ¢");
  EXPECT_EQ(model.status(), "Sharp");
  EXPECT_EQ(model.needleColor(), TunerTheme::sharp);
  EXPECT_EQ(model.frequencyText(), "111.0 Hz");
  EXPECT_EQ(model.hearingText(), "Hearing A2");
  EXPECT_NEAR(model.level(), 0.6, 1e-6);  // twelve times a 32-bit 0.05
}

TEST_F(TunerModelTest, ShowsThatNothingIsHeardWhateverWasHeardBefore) {
  engine->start();
  hearA2(15.0);
  hearNothing();
  EXPECT_FALSE(model.heard());
  EXPECT_EQ(model.centsText(), "0.0 ¢");
  EXPECT_EQ(model.status(), "Play a note");
  EXPECT_EQ(model.needleColor(), TunerTheme::muted);
  EXPECT_EQ(model.frequencyText(), "— Hz");
  EXPECT_EQ(model.hearingText(), "");
}

TEST_F(TunerModelTest, SignalsEachGroupThatAReadingChangesOnce) {
  EXPECT_THAT(reports([&] { hearA2(15.0); }), testing::Each(1));
  EXPECT_THAT(reports([&] { hearA2(15.0); }), ElementsAre(0, 0, 0, 0, 0));
  EXPECT_THAT(reports([&] { hearA2(15.0, 0.07F); }), ElementsAre(0, 0, 0, 1, 0));
  EXPECT_THAT(reports([&] { hearNothing(); }), testing::Each(1));
  EXPECT_THAT(reports([&] { hearNothing(); }), ElementsAre(0, 0, 0, 1, 0));
}

TEST_F(TunerModelTest, ReportsNoLevelBelowWhatAScreenShows) {
  hearA2(15.0);
  for (int i = 0; i < 40; ++i) hearNothing();
  EXPECT_GT(engine->state().signal, 0.0);
  EXPECT_EQ(model.level(), 0.0);
  EXPECT_THAT(reports([&] { hearNothing(); }), testing::Each(0));
}

TEST_F(TunerModelTest, ReportsTheNeedleColorOnlyWhenItDiffers) {
  hearA2(15.0);
  const auto colors = [this](double cents) {
    return countOf(&TunerModel::needleColorChanged, [&] { hearA2(cents); });
  };
  EXPECT_EQ(colors(18.0), 0);
  EXPECT_EQ(colors(-15.0) + colors(-15.0) + colors(-15.0), 1);
}

TEST_F(TunerModelTest, AnotherNoteRebuildsTheStringRowOnce) {
  hearA2(15.0);
  std::vector<int> rows;
  QObject::connect(model.strings(), &StringRowModel::dataChanged,
                   [&](const QModelIndex& row) { rows.push_back(row.row()); });
  hearLocked(std::nullopt, 83.0);  // E2, as sharp as A2 was
  EXPECT_THAT(rows, ElementsAre(0, 1));
}

TEST_F(TunerModelTest, EachFieldOfTheReadoutIsSignalled) {
  const auto readouts = [this](std::optional<int> string, double frequency) {
    return countOf(&TunerModel::readoutChanged, [&] { hearLocked(string, frequency); });
  };
  hearLocked(0, 150.0);
  EXPECT_EQ(readouts(0, 160.0), 1) << "heardSpelling";
  EXPECT_EQ(readouts(1, 160.0), 1) << "noteLabel";
  hearLocked(0, 400.0);
  EXPECT_EQ(readouts(5, 400.0), 1) << "octaveLabel";
  hearLocked(1, 110.5);
  EXPECT_EQ(readouts(1, 109.5), 1) << "status";
  hearNothing();
  EXPECT_EQ(readouts(1, std::numeric_limits<double>::infinity()), 1) << "heard";
}

TEST_F(TunerModelTest, ReportsTheChangesOfItsLifetimeOnly) {
  hearA2(15.0);
  int changes = 0;
  {
    TunerModel shortLived(engine, world.urlOpener);
    QObject::connect(&shortLived, &TunerModel::frequencyChanged, [&] { ++changes; });
    hearA2(15.0);
    EXPECT_EQ(changes, 0);
    hearNothing();
  }
  const int before = changes;
  EXPECT_GT(before, 0);
  hearA2(15.0);
  EXPECT_EQ(changes, before);
}

TEST_F(TunerModelTest, ShowsAndClearsTheMicrophoneProblem) {
  world.input->input = {};
  EXPECT_GT(countOf(&TunerModel::errorTextChanged, [&] { engine->start(); }), 0);
  EXPECT_EQ(model.errorText(), "No microphone is available.");
  world.input->input = {48000.0, 1};
  EXPECT_GT(countOf(&TunerModel::errorTextChanged, [&] { engine->start(); }), 0);
  EXPECT_EQ(model.errorText(), "");
}

TEST_F(TunerModelTest, AllowingTheMicrophoneIsForwardedToTheEngine) {
  model.allowMicrophone();
  EXPECT_TRUE(engine->state().listening);
  world.permission->permission = RecordPermission::denied;
  model.allowMicrophone();
  EXPECT_THAT(world.urlOpener->opened, SizeIs(1));
}

TEST_F(TunerModelTest, ChoosingAnInstrumentBringsItsTuningsAndStrings) {
  EXPECT_EQ(model.instruments(), QStringList({"Guitar", "Bass", "Piano"}));
  EXPECT_EQ(model.instrument(), 0);
  EXPECT_GT(countOf(&TunerModel::selectionChanged, [&] { model.setInstrument(1); }), 0);
  EXPECT_EQ(engine->state().instrument, Instrument::bass);
  EXPECT_EQ(model.tuningName(), "4-string standard");
  EXPECT_EQ(model.subtitle(), "E A D G");
  EXPECT_EQ(model.tunings()->valueAt(0), "b4-standard");
  EXPECT_EQ(model.strings()->count(), 4);
  EXPECT_GT(countOf(&TunerModel::selectionChanged, [&] { model.chooseTuning("b5-dropa"); }), 0);
}

TEST_F(TunerModelTest, ThePianoHasASubtitleButNoStringsAndNoHearingText) {
  hearA2(15.0);
  EXPECT_GT(countOf(&TunerModel::readoutChanged, [&] { model.setInstrument(2); }), 0);
  EXPECT_TRUE(model.isPiano());
  EXPECT_EQ(model.subtitle(), "Piano chromatic");
  EXPECT_EQ(model.tuningDetail(),
            "A0 to C8. Set A4 to this piano. Older pianos were not all tuned to 440.");
  EXPECT_EQ(model.strings()->count(), 0);
  EXPECT_EQ(engine->state().heardSpelling, "A2");
  EXPECT_EQ(model.hearingText(), "");
}

TEST_F(TunerModelTest, StopsAtAnInstrumentThatDoesNotExist) {
  EXPECT_DEATH(model.setInstrument(3), "one of the three");
  EXPECT_DEATH(model.setInstrument(-1), "one of the three");
}

TEST_F(TunerModelTest, ChoosingATuningAlwaysReturnsToAutomaticStringChoice) {
  for (const char* tuning : {"g6-dropd", "g6-dropd"}) {  // the second time it is already chosen
    model.toggleLock(3);
    EXPECT_GT(countOf(&TunerModel::lockChanged, [&] { model.chooseTuning(tuning); }), 0);
    EXPECT_FALSE(model.locked());
  }
  EXPECT_EQ(engine->state().tuningID, "g6-dropd");
  EXPECT_EQ(model.tuningName(), "Drop D");
  EXPECT_EQ(model.subtitle(), "D A D G B E");
  EXPECT_EQ(model.tunings()->valueAt(model.tunings()->chosenRow()), "g6-dropd");
}

TEST_F(TunerModelTest, TappingMovesTheLockAndTappingAgainReleasesIt) {
  EXPECT_EQ(countOf(&TunerModel::lockChanged, [&] { model.toggleLock(2); }), 1);
  EXPECT_TRUE(model.locked());
  model.toggleLock(0);
  EXPECT_EQ(engine->state().lockedStringIndex, 0);
  model.toggleLock(0);
  EXPECT_FALSE(model.locked());
  model.toggleLock(2);
  model.releaseLock();
  EXPECT_FALSE(model.locked());
}

TEST_F(TunerModelTest, LeftHandedAStringIsStillLockedByItsOwnIndex) {
  EXPECT_EQ(countOf(&TunerModel::selectionChanged, [&] { model.setLeftHanded(true); }), 1);
  EXPECT_TRUE(model.leftHanded());
  const QModelIndex second = model.strings()->index(1);
  model.toggleLock(model.strings()->data(second, StringRowModel::StringIndex).toInt());
  EXPECT_EQ(engine->state().lockedStringIndex, 4);
  EXPECT_TRUE(model.strings()->data(second, StringRowModel::Selected).toBool());
}

TEST_F(TunerModelTest, ShowsTheConcertPitch) {
  EXPECT_EQ(countOf(&TunerModel::a4Changed, [&] { model.setA4(431.6); }), 1);
  EXPECT_EQ(model.a4(), 431.6);
  EXPECT_EQ(model.wholeHertz(), 432);
  EXPECT_EQ(model.concertPitchTitle(), "432");
  EXPECT_EQ(model.quickPitches(), QList<int>({415, 432, 440, 466}));
  EXPECT_EQ(model.concertPitches()->rowCount(), 11);
}

TEST_F(TunerModelTest, TheConcertPitchCannotGoBelow377OrAbove560) {
  model.setA4(376.0);
  EXPECT_EQ(model.a4(), 377.0);
  model.setA4(561.0);
  EXPECT_EQ(model.a4(), 560.0);
}

TEST_F(TunerModelTest, ShowsThatTheReferenceIsPlaying) {
  EXPECT_EQ(countOf(&TunerModel::playingReferenceChanged, [&] { model.playReference(); }), 1);
  EXPECT_TRUE(model.playingReference());
  world.output->played.at(0).ended();
  EXPECT_EQ(countOf(&TunerModel::playingReferenceChanged, [&] { world.mainQueue->runAll(); }), 1);
  EXPECT_FALSE(model.playingReference());
}

TEST_F(TunerModelTest, HelpIsThePrivacyPolicyAloneAndItsFailureIsNotReported) {
  EXPECT_EQ(model.appVersion(), CORVANE_VERSION);
  EXPECT_EQ(model.privacyTitle(), "Privacy Policy");
  EXPECT_EQ(model.helpMenu()->rowCount(), 1);
  world.urlOpener->failures = 1;
  model.openPrivacyPolicy();
  EXPECT_THAT(world.urlOpener->opened, ElementsAre(PrivacyPolicy::url().toString().toStdString()));
  EXPECT_EQ(model.errorText(), "");
}

}  // namespace
}  // namespace corvane
