#include "ui/listening_switch.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QGuiApplication>

#include "tests/support/fake_platform.h"

namespace corvane {
namespace {

class ListeningSwitchTest : public testing::Test {
 protected:
  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QGuiApplication app{argc, argv};
  fakes::World world;
  std::shared_ptr<TunerEngine> engine =
      TunerEngine::create(world.platform(), PitchCapture::create(std::make_unique<InlineQueue>()));
  QWindow window;
  fakes::FakeMicrophoneWatch watch;
  ListeningSwitch listening{window, engine, watch, grace};

  static constexpr std::chrono::milliseconds grace{50};

  static void passTime(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
  }
};

TEST_F(ListeningSwitchTest, NothingIsHeardBeforeTheWindowIsShown) {
  EXPECT_FALSE(engine->listening());
}

TEST_F(ListeningSwitchTest, ShowingTheWindowStartsAndHidingItStops) {
  window.show();
  EXPECT_TRUE(engine->listening());
  window.hide();
  EXPECT_FALSE(engine->listening());
  window.show();
  EXPECT_TRUE(engine->listening());
}

TEST_F(ListeningSwitchTest, MinimisingStopsAndRestoringStarts) {
  window.show();
  window.showMinimized();
  EXPECT_FALSE(engine->listening());
  window.showNormal();
  EXPECT_TRUE(engine->listening());
}

TEST_F(ListeningSwitchTest, ResizingDoesNotInterruptListening) {
  window.show();
  world.input->calls.clear();
  window.showMaximized();
  window.showNormal();
  QCoreApplication::processEvents();
  EXPECT_TRUE(world.input->calls.empty());
}

TEST_F(ListeningSwitchTest, ActivationRetriesAMicrophoneThatWasMissing) {
  world.input->input = {};
  window.show();
  ASSERT_FALSE(engine->listening());
  world.input->input = {48000.0, 1};
  emit window.activeChanged();
  EXPECT_EQ(engine->listening(), window.isActive());
  window.requestActivate();
  QCoreApplication::processEvents();
  ASSERT_TRUE(window.isActive());
  EXPECT_TRUE(engine->listening());
}

TEST_F(ListeningSwitchTest, MicrophonesAreWatchedWhileTheWindowIsOnTheScreen) {
  EXPECT_FALSE(watch.changed);
  window.show();
  EXPECT_TRUE(watch.changed);
  window.hide();
  EXPECT_FALSE(watch.changed);
}

TEST_F(ListeningSwitchTest, AMicrophoneThatIsPluggedInLaterIsTakenUp) {
  world.input->input = {};
  window.show();
  ASSERT_FALSE(engine->listening());
  world.input->input = {48000.0, 1};
  watch.changed(true);
  EXPECT_TRUE(engine->listening());
  EXPECT_EQ(engine->errorText(), std::nullopt);
}

TEST_F(ListeningSwitchTest, AMicrophoneThatStaysAwayIsMissedInWords) {
  window.show();
  ASSERT_TRUE(engine->listening());
  world.input->input = {};
  watch.changed(false);
  EXPECT_EQ(engine->errorText(), std::nullopt);
  passTime(2 * grace);
  EXPECT_EQ(engine->errorText(), "No microphone is available.");
  EXPECT_FALSE(engine->listening());
}

TEST_F(ListeningSwitchTest, AMicrophoneThatIsOnlyReplacedIsNotMissed) {
  window.show();
  world.input->calls.clear();
  watch.changed(false);
  watch.changed(true);
  passTime(2 * grace);
  EXPECT_TRUE(engine->listening());
  EXPECT_TRUE(world.input->calls.empty());
}

TEST_F(ListeningSwitchTest, NobodyIsTakenUpOnceTheWindowHasGone) {
  window.show();
  watch.changed(false);
  window.hide();
  world.input->calls.clear();
  passTime(2 * grace);
  EXPECT_EQ(world.input->calls, std::vector<std::string>{});
}

TEST_F(ListeningSwitchTest, AWindowThatIsMerelyNotActiveGoesOnListening) {
  window.show();
  window.requestActivate();
  QCoreApplication::processEvents();
  ASSERT_TRUE(window.isActive());
  QWindow other;
  other.show();
  other.requestActivate();
  QCoreApplication::processEvents();
  ASSERT_FALSE(window.isActive());
  EXPECT_TRUE(engine->listening());
}

TEST_F(ListeningSwitchTest, ShownAndActiveAtOnceStartsTwiceWithoutHarm) {
  window.show();
  ASSERT_TRUE(engine->listening());
  const auto calls = world.input->calls;
  window.requestActivate();
  QCoreApplication::processEvents();
  ASSERT_TRUE(window.isActive());
  EXPECT_EQ(world.input->calls, calls);
  EXPECT_TRUE(engine->listening());
  EXPECT_TRUE(world.input->running);
  EXPECT_TRUE(engine->errorText().value_or("").empty());
}

TEST_F(ListeningSwitchTest, ShownAndActiveAtOnceAsksForTheMicrophoneOnce) {
  world.permission->permission = RecordPermission::undetermined;
  window.show();
  window.requestActivate();
  QCoreApplication::processEvents();
  ASSERT_TRUE(window.isActive());
  EXPECT_EQ(world.permission->requests.size(), 1U);
}

TEST_F(ListeningSwitchTest, AnAnswerThatComesWhenTheWindowHasGoneStartsNothing) {
  world.permission->permission = RecordPermission::undetermined;
  window.show();
  window.showMinimized();
  world.permission->permission = RecordPermission::granted;
  world.permission->requests.at(0)(true);
  world.mainQueue->runAll();
  EXPECT_FALSE(engine->listening());
  EXPECT_FALSE(world.input->running);
}

TEST_F(ListeningSwitchTest, AWindowThatIsAlreadyShownIsListenedToAtOnce) {
  const auto other =
      TunerEngine::create(world.platform(), PitchCapture::create(std::make_unique<InlineQueue>()));
  QWindow shown;
  shown.show();
  const ListeningSwitch late(shown, other, watch);
  EXPECT_TRUE(other->listening());
}

}  // namespace
}  // namespace corvane
