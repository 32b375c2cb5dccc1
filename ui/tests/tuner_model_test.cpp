#include "ui/tuner_model.h"

#include <gtest/gtest.h>

#include "engine/apply_sink.h"
#include "tests/support/fake_platform.h"
#include "ui/tuner_theme.h"

namespace corvane {
namespace {

class TunerModelTest : public testing::Test {
 protected:
  void hear(const std::optional<PitchDetector::Reading>& reading) {
    ApplySink(engine, world.mainQueue).deliver(reading);
    world.mainQueue->runAll();
  }

  fakes::World world;
  std::shared_ptr<TunerEngine> engine =
      TunerEngine::create(world.platform(), PitchCapture::create(std::make_unique<InlineQueue>()));
  TunerModel model{engine};
};

TEST_F(TunerModelTest, ShowsWhatTheEngineHears) {
  hear(PitchDetector::Reading{111.0, 0.99, 0.05F});
  EXPECT_TRUE(model.heard());
  EXPECT_EQ(model.noteLabel(), "A");
  EXPECT_EQ(model.octaveLabel(), "2");
  EXPECT_EQ(model.centsText(), "+15.7 ¢");
  EXPECT_EQ(model.status(), "Sharp");
  EXPECT_EQ(model.needleColor(), TunerTheme::sharp);
  EXPECT_EQ(model.frequencyText(), "111.0 Hz");
  EXPECT_EQ(model.hearingText(), "Hearing A2");
}

TEST_F(TunerModelTest, HasNoHearingTextOnThePiano) {
  engine->setInstrument(Instrument::piano);
  hear(PitchDetector::Reading{440.0, 0.99, 0.05F});
  EXPECT_EQ(model.hearingText(), "");
  EXPECT_EQ(model.status(), "In tune");
}

TEST_F(TunerModelTest, TellsTheScreenOfEveryReading) {
  int changes = 0;
  QObject::connect(&model, &TunerModel::readoutChanged, [&] { ++changes; });
  hear(PitchDetector::Reading{111.0, 0.99, 0.05F});
  EXPECT_GT(changes, 0);
}

TEST_F(TunerModelTest, ShowsAndClearsTheMicrophoneProblem) {
  int changes = 0;
  QObject::connect(&model, &TunerModel::errorTextChanged, [&] { ++changes; });
  world.input->input = {};
  engine->start();
  EXPECT_EQ(model.errorText(), "No microphone is available.");
  world.input->input = {48000.0, 1};
  engine->start();
  EXPECT_EQ(model.errorText(), "");
  EXPECT_GE(changes, 2);
}

}  // namespace
}  // namespace corvane
