// SPDX-License-Identifier: MIT
#include <cmath>
#include <limits>

#include "engine/rules.h"
#include "engine/tests/engine_fixture.h"
#include "tunings/tuning_library.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::Optional;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

constexpr std::int64_t a2 = 45;

TEST(Rules, ExactlyFiveCentsAreInTune) {
  for (const double cents : {5.0, -5.0, 0.0}) EXPECT_TRUE(isInTune(cents)) << cents;
  const double above = std::nextafter(5.0, 6.0);
  for (const double cents : {above, -above, nan}) EXPECT_FALSE(isInTune(cents)) << cents;
}

TEST(Rules, ExactlyEightyCentsAreNoJump) {
  for (const double cents : {80.0, -80.0, 0.0, nan}) EXPECT_FALSE(isJump(cents)) << cents;
  const double above = std::nextafter(80.0, 81.0);
  for (const double cents : {above, -above}) EXPECT_TRUE(isJump(cents)) << cents;
}

TEST(Rules, NonPositiveFrequenciesDeviateByExactlyZero) {
  for (const double odd : {0.0, -440.0, nan}) {
    EXPECT_EQ(centsBetween(odd, 440.0), 0.0) << odd;
    EXPECT_EQ(centsBetween(440.0, odd), 0.0) << odd;
  }
  EXPECT_EQ(centsBetween(2e-300, 1e-300), 1200.0);
}

class Reading : public EngineTest {
 protected:
  struct Smoothing {
    std::vector<double> raw;
    double shown;
  };

  /// Each row starts with an empty history.
  void expectSmoothed(const std::vector<Smoothing>& rows) {
    for (const auto& [raw, shown] : rows) {
      makeEngine();
      for (const double frequency : raw) hear(frequency);
      EXPECT_EQ(engine->state().frequency, shown) << testing::PrintToString(raw);
    }
  }

  struct Shown {
    double frequency;
    std::optional<std::int64_t> string;
    const char* note;
    const char* octave;
    const char* spelling;
    double cents;
    const char* status;
  };

  void expectShown(const Shown& expected) {
    SCOPED_TRACE(expected.spelling);
    hearAfresh(expected.frequency);
    EXPECT_EQ(engine->state().highlightedString, expected.string);
    EXPECT_EQ(engine->state().noteLabel, expected.note);
    EXPECT_EQ(engine->state().octaveLabel, expected.octave);
    EXPECT_EQ(engine->state().heardSpelling, expected.spelling);
    EXPECT_NEAR(engine->state().cents, expected.cents, 1e-9);
    EXPECT_EQ(engine->state().status, expected.status);
  }
};

TEST_F(Reading, AsksForANoteBeforeAnythingIsHeard) {
  EXPECT_EQ(engine->state().noteLabel, "—");
  EXPECT_EQ(engine->state().octaveLabel, "");
  EXPECT_EQ(engine->state().heardSpelling, "");
  EXPECT_EQ(engine->state().status, "Play a note");
  EXPECT_FALSE(engine->state().heard);
  EXPECT_FALSE(engine->state().inTune);
  EXPECT_EQ(engine->state().cents, 0.0);
  EXPECT_EQ(engine->state().frequency, 0.0);
  EXPECT_EQ(engine->state().signal, 0.0);
  EXPECT_EQ(engine->state().highlightedString, std::nullopt);
}

TEST_F(Reading, AConfidenceOfExactly082IsAccepted) {
  for (const double confidence : {0.8199, std::nextafter(0.82, 0.0), nan}) {
    hear(110.0, confidence);
    EXPECT_FALSE(engine->state().heard) << confidence;
    EXPECT_EQ(engine->state().frequency, 0.0) << confidence;
  }
  hear(110.0, 0.82);
  EXPECT_TRUE(engine->state().heard);
  EXPECT_EQ(engine->state().frequency, 110.0);
}

TEST_F(Reading, SignalIsTwelveTimesTheLevelUpToOne) {
  hear(110.0, 0.99, 0.1F);
  EXPECT_EQ(engine->state().signal, 1.0);
  hear(110.0, 0.99, 0.05F);
  // The level is widened before the product, so this is exact.
  EXPECT_EQ(engine->state().signal, static_cast<double>(0.05F) * 12.0);
}

TEST_F(Reading, TwoEmptyReadingsTakeTheSignalFrom06To0216) {
  hear(110.0, 0.99, 0.05F);
  const double loud = engine->state().signal;
  hearNothing();
  hearNothing();
  EXPECT_EQ(engine->state().signal, loud * 0.6 * 0.6);
  // 0.05 as a float is off by less than 1e-9.
  EXPECT_NEAR(engine->state().signal, 0.216, 1e-8);
}

TEST_F(Reading, SignalBelowZeroOrNotANumberFallsBackToZero) {
  for (const float rms : {-0.05F, std::numeric_limits<float>::quiet_NaN()}) {
    hear(110.0, 0.99, rms);
    EXPECT_NE(engine->state().signal, 0.0);
    hearNothing();
    EXPECT_EQ(engine->state().signal, 0.0) << rms;
  }
}

TEST_F(Reading, MoreThanFiveCentsAreSharpOrFlat) {
  struct Verdict {
    double cents;
    const char* status;
  };
  for (const auto& [cents, status] :
       {Verdict{0.0, "In tune"}, Verdict{4.9999, "In tune"}, Verdict{-4.9999, "In tune"},
        Verdict{5.0001, "Sharp"}, Verdict{-5.0001, "Flat"}}) {
    hearAfresh(off(a2, cents));
    EXPECT_EQ(engine->state().status, status) << cents;
    EXPECT_EQ(engine->state().inTune, engine->state().status == "In tune") << cents;
  }
}

TEST_F(Reading, SmoothsTheLastFiveToTheirUpperMedian) {
  expectSmoothed({{{110.0}, 110.0},
                  {{110.0, 111.0}, 111.0},
                  {{110.0, 111.0, 109.0}, 110.0},
                  {{110.0, 111.0, 109.0, 108.5}, 110.0},
                  {{109.0, 109.0, 109.0, 110.0, 110.0}, 109.0}});
}

TEST_F(Reading, AfterSixReadingsTheLastFiveAreSmoothed) {
  expectSmoothed({{{109.0, 109.0, 109.0, 110.0, 110.0, 110.0}, 110.0}});
}

TEST_F(Reading, AJumpOfMoreThan80CentsEmptiesTheHistory) {
  const double down = 100.0 * std::exp2(-80.1 / 1200.0);
  expectSmoothed({{{110.0, 111.0, 109.0, 110.5, 500.0}, 500.0},
                  {{110.0, 111.0, 109.0, 110.5, 500.0, 501.0}, 501.0},
                  {{100.0, 100.0, 100.0, down}, down},
                  {{100.0, 100.0, 100.0, 100.0 * std::exp2(79.9 / 1200.0)}, 100.0},
                  // 68 cents, then 65 from the last value but 133 from the median.
                  {{100.0, 100.0, 100.0, 104.0, 108.0}, 100.0}});
}

TEST_F(Reading, SilenceKeepsTheHistory) {
  hear(109.0);
  hear(109.0);
  hearNothing();
  hear(111.0);
  EXPECT_EQ(engine->state().frequency, 109.0);
}

TEST_F(Reading, GuitarShowsTheNearestStringHoweverFar) {
  expectShown({off(40, 0.0), 0, "E", "2", "E2", 0.0, "In tune"});
  expectShown({off(64, 700.0), 5, "E", "4", "B4", 700.0, "Sharp"});
  engine->setTuningID("g6-half");
  expectShown({off(39, -30.0), 0, "E♭", "2", "D♯2", -30.0, "Flat"});
}

TEST_F(Reading, LockedStringStaysHighlightedWhateverIsPlayed) {
  engine->setLockedStringIndex(0);
  expectShown({off(64, 0.0), 0, "E", "2", "E4", 2400.0, "Sharp"});
}

TEST_F(Reading, PianoShowsTheChromaticNoteAndNoString) {
  engine->setInstrument(Instrument::piano);
  expectShown({off(70, 30.0), {}, "A♯", "4", "A♯4", 30.0, "Sharp"});
}

TEST_F(Reading, SilenceHighlightsTheLockedStringOrNone) {
  hear(110.0);
  ASSERT_THAT(engine->state().highlightedString, Optional(1));
  hearNothing();
  EXPECT_EQ(engine->state().highlightedString, std::nullopt);
  engine->setLockedStringIndex(3);
  hearNothing();
  EXPECT_THAT(engine->state().highlightedString, Optional(3));
}

TEST_F(Reading, SilenceKeepsTheLastNoteOnDisplay) {
  engine->start();
  hear(off(a2, 12.0));
  const double cents = engine->state().cents;
  hearNothing();
  EXPECT_FALSE(engine->state().heard);
  EXPECT_FALSE(engine->state().inTune);
  EXPECT_EQ(engine->state().status, "Play a note");
  EXPECT_EQ(engine->state().noteLabel + engine->state().octaveLabel, "A2");
  EXPECT_EQ(engine->state().heardSpelling, "A2");
  EXPECT_EQ(engine->state().cents, cents);
  EXPECT_EQ(engine->state().frequency, off(a2, 12.0));
}

TEST_F(Reading, SilenceWhileNotListeningReadsMicrophoneOff) {
  hearNothing();
  EXPECT_EQ(engine->state().status, "Microphone off");
}

/// A frequency exactly as far from one MIDI note as from another; nothing if rounding leaves none.
std::optional<double> tie(std::int64_t lower, std::int64_t upper, double a4) {
  const auto distance = [a4](double f, std::int64_t midi) {
    return std::abs(centsBetween(f, targetFrequency(midi, a4)));
  };
  const double middle = std::sqrt(targetFrequency(lower, a4) * targetFrequency(upper, a4));
  for (double f = middle * (1.0 - 1e-15); f < middle * (1.0 + 1e-15); f = std::nextafter(f, 1e9)) {
    if (distance(f, lower) == distance(f, upper)) return f;
  }
  return std::nullopt;
}

TEST_F(Reading, OfTwoStringsEquallyFarTheEarlierIsChosen) {
  int ties = 0;
  for (const Tuning& tuning : TuningLibrary::guitar()) {
    engine->setTuningID(tuning.id);
    for (std::size_t i = 0; i + 1 < tuning.strings.size(); ++i) {
      const auto frequency =
          tie(tuning.strings[i].midi, tuning.strings[i + 1].midi, engine->state().a4);
      if (!frequency) continue;
      ++ties;
      hearAfresh(*frequency);
      EXPECT_THAT(engine->state().highlightedString, Optional(tuning.strings[i].index))
          << tuning.id;
    }
  }
  EXPECT_GT(ties, 0);
}

TEST_F(Reading, AFrequencyWithoutANoteChangesLevelAndFrequencyOnly) {
  hear(110.0);
  hearNothing();
  DisplayState expected = engine->state();
  expected.heard = true;
  expected.frequency = infinity;
  expected.signal = static_cast<double>(0.02F) * 12.0;
  hear(infinity, 0.99, 0.02F);
  EXPECT_EQ(engine->state(), expected);
}

TEST_F(Reading, WhileSuppressedNeitherSignalNorFrequencyNorHistoryChanges) {
  hear(110.0, 0.99, 0.05F);
  const double signal = engine->state().signal;
  engine->playReference();
  hear(111.0, 1.0, 0.08F);
  hear(111.0, 1.0, 0.08F);
  EXPECT_EQ(engine->state().status, "Playing reference");
  EXPECT_FALSE(engine->state().heard);
  EXPECT_FALSE(engine->state().inTune);
  EXPECT_EQ(engine->state().signal, signal);
  EXPECT_EQ(engine->state().frequency, 110.0);
  EXPECT_THAT(engine->state().highlightedString, Optional(1));

  world.output->played.back().ended();
  hear(111.0);
  EXPECT_EQ(engine->state().status, "Play a note") << "the tone has ended, the suppression has not";
  EXPECT_FALSE(engine->state().heard);

  world.clock->time += std::chrono::milliseconds(1350);
  hear(109.0);  // of 110 and 109, the upper: the suppressed readings left no trace
  EXPECT_EQ(engine->state().frequency, 110.0);
}

TEST_F(Reading, NotifiesOnceIfItChangesAnything) {
  EXPECT_EQ(notifications([this] { hear(110.0); }), 1);
  EXPECT_EQ(notifications([this] { hear(110.0); }), 0);
  EXPECT_EQ(notifications([this] { hear(82.4); }), 1);
  EXPECT_EQ(notifications([this] { hearNothing(); }), 1);
  engine->playReference();
  EXPECT_EQ(notifications([this] { hear(110.0); }), 1) << "the status";
  EXPECT_EQ(notifications([this] { hear(110.0); }), 0);
}

}  // namespace
}  // namespace corvane
