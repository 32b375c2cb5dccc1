#include "ui/tuner_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/apply_sink.h"
#include "tests/support/fake_platform.h"
#include "ui/privacy_policy.h"
#include "ui/tuner_theme.h"

namespace corvane {
namespace {

class TunerModelTest : public testing::Test {
 protected:
  void hear(const std::optional<PitchDetector::Reading>& reading) {
    ApplySink(engine, world.mainQueue).deliver(reading);
    world.mainQueue->runAll();
  }

  /// How often `signal` is emitted while `action` runs.
  template <class Signal, class Action>
  int countOf(Signal signal, Action action) {
    int count = 0;
    const auto connection = QObject::connect(&model, signal, [&] { ++count; });
    action();
    QObject::disconnect(connection);
    return count;
  }

  std::vector<QString> stringLabels() {
    std::vector<QString> labels;
    for (int i = 0; i < model.strings()->count(); ++i) {
      const QModelIndex index = model.strings()->index(i);
      labels.push_back(model.strings()->data(index, StringRowModel::Label).toString());
    }
    return labels;
  }

  static std::vector<QString> titlesOf(const MenuModel& menu) {
    std::vector<QString> titles;
    for (int row = 0; row < menu.rowCount(); ++row) {
      titles.push_back(menu.data(menu.index(row), MenuModel::Title).toString());
    }
    return titles;
  }

  fakes::World world;
  std::shared_ptr<TunerEngine> engine =
      TunerEngine::create(world.platform(), PitchCapture::create(std::make_unique<InlineQueue>()));
  TunerModel model{engine, world.permission, world.urlOpener};
};

constexpr PitchDetector::Reading sharpA2{111.0, 0.99, 0.05F};
constexpr PitchDetector::Reading louderA2{111.0, 0.99, 0.07F};

TEST_F(TunerModelTest, ShowsWhatTheEngineHears) {
  hear(sharpA2);
  EXPECT_TRUE(model.heard());
  EXPECT_EQ(model.noteLabel(), "A");
  EXPECT_EQ(model.octaveLabel(), "2");
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
  hear(sharpA2);
  hear(std::nullopt);
  EXPECT_FALSE(model.heard());
  EXPECT_EQ(model.centsText(), "0.0 ¢");
  EXPECT_EQ(model.status(), "Play a note");
  EXPECT_EQ(model.needleColor(), TunerTheme::muted);
  EXPECT_EQ(model.frequencyText(), "— Hz");
  EXPECT_EQ(model.hearingText(), "");
}

TEST_F(TunerModelTest, HasNoHearingTextOnThePiano) {
  engine->setInstrument(Instrument::piano);
  hear(PitchDetector::Reading{440.0, 0.99, 0.05F});
  EXPECT_EQ(engine->heardSpelling(), "A4");
  EXPECT_EQ(model.hearingText(), "");
  EXPECT_EQ(model.status(), "In tune");
}

TEST_F(TunerModelTest, TellsTheScreenOfEveryReading) {
  EXPECT_GT(countOf(&TunerModel::readoutChanged, [&] { hear(sharpA2); }), 0);
  EXPECT_EQ(countOf(&TunerModel::levelChanged, [&] { hear(louderA2); }), 1);
  EXPECT_GT(countOf(&TunerModel::readoutChanged, [&] { hear(std::nullopt); }), 0);
}

TEST_F(TunerModelTest, TellsTheScreenNothingOfAReadingThatChangesNothing) {
  hear(sharpA2);
  EXPECT_EQ(countOf(&TunerModel::readoutChanged, [&] { hear(sharpA2); }), 0);
  EXPECT_EQ(countOf(&TunerModel::centsChanged, [&] { hear(sharpA2); }), 0);
  EXPECT_EQ(countOf(&TunerModel::frequencyChanged, [&] { hear(sharpA2); }), 0);
  EXPECT_EQ(countOf(&TunerModel::levelChanged, [&] { hear(sharpA2); }), 0);
}

TEST_F(TunerModelTest, TellsTheScreenOnlyOfTheLevelWhileItDiesAway) {
  hear(sharpA2);
  hear(std::nullopt);
  EXPECT_EQ(countOf(&TunerModel::readoutChanged, [&] { hear(std::nullopt); }), 0);
  EXPECT_EQ(countOf(&TunerModel::centsChanged, [&] { hear(std::nullopt); }), 0);
  EXPECT_EQ(countOf(&TunerModel::levelChanged, [&] { hear(std::nullopt); }), 1);
}

TEST_F(TunerModelTest, OfATunerThatHearsAlreadyTellsWhatChangesNext) {
  hear(sharpA2);
  TunerModel late(engine, world.permission, world.urlOpener);
  int changes = 0;
  QObject::connect(&late, &TunerModel::centsChanged, [&] { ++changes; });
  hear(std::nullopt);
  EXPECT_GT(changes, 0);
}

TEST_F(TunerModelTest, ShowsAndClearsTheMicrophoneProblem) {
  world.input->input = {};
  EXPECT_GT(countOf(&TunerModel::errorTextChanged, [&] { engine->start(); }), 0);
  EXPECT_EQ(model.errorText(), "No microphone is available.");
  world.input->input = {48000.0, 1};
  EXPECT_GT(countOf(&TunerModel::errorTextChanged, [&] { engine->start(); }), 0);
  EXPECT_EQ(model.errorText(), "");
}

TEST_F(TunerModelTest, AllowingADeniedMicrophoneOpensTheSettingsAndAsksForNothing) {
  world.permission->permission = RecordPermission::denied;
  model.allowMicrophone();
  EXPECT_EQ(world.urlOpener->opened.size(), 1U);
  EXPECT_TRUE(world.permission->requests.empty());
  EXPECT_TRUE(world.input->calls.empty());
}

TEST_F(TunerModelTest, AllowingAMicrophoneNobodyAskedForAsks) {
  world.permission->permission = RecordPermission::undetermined;
  model.allowMicrophone();
  EXPECT_EQ(world.permission->requests.size(), 1U);
  EXPECT_TRUE(world.urlOpener->opened.empty());
}

TEST_F(TunerModelTest, AllowingTheMicrophoneForgetsARequestThatWasNeverAnswered) {
  world.permission->permission = RecordPermission::undetermined;
  engine->start();
  engine->start();
  ASSERT_EQ(world.permission->requests.size(), 1U);
  model.allowMicrophone();
  EXPECT_EQ(world.permission->requests.size(), 2U);
}

TEST_F(TunerModelTest, AllowingADeniedMicrophoneForgetsTheRequestToo) {
  world.permission->permission = RecordPermission::undetermined;
  engine->start();
  world.permission->permission = RecordPermission::denied;
  model.allowMicrophone();
  world.permission->permission = RecordPermission::undetermined;
  engine->start();
  EXPECT_EQ(world.permission->requests.size(), 2U);
}

TEST_F(TunerModelTest, AllowingAGrantedMicrophoneListens) {
  model.allowMicrophone();
  EXPECT_TRUE(engine->listening());
  EXPECT_TRUE(world.urlOpener->opened.empty());
}

TEST_F(TunerModelTest, AllowingAMicrophoneOfUnknownStateTriesToListen) {
  world.permission->permission = RecordPermission::unknown;
  model.allowMicrophone();
  EXPECT_EQ(model.errorText(), "Tap Allow Microphone so Corvane can hear the note.");
  EXPECT_TRUE(world.urlOpener->opened.empty());
}

TEST_F(TunerModelTest, HasTheInstrumentsInTheOrderOfThePicker) {
  EXPECT_EQ(model.instruments(), QStringList({"Guitar", "Bass", "Piano"}));
  EXPECT_EQ(model.instrument(), 0);
}

TEST_F(TunerModelTest, ChoosingAnInstrumentBringsItsTuningsAndStrings) {
  EXPECT_GT(countOf(&TunerModel::selectionChanged, [&] { model.setInstrument(1); }), 0);
  EXPECT_EQ(engine->instrument(), Instrument::bass);
  EXPECT_EQ(model.tuningName(), "4-string standard");
  EXPECT_EQ(model.subtitle(), "E A D G");
  EXPECT_EQ(titlesOf(*model.tunings()).at(0), "4-string standard");
  EXPECT_EQ(model.strings()->count(), 4);
}

TEST_F(TunerModelTest, ThePianoHasASubtitleOfItsOwnAndNoStrings) {
  model.setInstrument(2);
  EXPECT_TRUE(model.isPiano());
  EXPECT_EQ(model.subtitle(), "Piano chromatic");
  EXPECT_EQ(model.tuningDetail(),
            "A0 to C8. Set A4 to this piano. Older pianos were not all tuned to 440.");
  EXPECT_EQ(model.strings()->count(), 0);
}

TEST_F(TunerModelTest, ChangingTheInstrumentRefreshesTheHearingText) {
  hear(sharpA2);
  EXPECT_GT(countOf(&TunerModel::readoutChanged, [&] { model.setInstrument(2); }), 0);
}

TEST_F(TunerModelTest, AnInstrumentThatDoesNotExistStopsTheProgram) {
  EXPECT_DEATH(model.setInstrument(3), "one of the three");
  EXPECT_DEATH(model.setInstrument(-1), "one of the three");
}

TEST_F(TunerModelTest, ChoosingATuningMarksItInTheMenu) {
  EXPECT_GT(countOf(&TunerModel::selectionChanged, [&] { model.chooseTuning("g6-dropd"); }), 0);
  EXPECT_EQ(engine->tuningID(), "g6-dropd");
  EXPECT_EQ(model.tuningName(), "Drop D");
  EXPECT_EQ(model.subtitle(), "D A D G B E");
  EXPECT_EQ(model.tunings()->valueAt(model.tunings()->chosenRow()), "g6-dropd");
}

TEST_F(TunerModelTest, ChoosingATuningAlwaysReturnsToAutomaticStringChoice) {
  model.toggleLock(3);
  EXPECT_GT(countOf(&TunerModel::lockChanged, [&] { model.chooseTuning("g6-dropd"); }), 0);
  EXPECT_FALSE(model.locked());
}

TEST_F(TunerModelTest, ChoosingTheCurrentTuningReturnsToAutomaticStringChoiceToo) {
  model.toggleLock(3);
  model.chooseTuning("g6-standard");
  EXPECT_FALSE(model.locked());
}

TEST_F(TunerModelTest, LockingAndReleasingAString) {
  EXPECT_EQ(countOf(&TunerModel::lockChanged, [&] { model.toggleLock(2); }), 1);
  EXPECT_TRUE(model.locked());
  EXPECT_EQ(engine->lockedStringIndex(), 2);
  model.releaseLock();
  EXPECT_FALSE(model.locked());
}

TEST_F(TunerModelTest, TappingTheLockedStringAgainReleasesIt) {
  model.toggleLock(2);
  model.toggleLock(2);
  EXPECT_FALSE(model.locked());
}

TEST_F(TunerModelTest, TappingAnotherStringMovesTheLock) {
  model.toggleLock(2);
  model.toggleLock(0);
  EXPECT_EQ(engine->lockedStringIndex(), 0);
}

TEST_F(TunerModelTest, LeftHandedTheStringsStandHighToLow) {
  EXPECT_THAT(stringLabels(), testing::ElementsAre("E", "A", "D", "G", "B", "E"));
  EXPECT_EQ(countOf(&TunerModel::selectionChanged, [&] { model.setLeftHanded(true); }), 1);
  EXPECT_TRUE(model.leftHanded());
  EXPECT_THAT(stringLabels(), testing::ElementsAre("E", "B", "G", "D", "A", "E"));
}

TEST_F(TunerModelTest, LeftHandedAStringIsStillLockedByItsOwnIndex) {
  model.setLeftHanded(true);
  const QModelIndex second = model.strings()->index(1);
  model.toggleLock(model.strings()->data(second, StringRowModel::StringIndex).toInt());
  EXPECT_EQ(engine->lockedStringIndex(), 4);
  EXPECT_TRUE(model.strings()->data(second, StringRowModel::Selected).toBool());
}

TEST_F(TunerModelTest, ShowsTheConcertPitch) {
  EXPECT_EQ(countOf(&TunerModel::a4Changed, [&] { model.setA4(431.6); }), 1);
  EXPECT_EQ(model.a4(), 431.6);
  EXPECT_EQ(model.wholeHertz(), 432);
  EXPECT_EQ(model.concertPitchTitle(), "432");
  model.setA4(441.0);
  EXPECT_EQ(model.concertPitchTitle(), "Custom");
}

TEST_F(TunerModelTest, TheConcertPitchStaysBetween377And560) {
  model.setA4(376.0);
  EXPECT_EQ(model.a4(), 377.0);
  model.setA4(561.0);
  EXPECT_EQ(model.a4(), 560.0);
}

TEST_F(TunerModelTest, OffersTheConcertPitches) {
  EXPECT_EQ(model.quickPitches(), QList<int>({415, 432, 440, 466}));
  EXPECT_EQ(model.concertPitches()->rowCount(), 11);
}

TEST_F(TunerModelTest, ShowsThatTheReferenceIsPlaying) {
  EXPECT_EQ(countOf(&TunerModel::playingReferenceChanged, [&] { model.playReference(); }), 1);
  EXPECT_TRUE(model.playingReference());
  ASSERT_EQ(world.output->played.size(), 1U);
  world.output->played.front().ended();
  EXPECT_EQ(countOf(&TunerModel::playingReferenceChanged, [&] { world.mainQueue->runAll(); }), 1);
  EXPECT_FALSE(model.playingReference());
}

TEST_F(TunerModelTest, OpensThePrivacyPolicyInTheBrowser) {
  model.openPrivacyPolicy();
  EXPECT_THAT(world.urlOpener->opened,
              testing::ElementsAre(PrivacyPolicy::url().toString().toStdString()));
}

TEST_F(TunerModelTest, ABrowserThatDoesNotOpenIsNotReported) {
  world.urlOpener->failures = 1;
  model.openPrivacyPolicy();
  EXPECT_EQ(world.urlOpener->opened.size(), 1U);
  EXPECT_EQ(model.errorText(), "");
}

TEST_F(TunerModelTest, TheHelpMenuHoldsThePrivacyPolicyAlone) {
  EXPECT_THAT(titlesOf(*model.helpMenu()), testing::ElementsAre("Privacy Policy"));
  EXPECT_EQ(model.privacyTitle(), "Privacy Policy");
}

TEST_F(TunerModelTest, KnowsItsVersion) {
  EXPECT_EQ(model.appVersion(), CORVANE_VERSION);
}

TEST_F(TunerModelTest, SizesAndTextsOfTheScreenAreThoseOfTheUnits) {
  EXPECT_EQ(TunerModel::fit(420, 680), Fit::forSize(420, 680));
  EXPECT_DOUBLE_EQ(TunerModel::needleCentre(500, 16, 50, -12.34), 0.3766 * 500);
  EXPECT_TRUE(TunerModel::needleMoves(500, 16, 50, 0, 1));
  EXPECT_FALSE(TunerModel::needleMoves(500, 16, 50, 1, 1));
  EXPECT_EQ(TunerModel::scaleText(50), "−50   0   +50");
}

TEST_F(TunerModelTest, IsSilentOnceItIsGone) {
  int changes = 0;
  {
    TunerModel shortLived(engine, world.permission, world.urlOpener);
    QObject::connect(&shortLived, &TunerModel::a4Changed, [&] { ++changes; });
    engine->setA4(441.0);
  }
  engine->setA4(442.0);
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace corvane
