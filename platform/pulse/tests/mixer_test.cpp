#include <gmock/gmock.h>

#include "platform/pulse/tests/joints.h"
#include "platform/pulse/tests/pulse_fixture.h"

namespace corvane {
namespace {

using testing::HasSubstr;
using testing::Not;

using Mixer = PulseTest;

TEST_P(Mixer, ShowsTheProgramByItsNameAndIcon) {
  listenToMicrophone();
  for (const char* list : {"clients", "source-outputs"}) {
    const std::string shown = server.pactl({"list", list});
    EXPECT_THAT(shown, HasSubstr("application.name = \"Corvane\"")) << list;
    EXPECT_THAT(shown, HasSubstr("application.id = \"org.corvane.Corvane\"")) << list;
    EXPECT_THAT(shown, HasSubstr("application.icon_name = \"org.corvane.Corvane\"")) << list;
    EXPECT_THAT(shown, HasSubstr("application.version = \"" CORVANE_VERSION "\"")) << list;
  }
}

TEST_P(Mixer, ShowsTheRecordingAsOneThatWantsThePlainSound) {
  listenToMicrophone();
  const std::string shown = server.pactl({"list", "source-outputs"});
  EXPECT_THAT(shown, HasSubstr("media.name = \"Tuning\""));
  EXPECT_THAT(shown, HasSubstr("media.role = \"production\""));
  EXPECT_THAT(shown, HasSubstr("filter.suppress = \"echo-cancel\""));
}

TEST_P(Mixer, TheVolumeOfTheMicrophoneStaysAsTheUserSetIt) {
  server.addMicrophone("mic", 48000, 2);
  server.pactl({"set-source-volume", "mic", "37%"});
  const std::string before = server.pactl({"get-source-volume", "mic"});
  ASSERT_THAT(before, HasSubstr(" 37%"));
  ASSERT_EQ(client.ask(), true);
  ASSERT_EQ(client.listen(), true);
  EXPECT_TRUE(client.pumpUntil([this] { return client.recording.size() > 1; }));
  client.stop();
  EXPECT_EQ(server.pactl({"get-source-volume", "mic"}), before);
}

TEST_P(Mixer, AnotherDefaultMicrophoneIsFollowedAndNoBufferHoldsBoth) {
  listenToMicrophone();
  server.addMicrophone("other", 48000, 2);
  play("other", 2, {48000.0, 2});
  ASSERT_TRUE(client.hear(2, 2)) << "the new default is not heard";
  Joints joints;
  for (const RecordedBuffer& buffer : client.recording.buffers()) {
    EXPECT_EQ(joints.in(buffer), "");
  }
}

INSTANTIATE_TEST_SUITE_P(OnEitherServer, Mixer, eitherServer(), serverName);

}  // namespace
}  // namespace corvane
