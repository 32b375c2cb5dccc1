#include "platform/qt/qt_url_opener.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QObject>
#include <QString>
#include <QUrl>
#include <vector>

namespace corvane {
namespace {

/// Takes the desktop's place, so that no browser starts.
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

}  // namespace
}  // namespace corvane

#include "qt_url_opener_test.moc"
