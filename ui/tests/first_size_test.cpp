// SPDX-License-Identifier: MIT
#include "ui/app/first_size.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace corvane {
namespace {

/// A window of this size with a minimum size.
QSize fitted(QSize size, QSize minimum = {}) {
  QWindow window;
  window.setMinimumSize(minimum);
  window.resize(size);
  fitToScreen(window);
  return window.size();
}

TEST(FirstSize, IsNoLargerThanTheScreenAndNoSmallerThanTheMinimum) {
  const QSize available = QGuiApplication::primaryScreen()->availableGeometry().size();
  const QSize room(available.width(), available.height() - titleBarHeight);
  const QSize smaller = room - QSize(1, 1);
  const QSize larger = room + QSize(100, 88);
  EXPECT_EQ(fitted({480, 100}), QSize(480, 100));
  EXPECT_EQ(fitted(smaller), smaller);
  EXPECT_EQ(fitted(larger, smaller), room);
  EXPECT_EQ(fitted(larger, larger), larger);
}

}  // namespace
}  // namespace corvane
