// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/pulse/tests/coded_signal.h"

namespace corvane {
namespace {

struct Part {
  std::uint32_t room;  ///< 0 for silence
  std::uint32_t first;
  std::uint32_t last;  ///< number of a frame
};
struct Next {
  std::vector<Part> parts;
  bool joined = false;  ///< expected result
  bool afterGap = false;
  double sampleRate = 48000.0;
};
struct Stretch {
  const char* name;
  std::vector<Next> buffers;
};

constexpr bool joined = true;
constexpr bool gap = true;

const Stretch stretches[] = {
    {"None in one stretch of sound", {{{{1, 1, 10}}}, {{{1, 11, 20}}}, {{{1, 21, 25}, {0, 1, 5}}}}},
    {"None where the numbers begin again", {{{{1, 65530, 65535}, {1, 1, 10}}}}},
    {"Where two rooms meet in a buffer", {{{{1, 1, 10}, {2, 11, 20}}, joined}}},
    {"Where two rooms meet between buffers", {{{{1, 1, 10}}}, {{{2, 11, 20}}, joined}}},
    {"Where two moments meet",
     {{{{1, 1, 10}, {1, 12, 20}}, joined}, {{{1, 21, 30}}}, {{{1, 21, 30}}, joined}}},
    {"Where silence hides that time is missing",
     {{{{1, 1, 10}, {0, 1, 5}}}, {{{0, 1, 10}}}, {{{0, 1, 5}, {1, 1000, 1010}}, joined}}},
    {"None where the sound went on unheard, or waited",
     {{{{1, 1, 10}, {0, 1, 5}, {1, 16, 20}}}, {{{0, 1, 5}, {1, 21, 30}}}}},
    {"None where a buffer comes after a gap",
     {{{{1, 1, 10}}}, {{{2, 500, 510}}, !joined, gap}, {{{1, 11, 20}}, !joined, gap, 44100.0}}},
    {"Within a buffer that comes after a gap",
     {{{{1, 1, 10}}}, {{{1, 11, 15}, {2, 16, 20}}, joined, gap}}},
    {"Where another format comes without a gap",
     {{{{0, 1, 10}}}, {{{0, 1, 10}}, joined, !gap, 44100.0}}},
};

TEST(Joints, AreFoundWhereSoundIsNotContinuous) {
  for (const Stretch& stretch : stretches) {
    SCOPED_TRACE(stretch.name);
    Joints joints;
    for (const Next& next : stretch.buffers) {
      std::vector<float> samples;
      for (const Part& part : next.parts) {
        for (std::uint32_t number = part.first; number <= part.last; ++number) {
          samples.push_back(part.room == 0 ? 0.0F : coded_signal::sample({part.room, number}, 0));
        }
      }
      const float* const channel = samples.data();
      const AudioBuffer buffer{.channels = &channel,
                               .frameLength = static_cast<std::uint32_t>(samples.size()),
                               .channelCount = 1,
                               .sampleRate = next.sampleRate,
                               .afterGap = next.afterGap};
      EXPECT_EQ(!joints.in(RecordedBuffer(buffer)).empty(), next.joined);
    }
  }
}

}  // namespace
}  // namespace corvane
