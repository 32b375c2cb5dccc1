// SPDX-License-Identifier: MIT
#include "base/in_place_function.h"

#include <gtest/gtest.h>

#include <memory>

namespace corvane {
namespace {

using Task = InPlaceFunction<void(), 32>;

TEST(InPlaceFunction, ForwardsReferencesAndMoveOnlyValues) {
  const InPlaceFunction<int(int&, std::unique_ptr<int>), 8> add = [](int& sum, auto owned) {
    return sum += *owned;
  };
  int sum = 1;
  EXPECT_EQ(add(sum, std::make_unique<int>(7)), 8);
  EXPECT_EQ(sum, 8);
}

TEST(InPlaceFunction, IsEmptyUntilAssigned) {
  EXPECT_FALSE(Task());
  EXPECT_FALSE(Task(nullptr));
  EXPECT_TRUE(Task([] {}));
}

// A double needs more alignment than a pointer on some 32-bit processors.
TEST(InPlaceFunction, ACopyHasItsOwnState) {
  using Add = InPlaceFunction<double(double), 32>;
  const Add first = [sum = 0.0](double more) mutable { return sum += more; };
  EXPECT_EQ(first(1), 1);
  const Add second = first;
  EXPECT_EQ(first(10), 11);
  EXPECT_EQ(second(100), 101);
}

TEST(InPlaceFunction, DestroysItsCallableWithItselfOrOnAssignment) {
  const auto token = std::make_shared<int>(0);
  {
    Task run = [token] { ++*token; };
    Task copy = run;
    EXPECT_EQ(token.use_count(), 3);
    copy = nullptr;
    EXPECT_EQ(token.use_count(), 2);
    run = [] {};
    EXPECT_EQ(token.use_count(), 1);
    run = [token] { ++*token; };
    const Task moved = std::move(run);
    EXPECT_FALSE(run);
    EXPECT_EQ(token.use_count(), 2);
    moved();
    EXPECT_EQ(*token, 1);
  }
  EXPECT_EQ(token.use_count(), 1);
}

TEST(InPlaceFunction, MayBeAssignedToItself) {
  const auto token = std::make_shared<int>(0);
  Task run = [token] { ++*token; };
  Task& same = run;
  run = same;
  run = std::move(same);
  run();
  EXPECT_EQ(*token, 1);
  EXPECT_EQ(token.use_count(), 2);
}

TEST(InPlaceFunction, ADestroyedCallableMayUseIt) {
  Task task;
  bool sawTheNext = false;
  task = [last = std::shared_ptr<void>(nullptr, [&](void*) { sawTheNext = bool{task}; })] {};
  task = [] {};
  EXPECT_TRUE(sawTheNext);
}

TEST(InPlaceFunctionDeathTest, CallingAnEmptyOneStopsTheProgram) {
  EXPECT_DEATH(Task()(), "broken invariant");
}

}  // namespace
}  // namespace corvane
