#include "tunings/tuning_library.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(TuningLibrary, EachInstrumentHasItsOwnTable) {
  EXPECT_EQ(&TuningLibrary::tunings(Instrument::guitar), &TuningLibrary::guitar());
  EXPECT_EQ(&TuningLibrary::tunings(Instrument::bass), &TuningLibrary::bass());
  EXPECT_EQ(&TuningLibrary::tunings(Instrument::piano), &TuningLibrary::piano());
}

TEST(TuningLibrary, ATableIsBuiltOnce) {
  const Tuning* first = TuningLibrary::guitar().data();
  EXPECT_EQ(TuningLibrary::guitar().data(), first);
}

TEST(TuningLibrary, ResolvesEveryIdOfAnInstrumentToItsRow) {
  for (const Instrument instrument : allInstruments) {
    for (const Tuning& row : TuningLibrary::tunings(instrument)) {
      EXPECT_EQ(&TuningLibrary::resolve(instrument, row.id), &row) << row.id;
      EXPECT_EQ(TuningLibrary::find(instrument, row.id), &row) << row.id;
    }
  }
}

TEST(TuningLibrary, DropDIsFoundForTheGuitar) {
  const Tuning& dropD = TuningLibrary::resolve(Instrument::guitar, "g6-dropd");
  EXPECT_EQ(dropD.id, "g6-dropd");
  EXPECT_EQ(dropD.name, "Drop D");
}

TEST(TuningLibrary, AnIdOfAnotherInstrumentGivesTheDefaultAndNeverTheForeignRow) {
  EXPECT_EQ(TuningLibrary::resolve(Instrument::bass, "g6-dropd").id, "b4-standard");
  EXPECT_EQ(TuningLibrary::resolve(Instrument::guitar, "b5-standard").id, "g6-standard");
  EXPECT_EQ(TuningLibrary::resolve(Instrument::guitar, "piano-chromatic").id, "g6-standard");
  EXPECT_EQ(TuningLibrary::find(Instrument::bass, "g6-dropd"), nullptr);
}

TEST(TuningLibrary, AnEmptyIdGivesTheDefault) {
  EXPECT_EQ(TuningLibrary::resolve(Instrument::piano, "").id, "piano-chromatic");
  EXPECT_EQ(TuningLibrary::resolve(Instrument::guitar, "").id, "g6-standard");
  EXPECT_EQ(TuningLibrary::resolve(Instrument::bass, "").id, "b4-standard");
  EXPECT_EQ(TuningLibrary::find(Instrument::piano, ""), nullptr);
}

TEST(TuningLibrary, AnIdMustMatchExactly) {
  for (const char* id : {"G6-dropd", "g6-dropD", "g6-drop", "g6-dropd ", " g6-dropd", "Drop D"}) {
    EXPECT_EQ(TuningLibrary::find(Instrument::guitar, id), nullptr) << id;
    EXPECT_EQ(TuningLibrary::resolve(Instrument::guitar, id).id, "g6-standard") << id;
  }
  const std::string_view withNul("g6-dropd\0", 9);
  EXPECT_EQ(TuningLibrary::find(Instrument::guitar, withNul), nullptr);
}

}  // namespace
}  // namespace corvane
