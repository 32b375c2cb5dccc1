// SPDX-License-Identifier: MIT
#include "platform/pulse/server_facts.h"

#include <gtest/gtest.h>

#include <memory>

namespace corvane {
namespace {

/// Sources as a server describes them; `defaultSource` is the default.
class ServerSurveyTest : public testing::Test {
 protected:
  enum class Monitor { no, ofASink, byItsClass };

  void begin(const char* defaultSource) {
    pa_server_info server{};
    server.default_source_name = defaultSource;
    server.sample_spec = {PA_SAMPLE_FLOAT32LE, 48000, 2};
    survey.emplace(server);
  }
  void add(const char* name, Monitor monitor = Monitor::no, std::uint8_t channels = 1,
           std::uint32_t rate = 44100) {
    const std::unique_ptr<pa_proplist, decltype(&pa_proplist_free)> properties(pa_proplist_new(),
                                                                               pa_proplist_free);
    if (monitor == Monitor::byItsClass) {
      pa_proplist_sets(properties.get(), PA_PROP_DEVICE_CLASS, "monitor");
    }
    pa_source_info source{};
    source.name = name;
    source.sample_spec = {PA_SAMPLE_S16LE, rate, channels};
    pa_channel_map_init_mono(&source.channel_map);
    source.monitor_of_sink = monitor == Monitor::ofASink ? 0 : PA_INVALID_INDEX;
    source.proplist = properties.get();
    survey->add(source);
  }
  void expectFormats(const AudioFormat& device, const AudioFormat& server) {
    EXPECT_EQ(survey->facts().device, device);
    EXPECT_EQ(survey->facts().server, server);
  }

  static constexpr AudioFormat theirs{48000.0, 2};
  std::optional<ServerSurvey> survey;
};

TEST_F(ServerSurveyTest, DefaultSourceGivesTheFormat) {
  begin("mic");
  add("other", Monitor::no, 2);
  add("mic");
  expectFormats({44100.0, 1}, theirs);
  EXPECT_EQ(survey->facts().deviceOrder.map[0], PA_CHANNEL_POSITION_MONO);
}

TEST_F(ServerSurveyTest, MonitorsAloneGiveNoFormat) {
  for (const Monitor monitor : {Monitor::ofASink, Monitor::byItsClass}) {
    begin("room.monitor");
    EXPECT_EQ(survey->facts(), ServerFacts{});
    add("room.monitor", monitor);
    EXPECT_EQ(survey->facts(), ServerFacts{});
  }
}

TEST_F(ServerSurveyTest, MonitorChosenBesideAMicrophoneIsUsed) {
  begin("room.monitor");
  add("room.monitor", Monitor::ofASink);
  add("mic", Monitor::no, 2);
  expectFormats({44100.0, 1}, theirs);
}

TEST_F(ServerSurveyTest, MicrophoneWithoutADefaultIsInconclusive) {
  for (const char* name : {static_cast<const char*>(nullptr), "@DEFAULT_SOURCE@"}) {
    begin(name);
    EXPECT_TRUE(survey->isConclusive());
    add("mic");
    EXPECT_FALSE(survey->isConclusive());
    expectFormats({}, theirs);
  }
  add("@DEFAULT_SOURCE@");
  EXPECT_TRUE(survey->isConclusive());
}

TEST_F(ServerSurveyTest, ARateTooLowForDetectionIsMultiplied) {
  struct Rates {
    std::uint32_t own;
    double asked;
  };
  for (const auto& [own, asked] :
       {Rates{8000, 16000.0}, {8001, 8001.0}, {4000, 16000.0}, {5512, 11024.0}}) {
    begin("mic");
    add("mic", Monitor::no, 1, own);
    expectFormats({asked, 1}, theirs);
  }
}

TEST_F(ServerSurveyTest, InvalidFormatCountsAsNone) {
  begin("mic");
  add("mic", Monitor::no, 0);
  expectFormats({}, theirs);
}

TEST(ServerFacts, ChannelOrderIsCompared) {
  ServerFacts a;
  pa_channel_map_init_stereo(&a.deviceOrder);
  ServerFacts b = a;
  EXPECT_EQ(a, b);
  std::swap(b.deviceOrder.map[0], b.deviceOrder.map[1]);
  EXPECT_FALSE(a == b);
}

}  // namespace
}  // namespace corvane
