// SPDX-License-Identifier: MIT
#include "ui/tests/fake_tuner.h"

#include <utility>

#include "base/require.h"
#include "engine/apply_sink.h"

namespace corvane {
namespace {

std::shared_ptr<TunerEngine> engineIn(const fakes::World& world) {
  return TunerEngine::create(world.platform(),
                             PitchCapture::create(std::make_unique<InlineQueue>()));
}

}  // namespace

FakeTuner::FakeTuner(QObject* parent) : FakeTuner(std::make_shared<fakes::World>(), parent) {}

FakeTuner::FakeTuner(std::shared_ptr<fakes::World> fakes, QObject* parent)
    : FakeTuner(fakes, engineIn(*fakes), parent) {}

FakeTuner::FakeTuner(std::shared_ptr<fakes::World> fakes, std::shared_ptr<TunerEngine> tuner,
                     QObject* parent)
    : TunerModel(tuner, fakes->urlOpener, parent),
      world(std::move(fakes)),
      engine(std::move(tuner)) {}

void FakeTuner::hear(double frequency) {
  ApplySink(engine, world->mainQueue).deliver(PitchDetector::Reading{frequency, 0.99, 0.05F});
  world->mainQueue->runAll();
}

void FakeTuner::hearNothing() {
  ApplySink(engine, world->mainQueue).deliver(std::nullopt);
  world->mainQueue->runAll();
}

void FakeTuner::loseMicrophone() {
  engine->stop();
  world->input->input = {};
  engine->start();
}

void FakeTuner::findMicrophone() {
  world->input->input = {48000.0, 1};
}

void FakeTuner::endTone() {
  require(!world->output->played.empty(), "a tone is playing");
  world->output->played.back().ended();
  world->mainQueue->runAll();
}

int FakeTuner::lockedString() const {
  return static_cast<int>(engine->state().lockedStringIndex.value_or(-1));
}

}  // namespace corvane
