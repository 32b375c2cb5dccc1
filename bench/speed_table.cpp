// SPDX-License-Identifier: MIT
#include "bench/speed_table.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace corvane {

SpeedTable::SpeedTable(std::vector<Row> all, Row arithmetic)
    : rows(std::move(all)), peak(std::move(arithmetic)) {}

void SpeedTable::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration) continue;
    seconds[run.run_name.function_name].push_back(run.cpu_accumulated_time /
                                                  static_cast<double>(run.iterations));
  }
}

SpeedTable::Times SpeedTable::timesOf(const Row& row) const {
  std::vector<double> sorted = seconds.at(row.benchmark);
  std::ranges::sort(sorted);
  const auto count = static_cast<double>(row.count);
  return {sorted.front() / count, sorted[sorted.size() / 2] / count};
}

void SpeedTable::print() const {
  std::printf("%-36s %9s %9s   %s\n", "one block of 8192 samples", "least us", "median us",
              "times as fast as the naive loop (by the medians)");
  for (const Row& row : rows) {
    if (has(row.benchmark)) print(row);
  }
  if (!has(peak.benchmark)) return;
  std::printf(
      "\nThe limit: a subtraction, a multiplication and an addition for each product, at the"
      " %.1f\n10^9 operations a second that one core does in the registers of AVX-512.\n",
      1e-9 / timesOf(peak).least);
}

void SpeedTable::print(const Row& row) const {
  const Times times = timesOf(row);
  std::printf("%-36s %9.1f %9.1f", row.benchmark.c_str(), times.least * 1e6, times.median * 1e6);
  if (has(row.naive)) {
    const Times naive = timesOf({row.naive, 1, {}});
    std::printf("   %5.1f (%.1f)", naive.least / times.least, naive.median / times.median);
  }
  if (row.operations > 0.0 && has(peak.benchmark)) {
    const double limit = row.operations * timesOf(peak).least;
    std::printf("   %.2f x the limit of %.1f us", times.least / limit, limit * 1e6);
  }
  std::printf("\n");
}

}  // namespace corvane
