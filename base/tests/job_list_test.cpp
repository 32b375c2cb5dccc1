// SPDX-License-Identifier: MIT
#include "base/job_list.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "base/in_place_function.h"

namespace corvane {
namespace {

TEST(JobList, ReturnsJobsInOrderAndReleasesThem) {
  JobList<InPlaceFunction<void(), 32>> waiting;
  const auto ran = std::make_shared<std::vector<int>>();
  waiting.add([ran] { ran->push_back(1); });
  waiting.add([ran] { ran->push_back(2); });
  waiting.take()();
  waiting.add([ran] { ran->push_back(3); });
  waiting.take()();
  EXPECT_FALSE(waiting.empty());
  waiting.take()();
  EXPECT_TRUE(waiting.empty());
  EXPECT_EQ(*ran, std::vector({1, 2, 3}));
  EXPECT_EQ(ran.use_count(), 1);
}

}  // namespace
}  // namespace corvane
