#include "ui/privacy_policy.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(PrivacyPolicy, ItsTitleIsTheTextOfTheMenuItem) {
  EXPECT_EQ(PrivacyPolicy::title().toStdString(), "Privacy Policy");
}

TEST(PrivacyPolicy, ItsAddressIsTheConfiguredOne) {
  EXPECT_EQ(PrivacyPolicy::url(), QUrl(CORVANE_PRIVACY_URL));
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
