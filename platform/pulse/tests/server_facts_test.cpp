#include "platform/pulse/server_facts.h"

#include <gtest/gtest.h>

#include <memory>

namespace corvane {
namespace {

using Properties = std::unique_ptr<pa_proplist, decltype(&pa_proplist_free)>;

/// A source as a server describes it.
struct Source {
  explicit Source(const char* name) {
    info.name = name;
    info.sample_spec = {PA_SAMPLE_S16LE, 44100, 1};
    pa_channel_map_init_mono(&info.channel_map);
    info.monitor_of_sink = PA_INVALID_INDEX;
    info.proplist = properties.get();
  }

  Properties properties{pa_proplist_new(), pa_proplist_free};
  pa_source_info info{};
};

ServerSurvey surveyOf(const char* defaultSource) {
  pa_server_info server{};
  server.default_source_name = defaultSource;
  server.sample_spec = {PA_SAMPLE_FLOAT32LE, 48000, 2};
  return ServerSurvey(server);
}

TEST(ServerSurvey, TheDefaultSourceTellsItsOwnFormat) {
  auto survey = surveyOf("mic");
  Source other("other");
  other.info.sample_spec.rate = 96000;
  survey.add(other.info);
  survey.add(Source("mic").info);
  EXPECT_EQ(survey.facts().device, (AudioFormat{44100.0, 1}));
  EXPECT_EQ(survey.facts().deviceOrder.map[0], PA_CHANNEL_POSITION_MONO);
  EXPECT_EQ(survey.facts().server, (AudioFormat{48000.0, 2}));
}

TEST(ServerSurvey, WithoutSourcesThereIsNoFormatAtAll) {
  EXPECT_EQ(surveyOf("mic").facts(), ServerFacts{});
}

TEST(ServerSurvey, AMicrophoneThatTheServerHasNotMadeItsDefaultYetIsNotConclusive) {
  auto survey = surveyOf("@DEFAULT_SOURCE@");
  EXPECT_TRUE(survey.isConclusive());
  survey.add(Source("mic").info);
  EXPECT_FALSE(survey.isConclusive());
  EXPECT_EQ(survey.facts().device, AudioFormat{});
  survey.add(Source("@DEFAULT_SOURCE@").info);
  EXPECT_TRUE(survey.isConclusive());
}

TEST(ServerSurvey, TheMonitorOfASpeakerIsNoMicrophone) {
  auto survey = surveyOf("room.monitor");
  Source monitor("room.monitor");
  monitor.info.monitor_of_sink = 0;
  survey.add(monitor.info);
  EXPECT_EQ(survey.facts(), ServerFacts{});
}

TEST(ServerSurvey, ASourceOfClassMonitorIsNoMicrophone) {
  auto survey = surveyOf("room.monitor");
  Source monitor("room.monitor");
  pa_proplist_sets(monitor.properties.get(), PA_PROP_DEVICE_CLASS, "monitor");
  survey.add(monitor.info);
  EXPECT_EQ(survey.facts(), ServerFacts{});
}

TEST(ServerSurvey, AMonitorThatTheUserChoseBesideAMicrophoneIsFollowed) {
  auto survey = surveyOf("room.monitor");
  Source monitor("room.monitor");
  monitor.info.monitor_of_sink = 0;
  survey.add(monitor.info);
  survey.add(Source("mic").info);
  EXPECT_EQ(survey.facts().device, (AudioFormat{44100.0, 1}));
}

TEST(ServerSurvey, AMicrophoneThatIsNotYetTheDefaultLeavesTheServersOwnFormat) {
  for (const char* name : {static_cast<const char*>(nullptr), "@DEFAULT_SOURCE@"}) {
    auto survey = surveyOf(name);
    survey.add(Source("mic").info);
    EXPECT_EQ(survey.facts().device, AudioFormat{});
    EXPECT_EQ(survey.facts().server, (AudioFormat{48000.0, 2}));
  }
}

TEST(ServerSurvey, AnInvalidFormatCountsAsNone) {
  auto survey = surveyOf("mic");
  Source mic("mic");
  mic.info.sample_spec.channels = 0;
  survey.add(mic.info);
  EXPECT_EQ(survey.facts().device, AudioFormat{});
}

TEST(ServerFacts, TheOrderOfTheChannelsIsPartOfTheFacts) {
  ServerFacts a;
  pa_channel_map_init_stereo(&a.deviceOrder);
  ServerFacts b = a;
  EXPECT_EQ(a, b);
  std::swap(b.deviceOrder.map[0], b.deviceOrder.map[1]);
  EXPECT_FALSE(a == b);
}

}  // namespace
}  // namespace corvane
