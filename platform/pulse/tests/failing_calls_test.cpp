// SPDX-License-Identifier: MIT
#include "platform/pulse/tests/failing_calls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <sstream>

#include "engine/tuner_engine.h"
#include "platform/pulse/pulse_audio_input.h"
#include "platform/pulse/pulse_audio_output.h"
#include "platform/pulse/pulse_connection.h"
#include "platform/pulse/pulse_microphone_permission.h"
#include "platform/pulse/tests/held.h"
#include "platform/pulse/tests/test_clock.h"
#include "tests/support/audio_server.h"
#include "tests/support/fake_platform.h"
#include "tests/support/figure.h"
#include "tests/support/pumped_queue.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;
using failing_calls::Lasting;

/// The tuner composed as in the program, with the test's thread as the main thread.
class Tuner {
 public:
  void start() {
    engine->start();
    pumpUntil([this] { return isSettled(); });
  }
  void stop() { engine->stop(); }
  bool isSettled() const {
    return engine->state().listening || engine->state().errorText.has_value();
  }
  bool hears() {
    return pumpUntil([this] { return engine->state().heard; });
  }
  /// False if the tone is not played or its end not reported.
  bool playsATone() {
    if (!output->start({44100.0, 1})) return false;
    const auto ended = std::make_shared<std::atomic<bool>>(false);
    output->play(std::vector<float>(441, 0.1F), [ended] { *ended = true; });
    return pumpUntil([ended] { return ended->load(); });
  }
  bool pumpUntil(const std::function<bool()>& condition) { return mainQueue->pumpUntil(condition); }

  std::shared_ptr<support::PumpedQueue> mainQueue = std::make_shared<support::PumpedQueue>();
  PulseConnection connection{*mainQueue, clockOfTests()};
  std::shared_ptr<PulseAudioOutput> output = std::make_shared<PulseAudioOutput>(connection);
  std::shared_ptr<TunerEngine> engine = TunerEngine::create(
      {std::make_shared<SteadyClock>(), mainQueue,
       std::make_shared<PulseAudioInput>(connection, *mainQueue), output,
       std::make_shared<PulseMicrophonePermission>(connection, *mainQueue),
       std::make_shared<fakes::MemoryPreferences>(), std::make_shared<fakes::FakeUrlOpener>()});
};

/// A server with a microphone that records an endless string.
class FailingCalls : public testing::Test {
 protected:
  FailingCalls() {
    testClock().run();
    server.addSpeakers("speakers", 44100, 1);
    // At a high rate a block is short.
    server.pactl(
        {"load-module", "module-sine-source", "source_name=string", "rate=96000", "frequency=110"});
    server.setDefaultSource("string");
    Tuner first;  // Loads what every later one needs, before resources are counted.
    first.start();
    first.hears();
  }
  void SetUp() override {
    // The system may still count a thread that was just joined.
    support::waitFor("one thread", [] { return heldByThisProcess().threads == 1; });
  }
  ~FailingCalls() override { failing_calls::heal(); }

  void expectAVerdict(const Tuner& tuner) {
    EXPECT_TRUE(tuner.isSettled());
    if (tuner.engine->state().listening) return;
    EXPECT_THAT(tuner.engine->state().errorText.value_or(""),
                testing::AnyOf("Microphone access is off. Allow Corvane under Settings, Privacy, "
                               "Microphone.",
                               "Tap Allow Microphone so Corvane can hear the note.",
                               "No microphone is available.", "The microphone could not start."));
  }

  void expectNothingIsLeft(const Held& before) {
    support::waitFor("the resources to be released", [&] { return heldByThisProcess() == before; });
    const auto streams = [this](const char* kind) { return server.pactl({"list", "short", kind}); };
    support::waitFor("the server to drop the streams", [&] {
      return streams("source-outputs").empty() && streams("sink-inputs").empty();
    });
  }

  /// Runs `session` once for each of its calls, which fails.
  void failEachCall(Lasting lasting, const std::function<void(Tuner&)>& session) {
    const Held before = heldByThisProcess();
    std::set<std::string> missed = fallibleFunctions();
    std::size_t nth = 0;
    do {
      failing_calls::arm(++nth, lasting);
      ASSERT_NO_FATAL_FAILURE(run(session, before));
      missed.erase(failing_calls::failed());
    } while (!failing_calls::failed().empty());
    figure("libpulse calls that failed in turn", nth - 1);
    // The order of calls differs between runs, so a function may have been missed.
    for (const std::string& function : missed) {
      failing_calls::arm(function, lasting);
      ASSERT_NO_FATAL_FAILURE(run(session, before));
      EXPECT_EQ(failing_calls::failed(), function);
    }
  }

  void run(const std::function<void(Tuner&)>& session, const Held& before) {
    {
      Tuner tuner;
      session(tuner);
      EXPECT_LT(tuner.mainQueue->longestJob(), 100ms);
    }
    failing_calls::heal();
    expectNothingIsLeft(before);
    ASSERT_FALSE(HasFailure()) << "failed call: " << failing_calls::failed();
  }

  /// Except the one called only for a microphone that does not report its format.
  static std::set<std::string> fallibleFunctions() {
    std::set<std::string> functions;
    std::istringstream list(CORVANE_FALLIBLE);
    for (std::string name; std::getline(list, name, ',');) functions.insert(name);
    functions.erase("pa_channel_map_init_extend");
    return functions;
  }

  support::AudioServer server{support::AudioServer::Kind::pulseAudio};
};

TEST_F(FailingCalls, OneThatFailsOnceIsRetried) {
  failEachCall(Lasting::once, [this](Tuner& tuner) {
    tuner.start();
    expectAVerdict(tuner);
    if (!tuner.engine->state().listening) tuner.start();  // As the prompt's button does.
    EXPECT_TRUE(tuner.hears());
    tuner.stop();
    EXPECT_TRUE(tuner.pumpUntil([&] { return tuner.playsATone(); }));
    tuner.start();
    tuner.stop();
  });
}

TEST_F(FailingCalls, OnesThatFailForGoodEndInAMessageOrListening) {
  failEachCall(Lasting::forGood, [this](Tuner& tuner) {
    tuner.start();
    expectAVerdict(tuner);
    tuner.pumpUntil(
        [&] { return tuner.engine->state().heard || !failing_calls::failed().empty(); });
    tuner.playsATone();
    tuner.start();
    expectAVerdict(tuner);
    tuner.stop();
  });
}

TEST_F(FailingCalls, OfTheChannelMapFailsTheStart) {
  support::PumpedQueue mainQueue;
  PulseConnection connection(mainQueue, clockOfTests());
  PulseAudioInput input(connection, mainQueue);
  connection.connect([](PulseConnection::State) {});
  ASSERT_TRUE(mainQueue.pumpUntil([&] { return input.inputFormat() != AudioFormat{}; }));
  failing_calls::arm("pa_channel_map_init_extend", Lasting::once);
  std::optional<bool> started;
  input.installTap(4096, {48000.0, 2}, [](const AudioBuffer&) {});
  input.start([&started](bool success) { started = success; });
  ASSERT_TRUE(mainQueue.pumpUntil([&] { return started.has_value(); }));
  EXPECT_EQ(failing_calls::failed(), "pa_channel_map_init_extend");
  EXPECT_EQ(started, false);
}

}  // namespace
}  // namespace corvane
