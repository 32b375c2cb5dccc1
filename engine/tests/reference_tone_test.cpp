// SPDX-License-Identifier: MIT
#include "engine/rules.h"
#include "engine/tests/engine_fixture.h"
#include "engine/tone_buffer.h"

namespace corvane {
namespace {

using testing::ElementsAre;

class ReferenceTone : public EngineTest {
 protected:
  void endTone(std::size_t index) {
    world.output->played.at(index).ended();
    world.mainQueue->runAll();
  }

  /// The tone that a press plays is exactly that of this frequency.
  void expectPressPlays(double hertz) {
    engine->playReference();
    ASSERT_FALSE(world.output->played.empty());
    EXPECT_TRUE(world.output->played.back().samples == toneBuffer(hertz, 44100.0)) << hertz;
  }
};

TEST_F(ReferenceTone, PlaysTheSecondStringByDefault) {
  expectPressPlays(110.0);
  engine->setInstrument(Instrument::bass);
  expectPressPlays(55.0);
  engine->setA4(415.0);
  expectPressPlays(415.0 / 8.0);
}

TEST(Rules, ASingleStringIsPlayedByDefault) {
  EXPECT_EQ(defaultString(1), 0);
  EXPECT_EQ(defaultString(2), 1);
  EXPECT_EQ(defaultString(6), 1);
}

TEST_F(ReferenceTone, PlaysTheLockedStringEvenIfAnotherIsHighlighted) {
  hear(off(64, 0.0));
  expectPressPlays(targetFrequency(64, 440.0));
  engine->setLockedStringIndex(0);
  expectPressPlays(targetFrequency(40, 440.0));
}

TEST_F(ReferenceTone, APianoPlaysA4UnlessItHearsANote) {
  engine->setInstrument(Instrument::piano);
  engine->setA4(442.0);
  expectPressPlays(442.0);
  world.clock->time += std::chrono::seconds(2);
  hear(off(70, 30.0));
  expectPressPlays(targetFrequency(70, 442.0));
  world.clock->time += std::chrono::seconds(2);
  hearNothing();
  expectPressPlays(442.0);
  world.clock->time += std::chrono::seconds(2);
  hear(std::numeric_limits<double>::infinity());
  ASSERT_TRUE(engine->state().heard);
  expectPressPlays(442.0);
}

TEST_F(ReferenceTone, SetsTheOutputUpOnceAndAgainWhenItWasStopped) {
  engine->playReference();
  engine->playReference();
  EXPECT_THAT(world.output->formats, ElementsAre(AudioFormat{44100.0, 1}));
  world.output->running = false;
  engine->playReference();
  EXPECT_EQ(world.output->formats.size(), 2U);
}

TEST_F(ReferenceTone, SetsUpARunningOutputThatItDidNotStart) {
  world.output->running = true;
  engine->playReference();
  EXPECT_EQ(world.output->formats.size(), 1U);

  world.output->running = false;
  world.output->startSucceeds = false;
  engine->playReference();
  world.output->running = true;
  world.output->startSucceeds = true;
  engine->playReference();
  EXPECT_EQ(world.output->formats.size(), 3U) << "the failed start is not forgotten";
}

TEST_F(ReferenceTone, AFailedPressSuppressesNothing) {
  world.output->startSucceeds = false;
  EXPECT_EQ(notifications([this] { engine->playReference(); }), 0);
  EXPECT_FALSE(engine->state().playingReference);
  EXPECT_TRUE(world.output->played.empty());
  hear(110.0);
  EXPECT_TRUE(engine->state().heard);
}

TEST_F(ReferenceTone, IsPlayingFromThePressUntilItsEndIsReported) {
  engine->playReference();
  EXPECT_TRUE(engine->state().playingReference);
  world.output->played.at(0).ended();
  EXPECT_TRUE(engine->state().playingReference) << "written on the main thread only";
  world.mainQueue->runAll();
  EXPECT_FALSE(engine->state().playingReference);
}

TEST_F(ReferenceTone, PressingAgainRestartsItAndMovesTheSuppression) {
  engine->playReference();
  world.clock->time += std::chrono::milliseconds(500);
  engine->setLockedStringIndex(0);
  expectPressPlays(targetFrequency(40, 440.0));
  EXPECT_TRUE(engine->state().playingReference);

  // The end of the tone that was cut off clears the flag while the new one sounds, because the flag
  // is not a count. The suppression lasts until its own end.
  endTone(0);
  EXPECT_FALSE(engine->state().playingReference);
  world.clock->time += std::chrono::milliseconds(1350) - std::chrono::nanoseconds(1);
  hear(110.0);
  EXPECT_FALSE(engine->state().heard);
  world.clock->time += std::chrono::nanoseconds(1);
  hear(110.0);
  EXPECT_TRUE(engine->state().heard);
}

TEST_F(ReferenceTone, AnEndReportedAfterTheEngineIsGoneChangesNothing) {
  engine->playReference();
  engine.reset();
  endTone(0);
  EXPECT_EQ(world.mainQueue->runAll(), 0U);
}

}  // namespace
}  // namespace corvane
