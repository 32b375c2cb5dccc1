// SPDX-License-Identifier: MIT
// Each test runs in its own process, so that it makes the first use of the tables.

#include <gtest/gtest.h>

#include <latch>
#include <thread>

#include "tests/support/allocation_count.h"
#include "tunings/tuning_library.h"

namespace corvane {
namespace {

class TuningLibraryFirstUseDeathTest : public testing::Test {
 protected:
  TuningLibraryFirstUseDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

[[noreturn]] void finish(bool asExpected) {
  std::exit(asExpected ? 0 : 1);
}

/// Whether the first use of each table, in this order, allocates and the second does not.
bool eachIsBuiltAtItsFirstUse(std::initializer_list<Instrument> order) {
  for (const Instrument instrument : order) {
    const std::size_t before = allocationsOfThisThread();
    TuningLibrary::tunings(instrument);
    const std::size_t built = allocationsOfThisThread();
    TuningLibrary::tunings(instrument);
    if (built == before || allocationsOfThisThread() != built) return false;
  }
  return true;
}

TEST_F(TuningLibraryFirstUseDeathTest, BuildsOnlyTheUsedTable) {
  using enum Instrument;
  const auto succeeds = testing::ExitedWithCode(0);
  EXPECT_EXIT(finish(eachIsBuiltAtItsFirstUse({guitar, bass, piano})), succeeds, "");
  EXPECT_EXIT(finish(eachIsBuiltAtItsFirstUse({piano, bass, guitar})), succeeds, "");
}

using Tables = std::array<std::vector<Tuning>, 3>;

Tables copyTables() {
  return {TuningLibrary::guitar(), TuningLibrary::bass(), TuningLibrary::piano()};
}

bool manyThreadsSeeTheSameTables() {
  std::latch start(16);
  std::vector<Tables> seen(16);
  {
    std::vector<std::jthread> threads;
    for (Tables& mine : seen) {
      threads.emplace_back([&] {
        start.arrive_and_wait();
        mine = copyTables();
      });
    }
  }
  return seen == std::vector(16, copyTables());
}

TEST_F(TuningLibraryFirstUseDeathTest, ConcurrentThreadsSeeTheSameTables) {
  EXPECT_EXIT(finish(manyThreadsSeeTheSameTables()), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace corvane
