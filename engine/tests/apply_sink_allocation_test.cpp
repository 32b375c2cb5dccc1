#include "engine/apply_sink.h"
#include "engine/tests/engine_fixture.h"
#include "tests/support/allocation_count.h"

namespace corvane {
namespace {

class ApplySinkAllocation : public EngineTest {};

/// As much room as a job needs, and no more.
class OneJobQueue final : public MainQueue {
 public:
  void async(Job job) override { waiting = std::move(job); }

  Job waiting;
};

TEST_F(ApplySinkAllocation, HandingAReadingOnAllocatesNothing) {
  const auto queue = std::make_shared<OneJobQueue>();
  const ApplySink handing(engine, queue);
  const PitchDetector::Reading reading{110.0, 0.99, 0.05F};
  const std::size_t before = allocationsOfThisThread();
  handing.deliver(reading);
  handing.deliver(std::nullopt);
  handing.deliver(reading);
  EXPECT_EQ(allocationsOfThisThread() - before, 0U);
  queue->waiting();
  EXPECT_EQ(engine->frequency(), 110.0);
}

}  // namespace
}  // namespace corvane
