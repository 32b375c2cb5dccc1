// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <sstream>

#include "tunings/tests/expected_tables.h"
#include "tunings/tuning_library.h"

namespace corvane {
namespace {

std::string written(const std::vector<GuitarString>& strings) {
  std::ostringstream text;
  for (const GuitarString& string : strings) {
    text << (text.tellp() == 0 ? "" : ", ") << string.midi << ' ' << string.label;
  }
  return strings.empty() ? "no strings" : text.str();
}

/// The table in the format of the expected ones.
std::string written(const std::vector<Tuning>& table) {
  std::ostringstream text;
  text << '\n';
  for (const Tuning& tuning : table) {
    text << tuning.id << " | " << tuning.name << " | " << tuning.group << " | " << tuning.detail
         << " | " << written(tuning.strings) << '\n';
  }
  return text.str();
}

TEST(TuningTables, Hold23And9And1ExactTunings) {
  EXPECT_EQ(TuningLibrary::guitar().size(), 23U);
  EXPECT_EQ(TuningLibrary::bass().size(), 9U);
  EXPECT_EQ(TuningLibrary::piano().size(), 1U);
  EXPECT_EQ(written(TuningLibrary::guitar()), expected::guitar);
  EXPECT_EQ(written(TuningLibrary::bass()), expected::bass);
  EXPECT_EQ(written(TuningLibrary::piano()), expected::piano);
}

TEST(TuningTables, ThePianoTuningHasNoStrings) {
  EXPECT_TRUE(TuningLibrary::piano().front().strings.empty());
}

TEST(TuningTables, FlatsAndSharpsAreTheUnicodeSignsInUtf8) {
  const Tuning& halfDown = TuningLibrary::resolve(Instrument::guitar, "g6-half");
  EXPECT_EQ(halfDown.strings[0].label, "E\xE2\x99\xAD") << "U+266D";
  EXPECT_EQ(halfDown.detail.substr(0, 5), "E\xE2\x99\xAD ");
  const Tuning& dropB = TuningLibrary::resolve(Instrument::guitar, "g6-dropb");
  EXPECT_EQ(dropB.strings[1].label, "F\xE2\x99\xAF") << "U+266F";
  EXPECT_EQ(dropB.detail.substr(0, 6), "B F\xE2\x99\xAF");
}

}  // namespace
}  // namespace corvane
