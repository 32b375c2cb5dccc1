// SPDX-License-Identifier: MIT
#include "ui/speech/announcer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

/// Calls the announcer for each reading, at the pipeline's rate, and when it asked to be called.
class AnnouncerTest : public testing::Test {
 protected:
  static constexpr Announcer::Time hop = 93ms;  // 4096 samples of 44 100 a second

  void look() {
    const Announcer::Answer answer = announcer.look(shown, now);
    if (!answer.words.isEmpty()) said.push_back(answer.words.toStdString());
    wakeUp = answer.lookAgain ? std::optional(now + *answer.lookAgain) : std::nullopt;
  }

  void passTime(Announcer::Time time) {
    const auto end = now + time;
    while (wakeUp && *wakeUp <= end) {
      now = *wakeUp;
      look();
    }
    now = end;
  }

  /// A note with this deviation; none is silence.
  void show(const char* note, double cents = 0.0) {
    shown.heard = note != nullptr;
    shown.note = note;
    shown.cents = cents;
    shown.inTune = shown.heard && cents >= -5.0 && cents <= 5.0;
    shown.status = "Play a note";
  }

  void hear(const char* note, double cents, Announcer::Time lasting) {
    show(note, cents);
    for (const auto end = now + lasting; now < end; passTime(hop)) look();
  }

  /// To the millisecond, without another reading.
  void expectSaidAfter(Announcer::Time time, const char* words) {
    look();
    passTime(time - 1ms);
    EXPECT_THAT(taken(), IsEmpty()) << words;
    passTime(1ms);
    EXPECT_THAT(taken(), ElementsAre(words));
  }

  std::vector<std::string> taken() { return std::exchange(said, {}); }

  Announcer announcer;
  Announcer::Situation shown;
  Announcer::Time now{5000};
  std::optional<Announcer::Time> wakeUp;
  std::vector<std::string> said;
};

TEST_F(AnnouncerTest, SaysEachChangeOnceItHasSettled) {
  struct Change {
    const char* note;
    double cents;
    Announcer::Time settling;
    const char* words;
  };
  for (const Change& change :
       {Change{"E2", -40.0, 400ms, "E2, 40 cents flat"}, Change{"E2", 0.0, 500ms, "E2, in tune"},
        Change{"E2", 7.0, 1000ms, "E2, 7 cents sharp"},
        Change{"A2", 7.0, 400ms, "A2, 7 cents sharp"},
        Change{nullptr, 0.0, 2000ms, "Play a note"}}) {
    show(change.note, change.cents);
    expectSaidAfter(change.settling, change.words);
    hear(change.note, change.cents, 10s);
    EXPECT_THAT(taken(), IsEmpty()) << change.words;
  }
}

TEST_F(AnnouncerTest, SaysNothingForASecondAndAHalfAfterASentence) {
  show("E2", -40.0);
  expectSaidAfter(400ms, "E2, 40 cents flat");
  show("A2", 8.0);
  expectSaidAfter(1500ms, "A2, 8 cents sharp");
}

TEST_F(AnnouncerTest, SaysAProblemAtOnceAndOnce) {
  shown.problem = "No microphone is available.";
  look();
  EXPECT_THAT(taken(), ElementsAre("No microphone is available."));
  hear(nullptr, 0.0, 10s);
  EXPECT_THAT(taken(), IsEmpty());
}

TEST_F(AnnouncerTest, SaysAMoveOfThreeCentsOrAQuarterOfTheWay) {
  for (const auto& [first, tooNear, next] :
       {std::tuple(-8.0, -10.99, -11.0), std::tuple(40.0, 30.01, 30.0)}) {
    hear("E2", first, 10s);
    taken();
    hear("E2", tooNear, 10s);
    EXPECT_THAT(taken(), IsEmpty()) << tooNear;
    hear("E2", next, 10s);
    EXPECT_EQ(taken().size(), 1U) << next;
  }
}

TEST_F(AnnouncerTest, SaysAWaveringPitchOnce) {
  for (int i = 0; i < 60; ++i) hear("A2", i % 2 == 0 ? 1.5 : -1.5, 1s);
  for (int i = 0; i < 60; ++i) hear("A2", i % 2 == 0 ? -9.0 : -11.0, 1s);
  EXPECT_THAT(taken(), ElementsAre("A2, in tune", "A2, 9 cents flat"));
}

TEST_F(AnnouncerTest, IgnoresWrongReadingsAtAPluck) {
  hear("G3", 31.0, 2 * hop);
  hear("E2", -28.0, 3s);
  hear("E2", -20.0, 3 * hop);
  hear("E2", -16.0, 1s);
  EXPECT_THAT(taken(), ElementsAre("E2, 28 cents flat", "E2, 16 cents flat"));
}

TEST_F(AnnouncerTest, SaysALongSilenceAndTheSameNoteAfterIt) {
  hear("E2", -12.0, 1s);
  hear(nullptr, 0.0, 1500ms);
  hear("E2", -12.0, 1s);
  EXPECT_THAT(taken(), ElementsAre("E2, 12 cents flat"));
  hear(nullptr, 0.0, 60s);
  hear("E2", -12.0, 1s);
  EXPECT_THAT(taken(), ElementsAre("Play a note", "E2, 12 cents flat"));
}

TEST_F(AnnouncerTest, DoesNotTalkOverTheReferenceTone) {
  hear("E2", -12.0, 1s);
  taken();
  show(nullptr);
  shown.playing = true;
  look();
  passTime(20s);
  EXPECT_THAT(taken(), IsEmpty());
}

}  // namespace
}  // namespace corvane
