#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

namespace corvane {

/// Lets the program run until `condition` holds; false when that takes longer than anything may.
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
