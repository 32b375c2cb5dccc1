// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QCoreApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QObject>
#include <QTimer>
#include <QTimerEvent>
#include <QWindow>

namespace corvane {

/// What QML tests lack: controlled time, key repeat, a screen reader.
class Probe : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// The interval in ms of the timer that `object` has started; -1 if there is none.
  Q_INVOKABLE static int intervalOf(QObject* object) {
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(object);
    return timers.isEmpty() ? -1 : timers.first().interval;
  }

  Q_INVOKABLE static void fireTimerOf(QObject* object) {
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(object);
    if (timers.isEmpty()) return;
    QTimerEvent event(timers.first().timerId);
    QCoreApplication::sendEvent(object, &event);
  }

  /// Advances the time by `ms` and runs what is due, independent of real time.
  Q_INVOKABLE static void runFor(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
  }

  /// Sends the auto-repeat events of a held key.
  Q_INVOKABLE static void repeatKey(QWindow* window, int key) {
    for (const auto type : {QEvent::KeyRelease, QEvent::KeyPress}) {
      QKeyEvent event(type, key, Qt::NoModifier, {}, true);
      QCoreApplication::sendEvent(window, &event);
    }
  }

  Q_INVOKABLE static void setScreenReader(bool listens) { QAccessible::setActive(listens); }
};

}  // namespace corvane
