// SPDX-License-Identifier: MIT
#include "platform/back_off.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace std::chrono_literals;

TEST(BackOff, DoublesEachPauseUpToTheLongest) {
  BackOff pauses(200ms, 1000ms);
  EXPECT_EQ(pauses.next(), 200ms);
  EXPECT_EQ(pauses.next(), 400ms);
  EXPECT_EQ(pauses.next(), 800ms);
  EXPECT_EQ(pauses.next(), 1000ms);
  EXPECT_EQ(pauses.next(), 1000ms);
}

TEST(BackOff, BeginsWithTheShortestPauseAfterAReset) {
  BackOff pauses(200ms, 1000ms);
  pauses.next();
  pauses.next();
  pauses.reset();
  EXPECT_EQ(pauses.next(), 200ms);
  EXPECT_EQ(pauses.next(), 400ms);
}

}  // namespace
}  // namespace corvane
