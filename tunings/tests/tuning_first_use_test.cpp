// A program of its own, so that nothing has used the tables before.
#include <gtest/gtest.h>

#include <latch>
#include <thread>

#include "tunings/tuning_library.h"

namespace corvane {
namespace {

/// What one thread saw of the three tables the moment it first asked for them.
struct Seen {
  const void* rows[3];
  std::size_t sizes[3];
  std::string lastId;
};

Seen look() {
  const auto& guitar = TuningLibrary::guitar();
  const auto& bass = TuningLibrary::bass();
  const auto& piano = TuningLibrary::piano();
  return {{guitar.data(), bass.data(), piano.data()},
          {guitar.size(), bass.size(), piano.size()},
          guitar.back().id};
}

TEST(TuningLibraryFirstUse, ByManyThreadsAtOnceShowsEachTheSameFinishedTables) {
  constexpr std::size_t count = 16;
  constexpr std::size_t sizes[] = {23, 9, 1};
  std::latch start(count);
  std::vector<Seen> seen(count);
  std::vector<std::thread> threads;
  for (Seen& mine : seen) {
    threads.emplace_back([&] {
      start.arrive_and_wait();
      mine = look();
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const Seen& each : seen) {
    for (std::size_t table = 0; table < 3; ++table) {
      EXPECT_EQ(each.rows[table], seen[0].rows[table]);
      EXPECT_EQ(each.sizes[table], sizes[table]);
    }
    EXPECT_EQ(each.lastId, "g12-standard");
  }
}

}  // namespace
}  // namespace corvane
