// SPDX-License-Identifier: MIT
#include "tools/replay/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "tools/replay/failure.h"

namespace corvane::replay {
namespace {

using testing::Optional;

Options parse(std::vector<const char*> arguments) {
  return parseOptions(arguments);
}

constexpr auto outOfSix = "--string is out of range: this tuning has 6 strings, counted from 0";

std::string complaint(std::vector<const char*> arguments) {
  try {
    parseOptions(arguments);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

TEST(Options, DefaultToAGuitarAt440) {
  const Options options = parse({"a.wav"});
  EXPECT_EQ(options.file, "a.wav");
  EXPECT_EQ(options.instrument, Instrument::guitar);
  EXPECT_EQ(options.tuning, std::nullopt);
  EXPECT_EQ(options.a4, 440.0);
  EXPECT_EQ(options.string, std::nullopt);
}

TEST(Options, MayComeInAnyOrder) {
  const Options options = parse(
      {"--string", "4", "--a4", "415.5", "a.wav", "--tuning", "b5-dropa", "--instrument", "bass"});
  EXPECT_EQ(options.instrument, Instrument::bass);
  EXPECT_THAT(options.tuning, Optional(std::string("b5-dropa")));
  EXPECT_EQ(options.a4, 415.5);
  EXPECT_THAT(options.string, Optional(4));
}

TEST(Options, HelpOverridesOtherArguments) {
  EXPECT_TRUE(parse({"--help"}).help);
  EXPECT_TRUE(parse({"a.wav", "--help", "b.wav"}).help);
}

TEST(Options, RejectUnknownAndInvalidValues) {
  EXPECT_EQ(complaint({"a.wav", "--speed", "2"}), "unknown option '--speed'");
  EXPECT_EQ(complaint({"a.wav", "b.wav"}), "more than one recording");
  EXPECT_EQ(complaint({}), "no recording given");
  EXPECT_EQ(complaint({"a.wav", "--a4"}), "--a4 needs a value");
  EXPECT_EQ(complaint({"a.wav", "--a4", "376.9"}), "--a4 takes 377 to 560 Hz");
  EXPECT_EQ(complaint({"a.wav", "--a4", "nan"}), "--a4 takes 377 to 560 Hz");
  EXPECT_EQ(complaint({"a.wav", "--a4", "440x"}), "--a4 takes a number, not '440x'");
  EXPECT_EQ(complaint({"a.wav", "--instrument", "Bass"}),
            "--instrument takes guitar, bass or piano, not 'Bass'");
  EXPECT_EQ(complaint({"a.wav", "--tuning", "b4-standard"}),
            "the guitar has no tuning 'b4-standard'");
  EXPECT_EQ(complaint({"a.wav", "--string", "6"}), outOfSix);
  EXPECT_EQ(complaint({"a.wav", "--string", "-1"}), outOfSix);
  EXPECT_EQ(complaint({"a.wav", "--instrument", "piano", "--string", "0"}),
            "--string is out of range: this tuning has 0 strings, counted from 0");
}

}  // namespace
}  // namespace corvane::replay
