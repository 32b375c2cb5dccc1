#include <cmath>
#include <limits>

#include "engine/tests/engine_fixture.h"
#include "tunings/tuning_library.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::Optional;

class Reading : public EngineTest {};

constexpr std::int64_t lowE = 40;
constexpr std::int64_t a2 = 45;

TEST_F(Reading, BeforeAnythingIsHeardTheScreenAsksForANote) {
  EXPECT_EQ(engine->noteLabel(), "—");
  EXPECT_EQ(engine->octaveLabel(), "");
  EXPECT_EQ(engine->heardSpelling(), "");
  EXPECT_EQ(engine->status(), "Play a note");
  EXPECT_FALSE(engine->heard());
  EXPECT_FALSE(engine->inTune());
  EXPECT_EQ(engine->cents(), 0.0);
  EXPECT_EQ(engine->frequency(), 0.0);
  EXPECT_EQ(engine->signal(), 0.0);
  EXPECT_EQ(engine->highlightedString(), std::nullopt);
}

TEST_F(Reading, AConfidenceOfExactly082IsAccepted) {
  hear(110.0, 0.82);
  EXPECT_TRUE(engine->heard());
  EXPECT_EQ(engine->frequency(), 110.0);
}

TEST_F(Reading, AConfidenceOf08199CountsAsSilence) {
  hear(110.0, 0.8199);
  EXPECT_FALSE(engine->heard());
  EXPECT_EQ(engine->frequency(), 0.0);
}

TEST_F(Reading, AConfidenceThatIsNotANumberCountsAsSilence) {
  hear(110.0, std::numeric_limits<double>::quiet_NaN());
  EXPECT_FALSE(engine->heard());
}

TEST_F(Reading, TheSignalIsTwelveTimesTheLevelUpToOne) {
  hear(110.0, 0.99, 0.1F);
  EXPECT_EQ(engine->signal(), 1.0);
  hear(110.0, 0.99, 0.05F);
  // The level is widened before the product, so this is exact.
  EXPECT_EQ(engine->signal(), static_cast<double>(0.05F) * 12.0);
}

TEST_F(Reading, TwoEmptyReadingsTakeTheSignalFrom06To0216) {
  hear(110.0, 0.99, 0.05F);
  const double loud = engine->signal();
  hearNothing();
  hearNothing();
  EXPECT_EQ(engine->signal(), loud * 0.6 * 0.6);
  // 0.05 as a float is off by less than 1e-9.
  EXPECT_NEAR(engine->signal(), 0.216, 1e-8);
}

TEST_F(Reading, ANegativeSignalFallsBackToZero) {
  hear(110.0, 0.99, -0.05F);
  EXPECT_LT(engine->signal(), 0.0);
  hearNothing();
  EXPECT_EQ(engine->signal(), 0.0);
}

TEST_F(Reading, ASignalThatIsNotANumberFallsBackToZero) {
  hear(110.0, 0.99, std::numeric_limits<float>::quiet_NaN());
  hearNothing();
  EXPECT_EQ(engine->signal(), 0.0);
}

/// On the piano an A4 of 440 Hz and a note of a4 x 2^(c/1200) differ by c up to rounding; a bound
/// is hit exactly by searching for the neighbouring frequencies on both sides of it.
TEST_F(Reading, DeviationsOfExactlyFiveCentsAreInTune) {
  double sharp = off(a2, 5.0);
  while (centsBetween(sharp, 110.0) > 5.0) sharp = std::nextafter(sharp, 0.0);
  double flat = off(a2, -5.0);
  while (centsBetween(flat, 110.0) < -5.0) flat = std::nextafter(flat, 1e9);
  hearAfresh(sharp);
  EXPECT_EQ(engine->status(), "In tune");
  EXPECT_TRUE(engine->inTune());
  hearAfresh(flat);
  EXPECT_EQ(engine->status(), "In tune");
}

TEST_F(Reading, TheVerdictChangesAtTheNextNumberAboveFiveCents) {
  double sharp = off(a2, 5.0);
  while (centsBetween(sharp, 110.0) <= 5.0) sharp = std::nextafter(sharp, 1e9);
  hearAfresh(sharp);
  EXPECT_GT(engine->cents(), 5.0);
  EXPECT_LT(engine->cents(), 5.0 + 1e-9);
  EXPECT_EQ(engine->status(), "Sharp");
  EXPECT_FALSE(engine->inTune());
}

TEST_F(Reading, ADeviationOfFivePointZeroZeroZeroOneIsSharpAndItsOppositeFlat) {
  hearAfresh(off(a2, 5.0001));
  EXPECT_EQ(engine->status(), "Sharp");
  hearAfresh(off(a2, -5.0001));
  EXPECT_EQ(engine->status(), "Flat");
}

TEST_F(Reading, NoDeviationIsInTune) {
  hear(110.0);
  EXPECT_EQ(engine->cents(), 0.0);
  EXPECT_EQ(engine->status(), "In tune");
}

TEST_F(Reading, AJumpOfMoreThan80CentsIsShownUnsmoothed) {
  for (const double frequency : {110.0, 111.0, 109.0, 110.5}) hear(frequency);
  hear(500.0);
  EXPECT_EQ(engine->frequency(), 500.0);
  hear(501.0);  // of 500 and 501 alone, the upper
  EXPECT_EQ(engine->frequency(), 501.0);
}

TEST_F(Reading, TwoReadingsGiveTheUpperOne) {
  hear(110.0);
  EXPECT_EQ(engine->frequency(), 110.0);
  hear(111.0);
  EXPECT_EQ(engine->frequency(), 111.0);
  hear(109.0);
  EXPECT_EQ(engine->frequency(), 110.0);
  hear(108.5);
  EXPECT_EQ(engine->frequency(), 110.0);
}

TEST_F(Reading, AJumpOfExactly80CentsIsSmoothed) {
  double last = 100.0;
  double jumped = last * std::exp2(80.0 / 1200.0);
  while (centsBetween(jumped, last) > 80.0) jumped = std::nextafter(jumped, 0.0);
  hear(last);
  hear(99.9);
  hear(last);
  hear(jumped);
  EXPECT_EQ(engine->frequency(), 100.0);
  hear(last);  // 99.9, 100, 100, 100, jumped: the middle
  hear(100.0 * std::exp2(-80.1 / 1200.0));
  EXPECT_EQ(engine->frequency(), 100.0 * std::exp2(-80.1 / 1200.0));
}

TEST_F(Reading, TheJumpIsMeasuredFromTheLastRawValueNotFromTheMedian) {
  hear(100.0);
  hear(100.0);
  hear(100.0);
  hear(104.0);  // 68 cents: smoothed to 100
  EXPECT_EQ(engine->frequency(), 100.0);
  hear(108.0);  // 65 cents from 104, 133 from the median
  EXPECT_EQ(engine->frequency(), 100.0);
}

TEST_F(Reading, AfterSixReadingsExactlyTheLastFiveAreSmoothed) {
  hear(109.0);
  hear(109.0);
  hear(109.0);
  hear(110.0);
  hear(110.0);
  EXPECT_EQ(engine->frequency(), 109.0);
  hear(110.0);  // 109, 109, 110, 110, 110
  EXPECT_EQ(engine->frequency(), 110.0);
}

TEST_F(Reading, SilenceKeepsTheSmoothing) {
  hear(109.0);
  hear(109.0);
  hearNothing();
  hear(111.0);
  EXPECT_EQ(engine->frequency(), 109.0);
}

TEST_F(Reading, AGuitarStringIsNamedByItsOwnLabelOctaveAndTarget) {
  engine->setTuningID("g6-half");
  hear(off(39, -30.0));
  EXPECT_EQ(engine->noteLabel(), "E♭");
  EXPECT_EQ(engine->octaveLabel(), "2");
  EXPECT_EQ(engine->heardSpelling(), "D♯2");
  EXPECT_THAT(engine->highlightedString(), Optional(0));
  EXPECT_NEAR(engine->cents(), -30.0, 1e-9);
  EXPECT_EQ(engine->status(), "Flat");
}

TEST_F(Reading, OctavesOfTheOuterGuitarStringsAreTwoAndFour) {
  hear(off(lowE, 0.0));
  EXPECT_EQ(engine->octaveLabel(), "2");
  hear(off(64, 0.0));
  EXPECT_EQ(engine->octaveLabel(), "4");
}

TEST_F(Reading, FarFromEveryStringTheDeviationIsStillToTheNearestString) {
  hear(off(64, 700.0));
  EXPECT_THAT(engine->highlightedString(), Optional(5));
  EXPECT_NEAR(engine->cents(), 700.0, 1e-9);
  EXPECT_EQ(engine->heardSpelling(), "B4");
  EXPECT_EQ(engine->status(), "Sharp");
}

TEST_F(Reading, APianoShowsTheChromaticNoteAndNoString) {
  engine->setInstrument(Instrument::piano);
  hear(off(70, 30.0));
  EXPECT_EQ(engine->highlightedString(), std::nullopt);
  EXPECT_EQ(engine->noteLabel(), "A♯");
  EXPECT_EQ(engine->octaveLabel(), "4");
  EXPECT_EQ(engine->heardSpelling(), "A♯4");
  EXPECT_NEAR(engine->cents(), 30.0, 1e-9);
}

TEST_F(Reading, APianoClearsTheHighlightOnEveryAcceptedReading) {
  engine->setInstrument(Instrument::piano);
  for (int i = 0; i < 2; ++i) {
    const auto fields = published([this] { hear(440.0); });
    EXPECT_THAT(fields, testing::Contains(Field::highlightedString));
    EXPECT_EQ(engine->highlightedString(), std::nullopt);
  }
}

TEST_F(Reading, ALockedStringStaysHighlightedWhateverIsPlayed) {
  engine->setLockedStringIndex(0);
  hear(off(64, 0.0));
  EXPECT_THAT(engine->highlightedString(), Optional(0));
  EXPECT_EQ(engine->noteLabel(), "E");
  EXPECT_EQ(engine->octaveLabel(), "2");
  EXPECT_NEAR(engine->cents(), 2400.0, 1e-9);
}

TEST_F(Reading, SilenceClearsTheHighlightWhenNoStringIsLocked) {
  hear(110.0);
  ASSERT_THAT(engine->highlightedString(), Optional(1));
  hearNothing();
  EXPECT_EQ(engine->highlightedString(), std::nullopt);
}

TEST_F(Reading, SilenceRestoresTheHighlightOfALockedString) {
  hear(110.0);
  engine->setLockedStringIndex(3);
  hearNothing();
  EXPECT_THAT(engine->highlightedString(), Optional(3));
}

TEST_F(Reading, SilenceKeepsTheLastNoteOnDisplay) {
  engine->start();
  hear(off(a2, 12.0));
  const double cents = engine->cents();
  hearNothing();
  EXPECT_FALSE(engine->heard());
  EXPECT_FALSE(engine->inTune());
  EXPECT_EQ(engine->status(), "Play a note");
  EXPECT_EQ(engine->noteLabel(), "A");
  EXPECT_EQ(engine->octaveLabel(), "2");
  EXPECT_EQ(engine->heardSpelling(), "A2");
  EXPECT_EQ(engine->cents(), cents);
  EXPECT_EQ(engine->frequency(), off(a2, 12.0));
}

TEST_F(Reading, WhileNotListeningSilenceReadsMicrophoneOff) {
  hearNothing();
  EXPECT_EQ(engine->status(), "Microphone off");
}

/// A frequency as far from one MIDI note as from another, to the last bit; nothing when rounding
/// leaves none around the middle.
std::optional<double> tie(std::int64_t lower, std::int64_t upper, double a4) {
  const auto distance = [a4](double f, std::int64_t midi) {
    return std::abs(centsBetween(f, targetFrequency(midi, a4)));
  };
  const double middle = std::sqrt(targetFrequency(lower, a4) * targetFrequency(upper, a4));
  double f = middle * (1.0 - 1e-15);
  for (; f < middle * (1.0 + 1e-15); f = std::nextafter(f, 1e9)) {
    if (distance(f, lower) == distance(f, upper)) return f;
  }
  return std::nullopt;
}

TEST_F(Reading, OfTwoStringsEquallyFarTheEarlierIsChosen) {
  int ties = 0;
  for (const Tuning& tuning : TuningLibrary::guitar()) {
    engine->setTuningID(tuning.id);
    for (std::size_t i = 0; i + 1 < tuning.strings.size(); ++i) {
      const auto frequency = tie(tuning.strings[i].midi, tuning.strings[i + 1].midi, engine->a4());
      if (!frequency) continue;
      ++ties;
      hearAfresh(*frequency);
      EXPECT_THAT(engine->highlightedString(), Optional(tuning.strings[i].index)) << tuning.id;
    }
  }
  EXPECT_GT(ties, 0);
}

TEST_F(Reading, AFrequencyWithoutANoteUpdatesLevelAndFrequencyOnly) {
  hear(110.0);
  hearNothing();
  hear(std::numeric_limits<double>::infinity(), 0.99, 0.02F);
  EXPECT_TRUE(engine->heard());
  EXPECT_EQ(engine->frequency(), std::numeric_limits<double>::infinity());
  EXPECT_EQ(engine->signal(), static_cast<double>(0.02F) * 12.0);
  EXPECT_EQ(engine->status(), "Microphone off");
  EXPECT_FALSE(engine->inTune());
  EXPECT_EQ(engine->noteLabel(), "A");
  EXPECT_EQ(engine->cents(), 0.0);
  EXPECT_EQ(engine->highlightedString(), std::nullopt);
}

TEST_F(Reading, ASuppressedReadingChangesNeitherLevelNorFrequencyNorSmoothing) {
  hear(110.0, 0.99, 0.05F);
  const double signal = engine->signal();
  engine->playReference();
  hear(111.0, 1.0, 0.08F);
  hear(111.0, 1.0, 0.08F);
  EXPECT_EQ(engine->status(), "Playing reference");
  EXPECT_FALSE(engine->heard());
  EXPECT_FALSE(engine->inTune());
  EXPECT_EQ(engine->signal(), signal);
  EXPECT_EQ(engine->frequency(), 110.0);
  EXPECT_THAT(engine->highlightedString(), Optional(1));

  world.clock->time += std::chrono::milliseconds(1350);
  hear(109.0);  // of 110 and 109, the upper: the two suppressed readings left no trace
  EXPECT_EQ(engine->frequency(), 110.0);
}

TEST_F(Reading, OnceTheToneHasEndedSuppressedReadingsAskForANote) {
  engine->playReference();
  world.output->played.back().ended();
  world.mainQueue->runAll();
  hear(110.0);
  EXPECT_EQ(engine->status(), "Play a note");
  EXPECT_FALSE(engine->heard());
}

TEST_F(Reading, SuppressionEndsAtItsMomentAndNotBefore) {
  engine->playReference();
  world.clock->time += std::chrono::milliseconds(1350) - std::chrono::nanoseconds(1);
  hear(110.0);
  EXPECT_FALSE(engine->heard());
  world.clock->time += std::chrono::nanoseconds(1);
  hear(110.0);
  EXPECT_TRUE(engine->heard());
}

TEST_F(Reading, AnAcceptedReadingPublishesEachFieldOnceInItsOrder) {
  EXPECT_THAT(published([this] { hear(110.0); }),
              ElementsAre(Field::signal, Field::frequency, Field::heard, Field::heardSpelling,
                          Field::highlightedString, Field::noteLabel, Field::octaveLabel,
                          Field::cents, Field::inTune, Field::status));
}

TEST_F(Reading, AnAcceptedReadingOnThePianoPublishesTheSameFields) {
  engine->setInstrument(Instrument::piano);
  EXPECT_THAT(published([this] { hear(110.0); }),
              ElementsAre(Field::signal, Field::frequency, Field::heard, Field::heardSpelling,
                          Field::highlightedString, Field::noteLabel, Field::octaveLabel,
                          Field::cents, Field::inTune, Field::status));
}

TEST_F(Reading, AnEmptyReadingPublishesEachFieldOnceInItsOrder) {
  EXPECT_THAT(published([this] { hearNothing(); }),
              ElementsAre(Field::signal, Field::heard, Field::inTune, Field::status,
                          Field::highlightedString));
}

TEST_F(Reading, ASuppressedReadingPublishesEachFieldOnceInItsOrder) {
  engine->playReference();
  EXPECT_THAT(published([this] { hear(110.0); }),
              ElementsAre(Field::status, Field::heard, Field::inTune));
}

}  // namespace
}  // namespace corvane
