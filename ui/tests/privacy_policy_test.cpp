#include "ui/privacy_policy.h"

#include <gtest/gtest.h>

#include <QFile>

namespace corvane {
namespace {

TEST(PrivacyPolicy, ItsTitleIsTheTextOfTheMenuItem) {
  EXPECT_EQ(PrivacyPolicy::title().toStdString(), "Privacy Policy");
}

TEST(PrivacyPolicy, ItsAddressIsTheConfiguredOneAsSeenFromTheProgram) {
  const QUrl program = QUrl::fromLocalFile(PROGRAM_FOLDER "/");
  EXPECT_EQ(PrivacyPolicy::url(), program.resolved(QUrl(CORVANE_PRIVACY_URL)));
}

TEST(PrivacyPolicy, ItsPageIsThereWhenItComesWithTheProgram) {
  const QUrl url = PrivacyPolicy::url();
  EXPECT_TRUE(!url.isLocalFile() || QFile::exists(url.toLocalFile()))
      << url.toString().toStdString();
}

TEST(PrivacyPolicy, ItsAddressCanBeOpenedFromAnywhere) {
  EXPECT_TRUE(PrivacyPolicy::url().isValid());
  EXPECT_FALSE(PrivacyPolicy::url().isRelative());
}

TEST(PrivacyPolicy, ItsAddressIsParsedOnce) {
  EXPECT_EQ(&PrivacyPolicy::url(), &PrivacyPolicy::url());
}

}  // namespace
}  // namespace corvane
