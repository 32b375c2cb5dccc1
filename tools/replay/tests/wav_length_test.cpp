// SPDX-License-Identifier: MIT
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

bool truncated(const std::string& chunks) {
  std::stringstream file(chunk("RIFF", 0, "WAVE") + chunks);
  return isTruncated(file);
}

const std::string format = chunk("fmt ", 16, std::string(16, '\0'));

TEST(WavLength, FileThatEndsBeforeItsSamplesIsTruncated) {
  EXPECT_TRUE(truncated(format + chunk("data", 4, "abc")));
  EXPECT_TRUE(truncated(format));
  EXPECT_TRUE(truncated(format + "dat"));
  EXPECT_TRUE(truncated(chunk("fmt ", 16, "short")));
  EXPECT_TRUE(truncated(""));
}

TEST(WavLength, WholeFileOrOpenLengthIsNotTruncated) {
  EXPECT_FALSE(truncated(format + chunk("data", 4, "abcd")));
  EXPECT_FALSE(truncated(format + chunk("data", 4, "abcd") + chunk("LIST", 2, "xy")));
  EXPECT_FALSE(truncated(chunk("note", 3, "abc") + '\0' + format + chunk("data", 4, "abcd")))
      << "a chunk of odd length is padded";
  EXPECT_FALSE(truncated(format + chunk("data", 0xFFFFFFFF, "abc")));
  EXPECT_FALSE(truncated(format + chunk("data", 0, "abc")));
}

TEST(WavLength, IgnoresOtherFormats) {
  for (const std::string& other : {chunk("RIFF", 0, "WEBP") + chunk("VP8 ", 100, "short"),
                                   std::string("This is a letter to a friend."), std::string()}) {
    std::stringstream file(other);
    EXPECT_FALSE(isTruncated(file)) << other;
  }
}

}  // namespace
}  // namespace corvane::replay
