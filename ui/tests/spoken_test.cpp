#include "ui/spoken.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QWindow>
#include <functional>

#include "engine/apply_sink.h"
#include "tests/support/fake_platform.h"
#include "ui/tuner_model.h"

namespace corvane {
namespace {

using testing::ElementsAre;

class SpokenTest : public testing::Test {
 protected:
  SpokenTest() {
    engine->start();
    QObject::connect(&spoken(), &Spoken::announced, [this] {
      const QString words = spoken().announcement();
      if (!words.isEmpty()) said.push_back(words.toStdString());
    });
  }

  ~SpokenTest() override { QAccessible::setActive(false); }

  void goToTheWindow() {
    window.show();
    window.requestActivate();
    EXPECT_TRUE(
        waitFor([] { return QGuiApplication::applicationState() == Qt::ApplicationActive; }));
  }

  Spoken& spoken() { return *model.spoken(); }

  /// False when it takes longer than anything here may.
  static bool waitFor(const std::function<bool()>& condition) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition() && elapsed.elapsed() < 10000) {
      QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return condition();
  }

  /// An A2 that is so far off.
  void hear(double cents) {
    const double frequency = 110.0 * std::exp2(cents / 1200.0);
    ApplySink(engine, world.mainQueue).deliver(PitchDetector::Reading{frequency, 0.99, 0.05F});
    world.mainQueue->runAll();
  }

  void hearNothing() {
    ApplySink(engine, world.mainQueue).deliver(std::nullopt);
    world.mainQueue->runAll();
  }

  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QGuiApplication app{argc, argv};
  QWindow window;
  fakes::World world;
  std::shared_ptr<TunerEngine> engine =
      TunerEngine::create(world.platform(), PitchCapture::create(std::make_unique<InlineQueue>()));
  TunerModel model{engine, world.permission, world.urlOpener};
  std::vector<std::string> said;
};

TEST_F(SpokenTest, NothingIsWatchedWhileNobodyListens) {
  ASSERT_FALSE(spoken().isActive());
  int words = 0;
  const QObject watching;  // for as long as there is something to count in
  QObject::connect(&spoken(), &Spoken::wordsChanged, &watching, [&words] { ++words; });
  hear(-12.0);
  QCoreApplication::processEvents();
  EXPECT_EQ(words, 0);
  EXPECT_TRUE(spoken().centsMeter().isEmpty());
}

TEST_F(SpokenTest, WhoComesLaterIsToldWhatIsThere) {
  goToTheWindow();
  hear(-12.0);
  QAccessible::setActive(true);
  EXPECT_TRUE(waitFor([this] { return !said.empty(); }));
  EXPECT_THAT(said, ElementsAre("A2, 12 cents flat"));
  EXPECT_EQ(spoken().centsMeter(), "A2, 12 cents flat");
  EXPECT_EQ(spoken().fineMeter(), "A2, more than 10 cents flat");
  EXPECT_EQ(spoken().level(), "60 percent");
}

TEST_F(SpokenTest, WhenNobodyListensAnyMoreTheWordsGo) {
  QAccessible::setActive(true);
  hear(3.0);
  EXPECT_TRUE(waitFor([this] { return !spoken().centsMeter().isEmpty(); }));
  QAccessible::setActive(false);
  EXPECT_TRUE(spoken().centsMeter().isEmpty());
}

TEST_F(SpokenTest, WhatWasSaidGoesWithTheNote) {
  goToTheWindow();
  QAccessible::setActive(true);
  hear(-12.0);
  ASSERT_TRUE(waitFor([this] { return !said.empty(); }));
  EXPECT_EQ(spoken().announcement(), "A2, 12 cents flat");
  hearNothing();
  EXPECT_TRUE(waitFor([this] { return spoken().announcement().isEmpty(); }));
  EXPECT_THAT(said, ElementsAre("A2, 12 cents flat", "Play a note"));
}

TEST_F(SpokenTest, WhoComesBackIsToldAnew) {
  goToTheWindow();
  QAccessible::setActive(true);
  hear(-12.0);
  ASSERT_TRUE(waitFor([this] { return !said.empty(); }));
  QAccessible::setActive(false);
  EXPECT_TRUE(spoken().announcement().isEmpty());
  QAccessible::setActive(true);
  EXPECT_TRUE(waitFor([this] { return said.size() == 2; }));
  EXPECT_EQ(said.back(), "A2, 12 cents flat");
}

TEST_F(SpokenTest, TheMetersChangeTheirWordsTwiceASecondAtMost) {
  QAccessible::setActive(true);
  QElapsedTimer clock;
  clock.start();
  std::vector<qint64> changes;
  const QObject watching;  // for as long as there is something to count in
  QObject::connect(&spoken(), &Spoken::wordsChanged, &watching,
                   [&] { changes.push_back(clock.elapsed()); });
  bool nearer = false;
  ASSERT_TRUE(waitFor([&] {
    nearer = !nearer;
    hear(nearer ? -30.0 : -45.0);
    return changes.size() >= 4;
  }));
  for (std::size_t i = 1; i < changes.size(); ++i) {
    // Either clock counts whole milliseconds.
    EXPECT_GE(changes[i] - changes[i - 1], 499);
  }
}

TEST_F(SpokenTest, NothingIsSaidToTheUserOfAnotherProgram) {
  ASSERT_NE(QGuiApplication::applicationState(), Qt::ApplicationActive);
  QAccessible::setActive(true);
  hear(-12.0);
  EXPECT_TRUE(waitFor([this] { return !spoken().centsMeter().isEmpty(); }));
  QElapsedTimer elapsed;
  elapsed.start();
  waitFor([&] { return elapsed.elapsed() > 600; });  // Twice as long as a note is left to settle.
  EXPECT_TRUE(said.empty());
  goToTheWindow();
  EXPECT_TRUE(waitFor([this] { return !said.empty(); }));
}

}  // namespace
}  // namespace corvane
