// SPDX-License-Identifier: MIT
// The time of the whole pitch detector, from samples to reading, on every path of this machine, and
// of the naive difference function alone.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "bench/naive_difference.h"
#include "bench/peak_rate.h"
#include "bench/sounds.h"
#include "bench/speed_table.h"
#include "pitch/normalised_difference.h"
#include "pitch/pitch_capture.h"

namespace corvane {
namespace {

constexpr std::size_t window = PitchCapture::blockSamples / 2;
constexpr std::array rates = {44100.0, 48000.0, 96000.0, 192000.0};

std::size_t longestLag(double rate) {
  return std::min(static_cast<std::size_t>(std::ceil(rate / 27.0)), window - 2);
}

std::string title(double rate, const std::string& path, const std::string& what) {
  return std::to_string(std::lround(rate)) + " Hz, " + path + ", " + what;
}

Row benchNaive(double rate) {
  const Row row = {title(rate, "naive", "every lag"), 1, {}};
  benchmark::RegisterBenchmark(row.benchmark.c_str(), [rate](benchmark::State& state) {
    const signals::Samples samples = worstCase().blocks.front();
    std::vector<double> d(longestLag(rate) + 1);
    for ([[maybe_unused]] auto _ : state) {
      naiveDifference(samples, window, d);
      benchmark::DoNotOptimize(d.data());
      benchmark::ClobberMemory();
    }
  });
  return row;
}

Row benchPath(double rate, const DifferencePath& path, const Sounds& sounds, const Row& naive) {
  const Row row = {title(rate, std::string(path.name), sounds.name), sounds.blocks.size(),
                   naive.benchmark};
  benchmark::RegisterBenchmark(row.benchmark.c_str(), [=](benchmark::State& state) {
    NormalisedDifference memory(path);
    for ([[maybe_unused]] auto _ : state) {
      for (const signals::Samples& block : sounds.blocks) {
        auto reading = PitchDetector::detect(block, rate, 27.0, 4300.0, 0.15, memory);
        benchmark::DoNotOptimize(reading);
      }
    }
  });
  return row;
}

std::vector<Row> benchRate(double rate) {
  std::vector<Row> rows = {benchNaive(rate)};
  for (const Sounds& sounds : {worstCase(), guitar(rate), bass(rate)}) {
    for (const DifferencePath& path : differencePaths()) {
      if (!path.runsHere()) continue;
      rows.push_back(benchPath(rate, path, sounds, rows.front()));
      // A subtraction, a multiplication and an addition per product.
      if (path.name == "AVX-512" && sounds.blocks.size() == 1) {
        rows.back().operations = static_cast<double>(3 * window * longestLag(rate));
      }
    }
  }
  return rows;
}

/// Measures nothing without AVX-512.
Row benchPeak() {
  constexpr std::size_t passes = 20000;
  const Row row = {"peak rate, AVX-512", passes * operationsOfAPass, {}};
  if (differencePaths().front().name == "AVX-512" && differencePaths().front().runsHere()) {
    benchmark::RegisterBenchmark(row.benchmark.c_str(), [](benchmark::State& state) {
      for ([[maybe_unused]] auto _ : state) addAndMultiply(passes);
    });
  }
  return row;
}

}  // namespace

int run(int argc, char** argv) {
  for (const DifferencePath& path : differencePaths()) {
    if (!path.runsHere()) {
      std::printf("Not measured: this machine lacks %s.\n", std::string(path.name).c_str());
    }
  }
  std::vector<Row> rows;
  for (const double rate : rates) {
    for (const Row& row : benchRate(rate)) rows.push_back(row);
  }
  SpeedTable table(std::move(rows), benchPeak());
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  const bool measured = benchmark::RunSpecifiedBenchmarks(&table) > 0;
  table.print();
  return measured ? 0 : 1;
}

}  // namespace corvane

int main(int argc, char** argv) {
  return corvane::run(argc, argv);
}
