// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "tests/support/eventually.h"

namespace corvane {

/// A temporary configuration folder with a settings file.
class SettingsFolderTest : public testing::Test {
 protected:
  SettingsFolderTest() { QDir(folder.path()).mkdir("corvane"); }

  void write(const QByteArray& content) const {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }
  QByteArray read() const {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  /// Runs the event loop until the file contains the line.
  bool saves(const QByteArray& line) const {
    return eventually([&] { return read().contains('\n' + line + '\n'); });
  }

  QTemporaryDir folder;
  QString path = folder.filePath("corvane/corvane.conf");
};

}  // namespace corvane
