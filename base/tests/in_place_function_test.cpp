#include "base/in_place_function.h"

#include <gtest/gtest.h>

#include <memory>

namespace corvane {
namespace {

using Add = InPlaceFunction<int(int), 32>;
using Task = InPlaceFunction<void(), 32>;

TEST(InPlaceFunction, CallsWhatItHolds) {
  const int base = 40;
  const Add add = [&base](int more) { return base + more; };
  EXPECT_EQ(add(2), 42);
}

TEST(InPlaceFunction, HandsOnReferencesAsReferences) {
  const InPlaceFunction<void(int&), 8> increment = [](int& number) { ++number; };
  int number = 1;
  increment(number);
  EXPECT_EQ(number, 2);
}

TEST(InPlaceFunction, HandsOnWhatCanOnlyBeMoved) {
  const InPlaceFunction<int(std::unique_ptr<int>), 8> take = [](std::unique_ptr<int> owned) {
    return *owned;
  };
  EXPECT_EQ(take(std::make_unique<int>(7)), 7);
}

TEST(InPlaceFunction, IsEmptyUntilItIsGivenSomething) {
  EXPECT_FALSE(Task());
  EXPECT_FALSE(Task(nullptr));
  EXPECT_TRUE(Task([] {}));
}

TEST(InPlaceFunction, ACopyHasAStateOfItsOwn) {
  const Add first = [sum = 0](int more) mutable { return sum += more; };
  EXPECT_EQ(first(1), 1);
  const Add second = first;
  EXPECT_EQ(first(10), 11);
  EXPECT_EQ(second(100), 101);
}

TEST(InPlaceFunction, AMoveLeavesNothingBehind) {
  const auto token = std::make_shared<int>(0);
  Task first = [token] { ++*token; };
  EXPECT_EQ(token.use_count(), 2);
  const Task second = std::move(first);
  EXPECT_EQ(token.use_count(), 2);
  EXPECT_FALSE(first);
  second();
  EXPECT_EQ(*token, 1);
}

TEST(InPlaceFunction, GivesBackWhatItHoldsWhenItEndsOrIsGivenSomethingElse) {
  const auto token = std::make_shared<int>(0);
  {
    Task run = [token] {};
    Task copy = run;
    EXPECT_EQ(token.use_count(), 3);
    copy = nullptr;
    EXPECT_EQ(token.use_count(), 2);
    run = [] {};
    EXPECT_EQ(token.use_count(), 1);
    run = [token] {};
    copy = run;
    EXPECT_EQ(token.use_count(), 3);
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

TEST(InPlaceFunction, WhatItGivesBackMayUseIt) {
  Task task;
  bool sawTheNext = false;
  task = [last = std::shared_ptr<void>(nullptr, [&](void*) { sawTheNext = bool{task}; })] {};
  int calls = 0;
  task = [&calls] { ++calls; };
  EXPECT_TRUE(sawTheNext);
  task();
  EXPECT_EQ(calls, 1);
}

TEST(InPlaceFunctionDeathTest, CallingAnEmptyOneStopsTheProgram) {
  EXPECT_DEATH(Task()(), "broken invariant");
}

}  // namespace
}  // namespace corvane
