#include "engine/tests/engine_fixture.h"
#include "engine/tone_buffer.h"

namespace corvane {
namespace {

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
}

TEST_F(ReferenceTone, PlaysTheHighlightedString) {
  hear(off(64, 0.0));
  expectPressPlays(targetFrequency(64, 440.0));
}

TEST_F(ReferenceTone, PlaysTheLockedStringEvenIfAnotherIsHighlighted) {
  hear(off(64, 0.0));
  engine->setLockedStringIndex(0);
  expectPressPlays(targetFrequency(40, 440.0));
}

TEST_F(ReferenceTone, FollowsTheConcertPitch) {
  engine->setA4(415.0);
  expectPressPlays(415.0 / 4.0);
}

TEST_F(ReferenceTone, APianoWithNothingHeardPlaysA4) {
  engine->setInstrument(Instrument::piano);
  engine->setA4(442.0);
  expectPressPlays(442.0);
}

TEST_F(ReferenceTone, APianoThatHearsANote30CentsSharpPlaysThatNoteExactly) {
  engine->setInstrument(Instrument::piano);
  hear(off(70, 30.0));
  expectPressPlays(targetFrequency(70, 440.0));
}

TEST_F(ReferenceTone, APianoThatHearsWhatIsNoNotePlaysA4) {
  engine->setInstrument(Instrument::piano);
  hear(std::numeric_limits<double>::infinity());
  expectPressPlays(440.0);
}

TEST_F(ReferenceTone, IsSetUpOnceAt44100HertzMono) {
  engine->playReference();
  engine->playReference();
  EXPECT_THAT(world.output->formats, testing::ElementsAre(AudioFormat{44100.0, 1}));
}

TEST_F(ReferenceTone, AnOutputThatWasStoppedIsSetUpAgain) {
  engine->playReference();
  world.output->running = false;
  engine->playReference();
  EXPECT_EQ(world.output->formats.size(), 2U);
}

TEST_F(ReferenceTone, AFailedPressLeavesTheTunerListening) {
  world.output->startSucceeds = false;
  EXPECT_TRUE(published([this] { engine->playReference(); }).empty());
  EXPECT_FALSE(engine->playingReference());
  EXPECT_TRUE(world.output->played.empty());
  hear(110.0);
  EXPECT_TRUE(engine->heard());

  world.output->startSucceeds = true;
  engine->playReference();
  EXPECT_TRUE(engine->playingReference());
}

TEST_F(ReferenceTone, IsPlayingFromThePressUntilItsEndIsReported) {
  engine->playReference();
  EXPECT_TRUE(engine->playingReference());
  world.output->played.at(0).ended();
  EXPECT_TRUE(engine->playingReference());  // written on the main thread only
  world.mainQueue->runAll();
  EXPECT_FALSE(engine->playingReference());
}

TEST_F(ReferenceTone, PressingAgainRestartsItAndMovesTheSuppression) {
  engine->playReference();
  world.clock->time += std::chrono::milliseconds(500);
  engine->setLockedStringIndex(0);
  expectPressPlays(targetFrequency(40, 440.0));
  EXPECT_TRUE(engine->playingReference());

  // The end of the tone that was cut off clears the flag while the new one still sounds: the flag
  // is no count. The suppression holds until its own end all the same.
  endTone(0);
  EXPECT_FALSE(engine->playingReference());
  world.clock->time += std::chrono::milliseconds(1349);
  hear(110.0);
  EXPECT_FALSE(engine->heard());
  world.clock->time += std::chrono::milliseconds(1);
  hear(110.0);
  EXPECT_TRUE(engine->heard());
}

TEST_F(ReferenceTone, AnEndReportedAfterTheEngineIsGoneChangesNothing) {
  engine->playReference();
  engine.reset();
  endTone(0);
  EXPECT_EQ(world.mainQueue->runAll(), 0U);
}

using ReferenceToneDeathTest = ReferenceTone;

TEST_F(ReferenceToneDeathTest, ALockedStringOutsideTheTuningStopsTheProgram) {
  engine->setLockedStringIndex(-1);
  EXPECT_DEATH(engine->playReference(), "a chosen string lies in the current tuning");
}

}  // namespace
}  // namespace corvane
