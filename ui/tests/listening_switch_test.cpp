// SPDX-License-Identifier: MIT
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

  QWindow window;
  ListeningSwitch listening{window, engine};
};

TEST_F(ListeningSwitchTest, ListensWhileTheWindowIsShown) {
  EXPECT_FALSE(engine->state().listening);
  for (int time = 0; time < 2; ++time) {
    show(window);
    EXPECT_TRUE(engine->state().listening);
    window.hide();
    EXPECT_FALSE(engine->state().listening);
  }
}

TEST_F(ListeningSwitchTest, StopsInTheBackgroundAndStartsOnReturn) {
  show(window);
  window.showMinimized();
  EXPECT_FALSE(engine->state().listening);
  window.showNormal();
  EXPECT_TRUE(eventually([this] { return engine->state().listening; }));
}

TEST_F(ListeningSwitchTest, StopsAnEngineThatStartsInTheBackground) {
  show(window);
  window.showMinimized();
  engine->allowMicrophone();
  EXPECT_FALSE(engine->state().listening);
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
  world.input->input = {};
  show(window);
  world.input->input = {48000.0, 1};
  emit window.activeChanged();
  EXPECT_EQ(engine->state().listening, window.isActive());
  activate(window);
  EXPECT_TRUE(engine->state().listening);
}

TEST_F(ListeningSwitchTest, StartsAtOnceForAVisibleWindow) {
  const auto other =
      TunerEngine::create(world.platform(), PitchCapture::create(std::make_unique<InlineQueue>()));
  QWindow shown;
  show(shown);
  const ListeningSwitch late(shown, other);
  EXPECT_TRUE(other->state().listening);
}

}  // namespace
}  // namespace corvane
