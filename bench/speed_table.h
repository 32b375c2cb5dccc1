// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace corvane {

/// A benchmark, and its baselines.
struct Row {
  std::string benchmark;  ///< name
  std::size_t count;      ///< items, such as blocks, per iteration
  std::string naive;      ///< name of the naive benchmark, or empty
  double operations = 0;  ///< arithmetic operations per item if the limit is to be shown
};

/// Prints the results of Google Benchmark as one table: least and median of the repetitions, and
/// the speed relative to the naive loop. Processor time of the thread in microseconds; other load
/// only increases it, so the least is the most accurate.
class SpeedTable final : public benchmark::BenchmarkReporter {
 public:
  /// `peak`: the benchmark of pure arithmetic; its count is operations.
  SpeedTable(std::vector<Row> rows, Row peak);

  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override;

  void print() const;

 private:
  struct Times {
    double least;
    double median;
  };

  bool has(const std::string& benchmark) const { return seconds.contains(benchmark); }
  Times timesOf(const Row& row) const;
  void print(const Row& row) const;

  std::vector<Row> rows;
  Row peak;
  std::map<std::string, std::vector<double>> seconds;  ///< per iteration, for each repetition
};

}  // namespace corvane
