// SPDX-License-Identifier: MIT
#include "ui/app/first_size.h"

#include <QScreen>
#include <QWindow>
#include <algorithm>

namespace corvane {

void fitToScreen(QWindow& window) {
  const QSize room = window.screen()->availableGeometry().size() - QSize(0, titleBarHeight);
  window.resize(window.size().boundedTo(room).expandedTo(window.minimumSize()));
}

}  // namespace corvane
