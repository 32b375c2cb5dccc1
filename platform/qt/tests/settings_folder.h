#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QThread>
#include <functional>

namespace corvane {

/// A user's configuration folder that is gone after the test, and the settings in it.
class SettingsFolderTest : public testing::Test {
 protected:
  void write(const QByteArray& content) const {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }
  QByteArray read() const {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  /// Lets the program run until `condition` holds; false when that takes longer than ten seconds.
  static bool runUntil(const std::function<bool()>& condition) {
    const QDeadlineTimer end(10000);
    while (!condition() && !end.hasExpired()) {
      QCoreApplication::processEvents();
      QThread::msleep(1);
    }
    return condition();
  }
  /// Lets the program run until the file holds the line.
  bool saves(const QByteArray& line) const {
    return runUntil([&] { return read().contains('\n' + line + '\n'); });
  }

  int argc = 0;
  QCoreApplication app{argc, nullptr};
  QTemporaryDir folder;
  QString path = folder.filePath("corvane/corvane.conf");
};

}  // namespace corvane
