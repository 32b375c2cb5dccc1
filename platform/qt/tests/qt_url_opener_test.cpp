// SPDX-License-Identifier: MIT
#include "platform/qt/qt_url_opener.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QFile>
#include <QObject>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>
#include <vector>

#include "tests/support/eventually.h"

namespace corvane {
namespace {

/// Replaces the desktop, so that no browser starts.
class Desktop : public QObject {
  Q_OBJECT
 public:
  Desktop() {
    for (const QString& scheme : schemes) QDesktopServices::setUrlHandler(scheme, this, "open");
  }
  ~Desktop() override {
    for (const QString& scheme : schemes) QDesktopServices::unsetUrlHandler(scheme);
  }

  Q_INVOKABLE void open(const QUrl& url) { opened.push_back(url.toString().toStdString()); }

  std::vector<std::string> opened;

 private:
  const QStringList schemes = {"https", "http", "file", "x-unknown-settings"};
};

TEST(QtUrlOpener, OpensWebPagesAndFilesAndNothingElse) {
  Desktop desktop;
  for (const char* address : {"https://a b", "", "x-unknown-settings:privacy"}) {
    EXPECT_FALSE(QtUrlOpener().openURL(address)) << address;
  }
  EXPECT_THAT(desktop.opened, testing::IsEmpty());
  const std::vector<std::string> addresses = {"https://example.org/privacy.html",
                                              "http://example.org/",
                                              "file:///usr/share/doc/corvane/privacy.html"};
  for (const std::string& address : addresses) EXPECT_TRUE(QtUrlOpener().openURL(address));
  EXPECT_EQ(desktop.opened, addresses);
}

/// A desktop with only fake programs, which record how they were started.
class Installed : public testing::Test {
 protected:
  Installed() { qputenv("PATH", folder.path().toLocal8Bit()); }
  ~Installed() override {
    qputenv("PATH", path);
    qunsetenv("XDG_CURRENT_DESKTOP");
  }

  void install(const QString& program) const {
    QFile file(folder.filePath(program));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\necho ${0##*/} $@ > " + note.toLocal8Bit() + "\n");
    file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  }
  void expectStarted(const char* desktop, const QByteArray& command) const {
    QFile::remove(note);
    qputenv("XDG_CURRENT_DESKTOP", desktop);
    EXPECT_TRUE(opens());
    QFile file(note);
    EXPECT_TRUE(eventually([&] { return file.size() == command.size() + 1; })) << desktop;
    EXPECT_TRUE(file.open(QIODevice::ReadOnly) && file.readAll() == command + '\n') << desktop;
  }
  static bool opens() { return QtUrlOpener().openURL("x-apple.systempreferences:com.apple"); }

  const QByteArray path = qgetenv("PATH");
  QTemporaryDir folder;
  QString note = folder.filePath("note");
};

TEST_F(Installed, SoundSettingsAreTheDesktopsOrAMixer) {
  EXPECT_FALSE(opens());
  install("pavucontrol");
  expectStarted("GNOME", "pavucontrol");
  install("gnome-control-center");
  install("systemsettings");
  expectStarted("ubuntu:GNOME", "gnome-control-center sound");
  expectStarted("KDE", "systemsettings kcm_pulseaudio");
  expectStarted("XFCE", "pavucontrol");
}

}  // namespace
}  // namespace corvane

#include "qt_url_opener_test.moc"
