// SPDX-License-Identifier: MIT
#include "tools/replay/replay.h"

#include <gmock/gmock.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <sstream>

#include "pitch/pitch_capture.h"
#include "tools/replay/failure.h"
#include "tools/replay/tests/recordings.h"

namespace corvane::replay {
namespace {

using testing::ElementsAre;

using Row = std::vector<std::string>;

std::vector<Row> rowsOf(const Options& options) {
  std::stringstream text;
  replay(options, text);
  std::vector<Row> rows;
  for (std::string line; std::getline(text, line);) {
    std::stringstream cells(line);
    rows.emplace_back();
    for (std::string cell; std::getline(cells, cell, '\t');) rows.back().push_back(cell);
  }
  return rows;
}

std::vector<Row> rowsOf(const std::string& file) {
  Options options;
  options.file = file;
  return rowsOf(options);
}

template <class Number>
Number parse(const std::string& text) {
  Number number{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  EXPECT_EQ(result.ptr, text.data() + text.size()) << text;
  return number;
}

/// Expects the detector's columns to equal those of each block of `samples` to the bit.
void expectReadings(const std::vector<Row>& rows, double rate, const signals::Samples& samples) {
  ASSERT_EQ(rows.size(), 1 + (samples.size() - 8192) / 4096 + 1);
  for (std::size_t first = 0; first + 8192 <= samples.size(); first += 4096) {
    const auto expected =
        PitchCapture::detectMusicalPitch(std::span(samples).subspan(first, 8192), rate);
    const Row& row = rows[1 + first / 4096];
    EXPECT_EQ(row[0], std::to_string(first));
    if (!expected) {
      EXPECT_EQ(row[1] + row[2] + row[3], "---");
      continue;
    }
    EXPECT_EQ(parse<double>(row[1]), expected->frequency);
    EXPECT_EQ(parse<double>(row[2]), expected->confidence);
    EXPECT_EQ(parse<float>(row[3]), expected->rms);
  }
}

class Replay : public testing::Test {
 protected:
  Recordings recordings;
};

TEST_F(Replay, PrintsWhatTheTunerShowsWithColumnNames) {
  const auto rows = rowsOf(recordings.write("a.wav", 48000, {signals::sine(110, 48000, 8192)}));
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_THAT(rows[0], ElementsAre("sample", "frequency", "confidence", "rms", "heard", "note",
                                   "octave", "cents", "string", "status"));
  EXPECT_THAT(Row(rows[1].begin() + 4, rows[1].end()),
              ElementsAre("yes", "A", "2", testing::_, "1", "In tune"));
  const auto tooShort = recordings.write("b.wav", 48000, {signals::sine(110, 48000, 8191)});
  EXPECT_EQ(rowsOf(tooShort).size(), 1U);
}

TEST_F(Replay, PrintsADashForAbsentValues) {
  const auto rows = rowsOf(recordings.write("a.wav", 48000, {signals::constant(0, 8192)}));
  EXPECT_THAT(rows.at(1), ElementsAre("0", "-", "-", "-", "no", "—", "-", "0", "-", "Play a note"));
}

TEST_F(Replay, ReadsEveryRateAndChannelCount) {
  for (const int rate : {8000, 11025, 44100, 192000}) {
    const auto samples = signals::pluckedString(signals::pluckedDelay(147.0, rate), 15000, 5);
    for (const std::size_t count : {1U, 2U, 8U}) {
      Channels channels(count, signals::constant(0.0F, 15000));
      channels.back() = samples;
      // Mixing one sound with silence is exact for these counts.
      expectReadings(rowsOf(recordings.write("a.wav", rate, channels)), rate,
                     signals::scaled(samples, 1.0F / static_cast<float>(count)));
    }
  }
}

TEST_F(Replay, ReadsBlocksWithAndWithoutPitch) {
  signals::Samples samples = signals::chirp(40, 2000, 44100, 30000);
  samples[9000] = std::numeric_limits<float>::quiet_NaN();
  samples[15000] = std::numeric_limits<float>::infinity();
  samples.insert(samples.end(), 12000, 0.0F);
  const auto last = signals::sine(82.41, 44100, 13000, {0.004, 0.0});
  samples.insert(samples.end(), last.begin(), last.end());
  expectReadings(rowsOf(recordings.write("a.wav", 44100, {samples})), 44100, samples);
}

TEST_F(Replay, ReadsEverySampleFormatOfWavFiles) {
  const auto samples = signals::sine(110, 48000, 12288);
  for (const int subtype : {SF_FORMAT_PCM_U8, SF_FORMAT_PCM_16, SF_FORMAT_PCM_24, SF_FORMAT_PCM_32,
                            SF_FORMAT_DOUBLE, SF_FORMAT_ULAW}) {
    const auto rows = rowsOf(recordings.write("a.wav", 48000, {samples}, SF_FORMAT_WAV | subtype));
    ASSERT_EQ(rows.size(), 3U) << subtype;
    // With 8-bit samples the period is accurate to well within a cent, 0.06 Hz.
    EXPECT_NEAR(parse<double>(rows[2][1]), 110.0, 0.06) << subtype;
  }
}

TEST_F(Replay, AppliesAllOptions) {
  Options options;
  options.file = recordings.write("a.wav", 48000, {signals::sine(50.0, 48000, 8192)});
  options.instrument = Instrument::bass;
  options.tuning = "b5-standard";
  options.a4 = 400.0;
  options.string = 0;
  const Row bass = rowsOf(options).at(1);
  EXPECT_EQ(bass[5] + bass[6] + bass[8], "B00");
  // 50 Hz is A1 at an A4 of 400 Hz, ten semitones above B0; the sine is measured to 0.01 Hz.
  EXPECT_NEAR(parse<double>(bass[7]), 1000.0, 0.4);
  options.instrument = Instrument::piano;
  options.tuning.reset();
  options.string.reset();
  const Row piano = rowsOf(options).at(1);
  EXPECT_EQ(piano[5] + piano[6] + piano[8], "A1-");
}

}  // namespace
}  // namespace corvane::replay
