// SPDX-License-Identifier: MIT
#include "ui/speech/speech.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QWindow>

#include "tests/support/eventually.h"
#include "ui/model/tuner_model.h"
#include "ui/tests/engine_on_fakes.h"

namespace corvane {
namespace {

class SpeechTest : public testing::Test, protected EngineOnFakes {
 protected:
  SpeechTest() {
    engine->start();
    QObject::connect(&speech, &Speech::announced, [this] {
      if (!speech.announcement().isEmpty()) said.push_back(speech.announcement().toStdString());
    });
    QObject::connect(&speech, &Speech::wordsChanged, [this] { ++wordChanges; });
  }

  ~SpeechTest() override { QAccessible::setActive(false); }

  void goToTheWindow() {
    window.show();
    window.requestActivate();
    EXPECT_TRUE(
        eventually([] { return QGuiApplication::applicationState() == Qt::ApplicationActive; }));
  }

  void loseTheMicrophone() {
    world.input->input = {};
    engine->stop();
    engine->start();
  }

  /// The first sentence that no call has returned yet.
  std::string saidNext() {
    return eventually([&] { return said.size() > returned; }) ? said[returned++] : "nothing";
  }

  QWindow window;
  TunerModel model{engine, world.urlOpener};
  Speech& speech = *model.speech();
  std::vector<std::string> said;
  std::size_t returned = 0;
  int wordChanges = 0;
};

TEST_F(SpeechTest, AnnouncesTheStateWhenActivatedAgain) {
  goToTheWindow();
  hearA2(-12.0);
  for (int visit = 0; visit < 2; ++visit) {
    const int before = wordChanges;
    // After the pause between two changes of texts an observer would change them at once.
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    hearNothing();
    hearA2(-12.0);
    QCoreApplication::processEvents();
    EXPECT_EQ(wordChanges, before) << "not active";
    QAccessible::setActive(true);
    EXPECT_EQ(saidNext(), "A2, 12 cents flat");
    EXPECT_EQ(speech.centsMeter(), "A2, 12 cents flat");
    EXPECT_EQ(speech.fineMeter(), "A2, more than 10 cents flat");
    EXPECT_EQ(speech.level(), "60 percent");
    QAccessible::setActive(false);
    EXPECT_EQ(speech.announcement() + speech.centsMeter(), "");
  }
}

TEST_F(SpeechTest, ClearsAnAnnouncementThatTheScreenShows) {
  goToTheWindow();
  QAccessible::setActive(true);
  loseTheMicrophone();
  EXPECT_EQ(saidNext(), "No microphone is available.");
  EXPECT_EQ(speech.announcement(), "No microphone is available.");  // for three seconds
  EXPECT_TRUE(eventually([this] { return speech.announcement().isEmpty(); }));
}

TEST_F(SpeechTest, ChangesTheMetersWordsTwiceASecondAtMost) {
  QAccessible::setActive(true);
  const auto begun = std::chrono::steady_clock::now();
  bool nearer = false;
  ASSERT_TRUE(eventually([&] {
    nearer = !nearer;
    hearA2(nearer ? -30.0 : -45.0);
    return wordChanges >= 4;
  }));
  // At least, because of slow machines; minus the clock's resolution.
  EXPECT_GE(std::chrono::steady_clock::now() - begun, std::chrono::milliseconds(3 * 500 - 1));
}

using SpeechDeathTest = SpeechTest;

TEST_F(SpeechDeathTest, SaysNothingUntilTheWindowIsActive) {
  // In a new process, whose windows have never been active.
  const auto test = [this] {
    QAccessible::setActive(true);
    // A problem would be announced at once, before the texts of the meters change.
    loseTheMicrophone();
    EXPECT_TRUE(eventually([this] { return wordChanges > 0; }));
    EXPECT_THAT(said, testing::IsEmpty());
    goToTheWindow();
    EXPECT_EQ(saidNext(), "No microphone is available.");
    std::_Exit(HasFailure() ? 1 : 0);
  };
  EXPECT_EXIT(test(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace corvane
