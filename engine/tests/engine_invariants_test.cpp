#include <rapidcheck.h>

#include <cmath>

#include "engine/tests/engine_fixture.h"
#include "tunings/tuning_library.h"

namespace corvane {
namespace {

/// An engine that a random user plays with.
struct Session {
  fakes::World world;
  std::shared_ptr<TunerEngine> engine =
      TunerEngine::create(world.platform(), PitchCapture::create(std::make_unique<InlineQueue>()));
  ApplySink sink{engine, world.mainQueue};

  void hear(const std::optional<PitchDetector::Reading>& reading) {
    sink.deliver(reading);
    world.mainQueue->runAll();
  }
};

const std::vector<Tuning>& tunings(const Session& session) {
  return TuningLibrary::tunings(session.engine->instrument());
}

void chooseInstrument(Session& session) {
  session.engine->setInstrument(*rc::gen::elementOf(allInstruments));
}

void chooseTuning(Session& session) {
  const auto& table = tunings(session);
  session.engine->setTuningID(table[*rc::gen::inRange<std::size_t>(0, table.size())].id);
}

void lockOrRelease(Session& session) {
  const auto count = static_cast<std::int64_t>(session.engine->tuning().strings.size());
  const auto index = *rc::gen::inRange<std::int64_t>(-1, count);
  session.engine->setLockedStringIndex(index < 0 ? std::nullopt : std::optional(index));
}

void startOrStop(Session& session) {
  const bool starts = *rc::gen::arbitrary<bool>();
  session.world.input->startSucceeds = *rc::gen::arbitrary<bool>();
  session.world.permission->permission =
      *rc::gen::element(RecordPermission::granted, RecordPermission::denied,
                        RecordPermission::undetermined, RecordPermission::unknown);
  starts ? session.engine->start() : session.engine->stop();
}

void endTones(Session& session) {
  for (const auto& tone : session.world.output->played) tone.ended();
  session.world.output->played.clear();
  session.world.mainQueue->runAll();
}

void letTimePass(Session& session) {
  session.world.clock->time += std::chrono::milliseconds(*rc::gen::inRange(0, 2000));
}

void hearSomething(Session& session) {
  const double frequency = *rc::gen::inRange(2430, 451500) / 100.0;
  const double confidence = *rc::gen::inRange(700, 1001) / 1000.0;
  const auto rms = static_cast<float>(*rc::gen::inRange(0, 1000)) / 1000.0F;
  session.hear(PitchDetector::Reading{frequency, confidence, rms});
}

using Action = void (*)(Session&);
constexpr std::array<Action, 11> actions = {
    chooseInstrument,
    chooseTuning,
    lockOrRelease,
    startOrStop,
    endTones,
    letTimePass,
    hearSomething,
    [](Session& session) { session.hear(std::nullopt); },
    [](Session& session) { session.engine->setA4(*rc::gen::arbitrary<double>()); },
    [](Session& session) { session.engine->setLeftHanded(*rc::gen::arbitrary<bool>()); },
    [](Session& session) { session.engine->playReference(); },
};

void expectPosition(const std::optional<std::int64_t>& position, const Session& session) {
  if (!position) return;
  RC_ASSERT(*position >= 0);
  RC_ASSERT(static_cast<std::size_t>(*position) < session.engine->tuning().strings.size());
}

void expectInvariants(const Session& session) {
  const TunerEngine& engine = *session.engine;
  RC_ASSERT(TuningLibrary::find(engine.instrument(), engine.tuningID()) != nullptr);
  RC_ASSERT(engine.a4() >= 377.0 && engine.a4() <= 560.0);
  RC_ASSERT(engine.signal() >= 0.0 && engine.signal() <= 1.0);
  RC_ASSERT(std::isfinite(engine.cents()));
  RC_ASSERT(engine.heard() || !engine.inTune());
  RC_ASSERT(!engine.inTune() || std::abs(engine.cents()) <= 5.0);
  RC_ASSERT(session.world.input->running || !engine.listening());
  expectPosition(engine.lockedStringIndex(), session);
  expectPosition(engine.highlightedString(), session);
  const auto& stored = session.world.preferences->values;
  RC_ASSERT(stored.at("tuner.tuning") == fakes::MemoryPreferences::Value(engine.tuningID()));
  RC_ASSERT(stored.at("tuner.a4") == fakes::MemoryPreferences::Value(engine.a4()));
}

TEST(EngineInvariants, HoldAfterAnySequenceOfActionsAndReadings) {
  EXPECT_TRUE(rc::check([] {
    Session session;
    const int steps = *rc::gen::inRange(1, 80);
    for (int i = 0; i < steps; ++i) {
      (*rc::gen::elementOf(actions))(session);
      expectInvariants(session);
    }
  }));
}

TEST(EngineInvariants, FrequencyIsTheMedianSinceTheLastJump) {
  EXPECT_TRUE(rc::check([](const std::vector<std::uint8_t>& steps) {
    Session session;
    std::vector<double> run;
    for (const std::uint8_t step : steps) {
      const double raw = 100.0 + step / 16.0;
      if (!run.empty() && std::abs(1200.0 * std::log2(raw / run.back())) > 80.0) run.clear();
      run.push_back(raw);
      if (run.size() > 5) run.erase(run.begin());
      session.hear(PitchDetector::Reading{raw, 0.9, 0.05F});

      std::vector<double> sorted = run;
      std::sort(sorted.begin(), sorted.end());
      RC_ASSERT(session.engine->frequency() == sorted[sorted.size() / 2]);
    }
  }));
}

}  // namespace
}  // namespace corvane
