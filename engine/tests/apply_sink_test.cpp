#include "engine/apply_sink.h"

#include "engine/tests/engine_fixture.h"

namespace corvane {
namespace {

class ApplySinkTest : public EngineTest {};

TEST_F(ApplySinkTest, AppliesOnTheMainThreadInTheOrderOfDelivery) {
  sink->deliver(PitchDetector::Reading{110.0, 0.99, 0.05F});
  sink->deliver(PitchDetector::Reading{220.0, 0.99, 0.05F});
  EXPECT_FALSE(engine->heard());
  EXPECT_EQ(world.mainQueue->runAll(), 2U);
  EXPECT_EQ(engine->frequency(), 220.0);
}

TEST_F(ApplySinkTest, PassesAnAbsentReadingOn) {
  hear(110.0);
  sink->deliver(std::nullopt);
  world.mainQueue->runAll();
  EXPECT_FALSE(engine->heard());
}

TEST_F(ApplySinkTest, ReleasingTheEngineWhileAResultIsInFlightAppliesNothing) {
  int published = 0;
  const auto observation = engine->observe([&](Field) { ++published; });
  const std::weak_ptr<TunerEngine> released = engine;
  sink->deliver(PitchDetector::Reading{110.0, 0.99, 0.05F});
  engine.reset();
  EXPECT_TRUE(released.expired());
  EXPECT_EQ(world.mainQueue->runAll(), 1U);
  EXPECT_EQ(published, 0);
}

TEST_F(ApplySinkTest, DeliveringAfterTheEngineIsGoneDoesNothing) {
  engine.reset();
  sink->deliver(std::nullopt);
  EXPECT_EQ(world.mainQueue->runAll(), 1U);
}

}  // namespace
}  // namespace corvane
