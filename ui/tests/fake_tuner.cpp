#include "ui/tests/fake_tuner.h"

#include <array>
#include <utility>

#include "base/require.h"
#include "engine/apply_sink.h"

namespace corvane {
namespace {

constexpr std::array permissionNames = {"undetermined", "denied", "granted", "unknown"};

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
    : TunerModel(tuner, fakes->permission, fakes->urlOpener, parent),
      world(std::move(fakes)),
      engine(std::move(tuner)) {}

void FakeTuner::hear(double frequency, double confidence, double rms) {
  ApplySink(engine, world->mainQueue)
      .deliver(PitchDetector::Reading{frequency, confidence, static_cast<float>(rms)});
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

double FakeTuner::toneFrequency() const {
  if (world->output->played.empty()) return 0.0;
  const std::vector<float>& samples = world->output->played.back().samples;
  // Once a period the tone rises through zero; the crossings are interpolated between samples.
  double first = 0.0;
  double last = 0.0;
  int periods = -1;
  for (std::size_t i = 1; i < samples.size(); ++i) {
    const double before = samples[i - 1];
    const double after = samples[i];
    if (before >= 0.0 || after < 0.0) continue;
    last = static_cast<double>(i) - after / (after - before);
    if (++periods == 0) first = last;
  }
  return periods > 0 ? periods * world->output->formats.back().sampleRate / (last - first) : 0.0;
}

QString FakeTuner::permission() const {
  return permissionNames[static_cast<std::size_t>(world->permission->permission)];
}

void FakeTuner::setPermission(const QString& name) {
  const auto found = std::ranges::find(permissionNames, name.toStdString());
  require(found != permissionNames.end(), "a permission is one of four");
  world->permission->permission = static_cast<RecordPermission>(found - permissionNames.begin());
}

QStringList FakeTuner::opened() const {
  QStringList addresses;
  for (const std::string& address : world->urlOpener->opened) {
    addresses.push_back(QString::fromStdString(address));
  }
  return addresses;
}

int FakeTuner::lockedString() const {
  return static_cast<int>(engine->lockedStringIndex().value_or(-1));
}

}  // namespace corvane
