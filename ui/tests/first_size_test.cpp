#include "ui/first_size.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace corvane {
namespace {

class FirstSizeTest : public testing::Test {
 protected:
  int heightFitted(int height, int minimum) {
    window.setMinimumHeight(minimum);
    window.resize(480, height);
    fitToScreen(window);
    return window.height();
  }

  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QGuiApplication app{argc, argv};
  QWindow window;
  QSize available = QGuiApplication::primaryScreen()->availableGeometry().size();
  int room = available.height() - titleBarHeight;
};

TEST_F(FirstSizeTest, AWindowThatFitsKeepsItsHeight) {
  EXPECT_EQ(heightFitted(room - 1, 100), room - 1);
  EXPECT_EQ(window.width(), 480);
}

TEST_F(FirstSizeTest, AWindowThatIsTooHighIsAsHighAsTheScreenAllows) {
  EXPECT_EQ(heightFitted(room + 88, room - 92), room);
  EXPECT_EQ(window.width(), 480);
}

TEST_F(FirstSizeTest, AWindowThatIsTooWideIsAsWideAsTheScreen) {
  window.resize(available.width() + 100, 100);
  fitToScreen(window);
  EXPECT_EQ(window.width(), available.width());
}

TEST_F(FirstSizeTest, AWindowIsNeverLowerThanItsMinimum) {
  EXPECT_EQ(heightFitted(room + 188, room + 8), room + 8);
}

}  // namespace
}  // namespace corvane
