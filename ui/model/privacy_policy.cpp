// SPDX-License-Identifier: MIT
#include "ui/model/privacy_policy.h"

#include <QFile>

#include "base/require.h"

namespace corvane::PrivacyPolicy {
namespace {

/// Title and address are one text, so that they cannot diverge.
const QString& titleAndAddress() {
  static const QString text = QStringLiteral("Privacy Policy " CORVANE_PRIVACY_URL);
  return text;
}

constexpr qsizetype titleLength = 14;

/// A relative address is resolved against the program: the page is installed beside it.
QUrl parsedUrl() {
  const QUrl address(titleAndAddress().mid(titleLength + 1), QUrl::StrictMode);
  const QUrl program = QUrl::fromLocalFile(QFile::symLinkTarget("/proc/self/exe"));
  const QUrl url = program.resolved(address);
  require(address.isValid() && !url.isRelative(), "the privacy policy's address is valid");
  return url;
}

}  // namespace

QString title() {
  return titleAndAddress().left(titleLength);
}

const QUrl& url() {
  static const QUrl parsed = parsedUrl();
  return parsed;
}

}  // namespace corvane::PrivacyPolicy
