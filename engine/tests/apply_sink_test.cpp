// SPDX-License-Identifier: MIT
#include "engine/tests/engine_fixture.h"
#include "tests/support/allocation_count.h"

namespace corvane {
namespace {

class ApplySinkTest : public EngineTest {
 protected:
  const PitchDetector::Reading a2{110.0, 0.99, 0.05F};
};

TEST_F(ApplySinkTest, AppliesOnTheMainThreadInTheOrderOfDelivery) {
  sink->deliver(a2);
  sink->deliver(PitchDetector::Reading{220.0, 0.99, 0.05F});
  EXPECT_FALSE(engine->state().heard);
  EXPECT_EQ(world.mainQueue->runAll(), 2U);
  EXPECT_EQ(engine->state().frequency, 220.0);
  EXPECT_TRUE(engine->state().heard);
  hear(std::nullopt);
  EXPECT_FALSE(engine->state().heard) << "an absent reading is passed on";
}

TEST_F(ApplySinkTest, ReleasingTheEngineWhileAResultIsInFlightAppliesNothing) {
  int notifications = 0;
  const auto observation = engine->observe([&](auto&, auto&) { ++notifications; });
  const std::weak_ptr<TunerEngine> released = engine;
  sink->deliver(a2);
  engine.reset();
  EXPECT_TRUE(released.expired());
  sink->deliver(std::nullopt);
  EXPECT_EQ(world.mainQueue->runAll(), 2U);
  EXPECT_EQ(notifications, 0);
}

/// Holds one job, without allocating.
class OneJobQueue final : public MainQueue {
 public:
  void async(Job job) override { waiting = std::move(job); }

  Job waiting;
};

TEST_F(ApplySinkTest, DeliveringAllocatesNothing) {
  const auto queue = std::make_shared<OneJobQueue>();
  const ApplySink delivering(engine, queue);
  const std::size_t before = allocationsOfThisThread();
  delivering.deliver(a2);
  delivering.deliver(std::nullopt);
  delivering.deliver(a2);
  EXPECT_EQ(allocationsOfThisThread() - before, 0U);
  queue->waiting();
  EXPECT_EQ(engine->state().frequency, 110.0);
}

}  // namespace
}  // namespace corvane
