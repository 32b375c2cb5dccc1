#include "tools/replay/replay.h"

#include <gmock/gmock.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <sstream>

#include "pitch/tests/reference_detector.h"
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

/// As the capture pipeline mixes: the sum of the channels times the reciprocal of their number.
signals::Samples mono(const Channels& channels) {
  signals::Samples mixed(channels.front().size(), 0.0F);
  for (std::size_t i = 0; i < mixed.size(); ++i) {
    for (const auto& channel : channels) mixed[i] += channel[i];
    if (channels.size() > 1) mixed[i] *= 1.0F / static_cast<float>(channels.size());
  }
  return mixed;
}

template <class Number>
Number parse(const std::string& text) {
  Number number{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  EXPECT_EQ(result.ptr, text.data() + text.size()) << text;
  return number;
}

/// Reads the detector's columns back and compares them with the reference, block by block.
void expectReference(const std::vector<Row>& rows, int rate, const Channels& channels) {
  const signals::Samples samples = mono(channels);
  const std::size_t blocks = samples.size() < 8192 ? 0 : (samples.size() - 8192) / 4096 + 1;
  ASSERT_EQ(rows.size(), blocks + 1);
  for (std::size_t block = 0; block < blocks; ++block) {
    const auto first = samples.begin() + static_cast<std::ptrdiff_t>(block * 4096);
    const auto expected = reference::detect({first, first + 8192}, rate, 27.0, 4300.0, 0.15);
    const Row& row = rows[block + 1];
    EXPECT_EQ(row[0], std::to_string(block * 4096));
    if (!expected) {
      EXPECT_THAT(Row(row.begin() + 1, row.begin() + 4), ElementsAre("-", "-", "-"));
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

TEST_F(Replay, BeginsWithALineThatNamesTheColumns) {
  const auto rows = rowsOf(recordings.write("a.wav", 48000, {signals::sine(110, 48000, 8192)}));
  EXPECT_THAT(rows.front(), ElementsAre("sample", "frequency", "confidence", "rms", "heard", "note",
                                        "octave", "cents", "string", "status"));
}

TEST_F(Replay, ShowsWhatTheTunerShows) {
  const auto rows = rowsOf(recordings.write("a.wav", 48000, {signals::sine(110, 48000, 8192)}));
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_THAT(Row(rows[1].begin() + 4, rows[1].end()),
              ElementsAre("yes", "A", "2", testing::_, "1", "In tune"));
}

TEST_F(Replay, ADashStandsForWhatIsNotThere) {
  const auto rows = rowsOf(recordings.write("a.wav", 48000, {signals::constant(0, 8192)}));
  EXPECT_THAT(rows.at(1), ElementsAre("0", "-", "-", "-", "no", "—", "-", "0", "-", "Play a note"));
}

TEST_F(Replay, DetectorColumnsEqualTheReferenceAtAnyRateAndChannelCount) {
  for (const int rate : {8000, 11025, 44100, 48000, 96000, 192000}) {
    for (const std::size_t count : {1U, 2U, 3U, 8U}) {
      Channels channels;
      for (std::size_t c = 0; c < count; ++c) {
        channels.push_back(
            signals::sum(signals::pluckedString(signals::pluckedDelay(147.0, rate), 30000, 5),
                         signals::noise(30000, static_cast<std::uint32_t>(c), 0.02)));
      }
      expectReference(rowsOf(recordings.write("a.wav", rate, channels)), rate, channels);
    }
  }
}

TEST_F(Replay, DetectorColumnsEqualTheReferenceWhenPitchesComeAndGo) {
  signals::Samples samples = signals::chirp(40, 2000, 44100, 60000);
  samples.insert(samples.end(), 20000, 0.0F);
  const auto last = signals::sine(82.41, 44100, 25000, {0.004, 0.0});
  samples.insert(samples.end(), last.begin(), last.end());
  expectReference(rowsOf(recordings.write("a.wav", 44100, {samples})), 44100, {samples});
}

TEST_F(Replay, SamplesThatAreNotNumbersAreCarriedThrough) {
  auto samples = signals::sine(220, 48000, 20000);
  samples[9000] = std::numeric_limits<float>::quiet_NaN();
  samples[15000] = std::numeric_limits<float>::infinity();
  expectReference(rowsOf(recordings.write("a.wav", 48000, {samples})), 48000, {samples});
}

TEST_F(Replay, ReadsEverySampleFormatOfWavFiles) {
  const auto samples = signals::sine(110, 48000, 12288);
  for (const int subtype : {SF_FORMAT_PCM_U8, SF_FORMAT_PCM_16, SF_FORMAT_PCM_24, SF_FORMAT_PCM_32,
                            SF_FORMAT_DOUBLE, SF_FORMAT_ULAW}) {
    const auto rows = rowsOf(recordings.write("a.wav", 48000, {samples}, SF_FORMAT_WAV | subtype));
    ASSERT_EQ(rows.size(), 3U) << subtype;
    // Eight bits of level leave the period well within a cent, 0.06 Hz.
    EXPECT_NEAR(parse<double>(rows[2][1]), 110.0, 0.06) << subtype;
  }
}

TEST_F(Replay, ARecordingShorterThanABlockGivesTheHeaderAlone) {
  EXPECT_EQ(rowsOf(recordings.write("a.wav", 48000, {signals::sine(110, 48000, 8191)})).size(), 1U);
}

TEST_F(Replay, EverySelectionOfTheUserIsApplied) {
  Options options;
  options.file = recordings.write("a.wav", 48000, {signals::sine(50.0, 48000, 8192)});
  options.instrument = Instrument::bass;
  options.tuning = "b5-standard";
  options.a4 = 400.0;
  options.string = 0;
  const Row row = rowsOf(options).at(1);
  EXPECT_EQ(row[5], "B");
  EXPECT_EQ(row[6], "0");
  EXPECT_EQ(row[8], "0");
  // 50 Hz is the A1 of an A4 of 400 Hz, ten semitones above B0; the sine is measured to 0.01 Hz.
  EXPECT_NEAR(parse<double>(row[7]), 1000.0, 0.4);
}

TEST_F(Replay, ThePianoHasNoString) {
  Options options;
  options.file = recordings.write("a.wav", 48000, {signals::sine(440.0, 48000, 8192)});
  options.instrument = Instrument::piano;
  const Row row = rowsOf(options).at(1);
  EXPECT_EQ(row[5], "A");
  EXPECT_EQ(row[8], "-");
}

}  // namespace
}  // namespace corvane::replay
