#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

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

  int argc = 0;
  QCoreApplication app{argc, nullptr};
  QTemporaryDir folder;
  QString path = folder.filePath("corvane/corvane.conf");
};

}  // namespace corvane
