#include "ui/app/listening_switch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>

#include "tests/support/eventually.h"
#include "ui/tests/engine_on_fakes.h"

namespace corvane {
namespace {

class ListeningSwitchTest : public testing::Test, protected EngineOnFakes {
 protected:
  /// Until the desktop says that it is on the screen.
  static void show(QWindow& window) {
    window.show();
    ASSERT_TRUE(eventually([&] { return window.isExposed(); }));
  }

  /// Gives the window the keyboard, which is one more start.
  static void activate(QWindow& window) {
    window.requestActivate();
    ASSERT_TRUE(eventually([&] { return window.isActive(); }));
  }

  /// Passes the time after which an absence is reported: of two timers the shorter one ends first.
  static void passGrace() {
    bool over = false;
    QTimer::singleShot(grace + std::chrono::milliseconds(1), [&] { over = true; });
    EXPECT_TRUE(eventually([&] { return over; }));
  }

  void plugIn() { world.input->input = {48000.0, 1}; }
  void unplug() { world.input->input = {}; }

  static constexpr std::chrono::milliseconds grace{20};

  QWindow window;
  fakes::FakeMicrophoneWatch watch;
  ListeningSwitch listening{window, engine, watch, grace};
};

TEST_F(ListeningSwitchTest, ListensAndWatchesWhileTheWindowIsShown) {
  EXPECT_FALSE(engine->state().listening || watch.changed);
  for (int time = 0; time < 2; ++time) {
    show(window);
    EXPECT_TRUE(engine->state().listening && watch.changed);
    window.hide();
    EXPECT_FALSE(engine->state().listening || watch.changed);
  }
}

TEST_F(ListeningSwitchTest, StopsInTheBackgroundAndStartsOnReturn) {
  show(window);
  window.showMinimized();
  EXPECT_FALSE(engine->state().listening);
  window.showNormal();
  EXPECT_TRUE(eventually([this] { return engine->state().listening; }));
}

TEST_F(ListeningSwitchTest, GoesOnWhileTheWindowIsInactiveOrResized) {
  show(window);
  activate(window);
  world.input->calls.clear();
  window.showMaximized();
  window.showNormal();
  QWindow other;
  other.show();
  activate(other);
  EXPECT_FALSE(window.isActive());
  EXPECT_TRUE(engine->state().listening);
  EXPECT_TRUE(world.input->calls.empty());
}

TEST_F(ListeningSwitchTest, ShownAndActiveAtOnceStartsTwiceWithoutHarm) {
  show(window);
  const auto calls = world.input->calls;
  activate(window);
  EXPECT_EQ(world.input->calls, calls);
  EXPECT_TRUE(engine->state().listening && world.input->running);
  EXPECT_EQ(engine->state().errorText, std::nullopt);
}

TEST_F(ListeningSwitchTest, RetriesAMissingMicrophoneWhenActivated) {
  unplug();
  show(window);
  plugIn();
  emit window.activeChanged();
  EXPECT_EQ(engine->state().listening, window.isActive());
  activate(window);
  EXPECT_TRUE(engine->state().listening);
}

TEST_F(ListeningSwitchTest, TakesUpAMicrophoneThatIsPluggedInLater) {
  unplug();
  show(window);
  ASSERT_FALSE(engine->state().listening);
  plugIn();
  watch.changed(true);
  EXPECT_TRUE(engine->state().listening);
  EXPECT_EQ(engine->state().errorText, std::nullopt);
}

TEST_F(ListeningSwitchTest, ReportsAMicrophoneThatStaysAway) {
  show(window);
  unplug();
  watch.changed(false);
  EXPECT_EQ(engine->state().errorText, std::nullopt);
  EXPECT_TRUE(eventually([this] { return !engine->state().listening; }));
  EXPECT_EQ(engine->state().errorText, "No microphone is available.");
}

TEST_F(ListeningSwitchTest, ReportsDenialAtOnceWithoutMicrophone) {
  unplug();
  show(window);
  ASSERT_EQ(engine->state().errorText, "No microphone is available.");
  world.permission->permission = RecordPermission::denied;
  watch.changed(false);
  EXPECT_THAT(engine->state().errorText.value_or(""),
              testing::StartsWith("Microphone access is off."));
}

TEST_F(ListeningSwitchTest, IgnoresShortAbsencesAndHiddenWindows) {
  show(window);
  watch.changed(false);
  window.hide();
  show(window);
  world.input->calls.clear();
  passGrace();
  watch.changed(false);
  watch.changed(true);
  passGrace();
  EXPECT_TRUE(engine->state().listening);
  EXPECT_TRUE(world.input->calls.empty());
}

TEST_F(ListeningSwitchTest, RequestsOnceAndStaysStoppedWhenHidden) {
  world.permission->permission = RecordPermission::undetermined;
  show(window);
  activate(window);
  EXPECT_EQ(world.permission->requests.size(), 1U);
  window.hide();
  world.permission->permission = RecordPermission::granted;
  world.permission->requests.at(0)(true);
  world.mainQueue->runAll();
  EXPECT_FALSE(engine->state().listening || world.input->running);
}

TEST_F(ListeningSwitchTest, StartsAtOnceForAVisibleWindow) {
  const auto other =
      TunerEngine::create(world.platform(), PitchCapture::create(std::make_unique<InlineQueue>()));
  QWindow shown;
  show(shown);
  const ListeningSwitch late(shown, other, watch);
  EXPECT_TRUE(other->state().listening);
}

}  // namespace
}  // namespace corvane
