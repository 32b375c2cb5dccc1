// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

namespace corvane {

/// Processes events until `condition` holds; false after a generous timeout.
template <class Condition>
bool eventually(Condition condition) {
  const QDeadlineTimer end(30000);
  while (!condition() && !end.hasExpired()) {
    QCoreApplication::processEvents();
    QThread::msleep(1);
  }
  return condition();
}

}  // namespace corvane
