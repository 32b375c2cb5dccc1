// SPDX-License-Identifier: MIT
#include "ui/model/privacy_policy.h"

#include <gtest/gtest.h>

#include <QFile>

namespace corvane {
namespace {

TEST(PrivacyPolicy, HasTheTitleOfTheMenuItem) {
  EXPECT_EQ(PrivacyPolicy::title(), "Privacy Policy");
}

TEST(PrivacyPolicy, HasTheConfiguredAddressAsSeenFromTheProgram) {
  const QUrl url = PrivacyPolicy::url();
  EXPECT_EQ(url, QUrl::fromLocalFile(PROGRAM_FOLDER "/").resolved(QUrl(CORVANE_PRIVACY_URL)));
  EXPECT_FALSE(url.isRelative());
  EXPECT_TRUE(!url.isLocalFile() || QFile::exists(url.toLocalFile()))
      << url.toString().toStdString();
}

}  // namespace
}  // namespace corvane
