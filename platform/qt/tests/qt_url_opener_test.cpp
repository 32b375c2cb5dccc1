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
  explicit Desktop(const char* handled) : scheme(handled) {
    QDesktopServices::setUrlHandler(scheme, this, "open");
  }
  ~Desktop() override { QDesktopServices::unsetUrlHandler(scheme); }

  Q_INVOKABLE void open(const QUrl& url) { opened.push_back(url.toString().toStdString()); }

  std::vector<std::string> opened;

 private:
  QString scheme;
};

TEST(QtUrlOpener, OpensAWebPage) {
  Desktop desktop("https");
  EXPECT_TRUE(QtUrlOpener().openURL("https://example.org/privacy.html"));
  EXPECT_THAT(desktop.opened, testing::ElementsAre("https://example.org/privacy.html"));
}

TEST(QtUrlOpener, OpensAFile) {
  Desktop desktop("file");
  EXPECT_TRUE(QtUrlOpener().openURL("file:///usr/share/doc/corvane/privacy.html"));
  EXPECT_EQ(desktop.opened.size(), 1U);
}

TEST(QtUrlOpener, DeclinesAnAddressThatDoesNotParse) {
  Desktop desktop("https");
  EXPECT_FALSE(QtUrlOpener().openURL("https://a b"));
  EXPECT_FALSE(QtUrlOpener().openURL(""));
  EXPECT_TRUE(desktop.opened.empty());
}

TEST(QtUrlOpener, DeclinesASchemeThatThisDesktopHasNoProgramFor) {
  Desktop desktop("x-unknown-settings");
  EXPECT_FALSE(QtUrlOpener().openURL("x-unknown-settings:privacy"));
  EXPECT_TRUE(desktop.opened.empty());
}

}  // namespace
}  // namespace corvane

#include "qt_url_opener_test.moc"
