#include "platform/qt/qt_url_opener.h"

#include <QDesktopServices>
#include <QString>
#include <QUrl>

namespace corvane {

bool QtUrlOpener::openURL(std::string_view address) {
  const QUrl url(QString::fromUtf8(address.data(), static_cast<qsizetype>(address.size())),
                 QUrl::StrictMode);
  const QString scheme = url.scheme();
  const bool known = scheme == u"https" || scheme == u"http" || scheme == u"file";
  return url.isValid() && known && QDesktopServices::openUrl(url);
}

}  // namespace corvane
