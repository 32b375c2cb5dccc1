#include "ui/commentary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

/// Readings come as from the capture pipeline, and whatever the commentary asks for comes too.
class CommentaryTest : public testing::Test {
 protected:
  static constexpr Commentary::Time hop = 93ms;  // 4096 samples of 44 100 a second

  void look() {
    const Commentary::Answer answer = commentary.look(shown, now);
    if (!answer.words.isEmpty()) said.push_back(answer.words.toStdString());
    wakeUp = answer.lookAgain ? std::optional(now + *answer.lookAgain) : std::nullopt;
  }

  void passTime(Commentary::Time time) {
    const auto end = now + time;
    while (wakeUp && *wakeUp <= end) {
      now = *wakeUp;
      look();
    }
    now = end;
  }

  void hear(const char* note, double cents, Commentary::Time lasting) {
    shown.heard = true;
    shown.note = note;
    shown.cents = cents;
    shown.inTune = cents >= -5.0 && cents <= 5.0;
    shown.status = shown.inTune ? "In tune" : cents < 0.0 ? "Flat" : "Sharp";
    for (const auto end = now + lasting; now < end; passTime(hop)) look();
  }

  void hearNothing(Commentary::Time lasting) {
    shown.heard = shown.inTune = false;
    shown.status = "Play a note";
    for (const auto end = now + lasting; now < end; passTime(hop)) look();
  }

  std::vector<std::string> taken() { return std::exchange(said, {}); }

  Commentary commentary;
  Commentary::Situation shown;
  Commentary::Time now{5000};
  std::optional<Commentary::Time> wakeUp;
  std::vector<std::string> said;
};

TEST_F(CommentaryTest, ANoteIsSaidOnceItHasLasted) {
  hear("E2", -40.0, 350ms);
  EXPECT_THAT(taken(), IsEmpty());
  hear("E2", -40.0, 350ms);
  EXPECT_THAT(taken(), ElementsAre("E2, 40 cents flat"));
}

TEST_F(CommentaryTest, ANoteThatStaysInTuneIsSaidOnce) {
  for (int i = 0; i < 60; ++i) hear("A2", i % 2 == 0 ? 1.5 : -1.5, 1s);
  EXPECT_THAT(taken(), ElementsAre("A2, in tune"));
}

TEST_F(CommentaryTest, ANoteThatWaversWhereItIsIsSaidOnce) {
  for (int i = 0; i < 60; ++i) hear("A2", i % 2 == 0 ? -9.0 : -11.0, 1s);
  EXPECT_THAT(taken(), ElementsAre("A2, 9 cents flat"));
}

TEST_F(CommentaryTest, AStringThatIsTurnedIsFollowedDownToInTune) {
  for (double cents = -40.0; cents < 0.0; cents += 0.25) hear("E2", cents, hop);
  hear("E2", 0.0, 10s);
  const auto all = taken();
  ASSERT_GE(all.size(), 4U);
  EXPECT_EQ(all.front(), "E2, 39 cents flat");
  EXPECT_EQ(all.back(), "E2, in tune");
}

TEST_F(CommentaryTest, NoTwoSentencesAreCloserThanAPersonCanFollow) {
  std::vector<Commentary::Time> times;
  for (int i = 0; i < 2000; ++i) {
    hear(i % 70 < 35 ? "E2" : "A2", 60.0 - i % 120, hop);
    if (!taken().empty()) times.push_back(now);
  }
  ASSERT_GE(times.size(), 10U);
  for (std::size_t i = 1; i < times.size(); ++i) EXPECT_GE(times[i] - times[i - 1], 1500ms - hop);
}

TEST_F(CommentaryTest, AStringThatSwingsThroughTheEdgeIsNotInAndOutOfTune) {
  hear("E2", -20.0, 2s);
  for (int i = 0; i < 100; ++i) hear("E2", i % 3 == 0 ? -5.5 : -4.5, hop);
  hear("E2", -4.5, 1s);
  for (int i = 0; i < 100; ++i) hear("E2", i % 3 == 0 ? -5.5 : -4.5, hop);
  EXPECT_THAT(taken(), ElementsAre("E2, 20 cents flat", "E2, in tune"));
}

TEST_F(CommentaryTest, AWrongReadingOfThePluckIsNotSaid) {
  hear("G3", 31.0, 2 * hop);
  hear("E2", -12.0, 1s);
  EXPECT_THAT(taken(), ElementsAre("E2, 12 cents flat"));
}

TEST_F(CommentaryTest, ATransitionalReadingOfTheNextPluckIsNotSaid) {
  hear("E2", -28.0, 3s);
  hear("E2", -20.0, 3 * hop);
  hear("E2", -16.0, 1s);
  EXPECT_THAT(taken(), ElementsAre("E2, 28 cents flat", "E2, 16 cents flat"));
}

TEST_F(CommentaryTest, TheSilenceBetweenTwoPlucksIsNotSaid) {
  hear("E2", -12.0, 1s);
  hearNothing(1500ms);
  hear("E2", -12.0, 1s);
  EXPECT_THAT(taken(), ElementsAre("E2, 12 cents flat"));
}

TEST_F(CommentaryTest, ALongSilenceIsSaidOnceAndTheNoteAfterItAgain) {
  hear("E2", -12.0, 1s);
  hearNothing(60s);
  hear("E2", -12.0, 1s);
  EXPECT_THAT(taken(), ElementsAre("E2, 12 cents flat", "Play a note", "E2, 12 cents flat"));
}

TEST_F(CommentaryTest, AnotherNoteIsSaidWithoutASilenceBetween) {
  hear("E2", -12.0, 2s);
  hear("A2", 8.0, 2s);
  EXPECT_THAT(taken(), ElementsAre("E2, 12 cents flat", "A2, 8 cents sharp"));
}

TEST_F(CommentaryTest, AProblemIsSaidAtOnceAndOnce) {
  shown.problem = "No microphone is available.";
  look();
  EXPECT_THAT(taken(), ElementsAre("No microphone is available."));
  hearNothing(10s);
  EXPECT_THAT(taken(), IsEmpty());
}

TEST_F(CommentaryTest, WhatIsDueIsSaidWithoutAnotherReading) {
  shown.status = "Microphone off";
  look();
  passTime(10s);
  EXPECT_THAT(taken(), ElementsAre("Microphone off"));
}

TEST_F(CommentaryTest, TheReferenceToneIsNotTalkedOver) {
  hear("E2", -12.0, 1s);
  taken();
  shown.playing = true;
  shown.status = "Playing reference";
  shown.heard = false;
  look();
  passTime(20s);
  EXPECT_THAT(taken(), IsEmpty());
}

}  // namespace
}  // namespace corvane
