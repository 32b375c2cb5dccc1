#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace corvane {

/// One measured thing, and what is worth comparing it with.
struct Row {
  std::string benchmark;  ///< its name
  std::size_t count;      ///< of what one iteration does so many times, such as blocks
  std::string naive;      ///< the name of the benchmark that is the same done naively, or empty
  double operations = 0;  ///< of arithmetic in one of them, where the limit is worth telling
};

/// Collects what Google Benchmark measures and prints it as one table: the least and the median of
/// the repetitions, and how often as fast as the naive loop that is. Processor time of the one
/// thread, in microseconds; other work on the machine only ever adds to it, so the least is nearest
/// to what the program takes.
class SpeedTable final : public benchmark::BenchmarkReporter {
 public:
  /// `peak` is the name of the benchmark that does nothing but arithmetic; its count is operations.
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
  std::map<std::string, std::vector<double>> seconds;  ///< an iteration, each repetition
};

}  // namespace corvane
