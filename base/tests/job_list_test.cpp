#include "base/job_list.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "base/in_place_function.h"

namespace corvane {
namespace {

using Task = InPlaceFunction<void(), 32>;

TEST(JobList, GivesJobsInTheOrderInWhichTheyCame) {
  JobList<Task> waiting;
  std::vector<int> ran;
  waiting.add([&ran] { ran.push_back(1); });
  waiting.add([&ran] { ran.push_back(2); });
  waiting.take()();
  waiting.add([&ran] { ran.push_back(3); });
  waiting.take()();
  EXPECT_FALSE(waiting.empty());
  waiting.take()();
  EXPECT_TRUE(waiting.empty());
  EXPECT_EQ(ran, std::vector({1, 2, 3}));
}

TEST(JobList, KeepsNothingOfAJobThatHasLeft) {
  JobList<Task> waiting;
  const auto owned = std::make_shared<int>();
  waiting.add([owned] {});
  waiting.take();
  EXPECT_EQ(owned.use_count(), 1);
}

}  // namespace
}  // namespace corvane
