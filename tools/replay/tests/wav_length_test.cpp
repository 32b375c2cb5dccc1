#include "tools/replay/wav_length.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>

namespace corvane::replay {
namespace {

std::string chunk(const std::string& id, std::uint32_t length, const std::string& body) {
  std::string bytes = id;
  for (int shift = 0; shift < 32; shift += 8) {
    bytes += static_cast<char>(static_cast<unsigned char>(length >> shift));
  }
  return bytes + body;
}

bool cutShort(const std::string& chunks) {
  std::stringstream file(chunk("RIFF", 0, "WAVE") + chunks);
  return isCutShort(file);
}

const std::string format = chunk("fmt ", 16, std::string(16, '\0'));

TEST(WavLength, AFileThatEndsBeforeItsSamplesIsCutShort) {
  EXPECT_TRUE(cutShort(format + chunk("data", 4, "abc")));
  EXPECT_TRUE(cutShort(format));
  EXPECT_TRUE(cutShort(format + "dat"));
  EXPECT_TRUE(cutShort(chunk("fmt ", 16, "short")));
  EXPECT_TRUE(cutShort(""));
}

TEST(WavLength, AWholeFileOrALengthLeftOpenIsNotCutShort) {
  EXPECT_FALSE(cutShort(format + chunk("data", 4, "abcd")));
  EXPECT_FALSE(cutShort(format + chunk("data", 4, "abcd") + chunk("LIST", 2, "xy")));
  EXPECT_FALSE(cutShort(chunk("note", 3, "abc") + '\0' + format + chunk("data", 4, "abcd")))
      << "a chunk of odd length is padded";
  EXPECT_FALSE(cutShort(format + chunk("data", 0xFFFFFFFF, "abc")));
  EXPECT_FALSE(cutShort(format + chunk("data", 0, "abc")));
}

TEST(WavLength, SaysNothingAboutOtherFiles) {
  for (const std::string& other : {chunk("RIFF", 0, "WEBP") + chunk("VP8 ", 100, "short"),
                                   std::string("This is a letter to a friend."), std::string()}) {
    std::stringstream file(other);
    EXPECT_FALSE(isCutShort(file)) << other;
  }
}

}  // namespace
}  // namespace corvane::replay
