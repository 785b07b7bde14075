// Basic authentication.
#include "http/credentials.h"

#include <gtest/gtest.h>

namespace sandbox::http {
namespace {

TEST(Credentials, base64_is_decoded_as_the_standard_says) {
  EXPECT_EQ(decode_base64(""), "");
  EXPECT_EQ(decode_base64("Zg=="), "f");
  EXPECT_EQ(decode_base64("Zm8="), "fo");
  EXPECT_EQ(decode_base64("Zm9v"), "foo");
  EXPECT_EQ(decode_base64("Zm9vYg=="), "foob");
  EXPECT_EQ(decode_base64("+/+/"), "\xfb\xff\xbf");
}

TEST(Credentials, wrong_base64_is_nothing) {
  EXPECT_EQ(decode_base64("Zg="), std::nullopt);
  EXPECT_EQ(decode_base64("Zg"), std::nullopt);
  EXPECT_EQ(decode_base64("Z g="), std::nullopt);
  EXPECT_EQ(decode_base64("===="), std::nullopt);
}

bool match(const std::string& authorization) {
  return Credentials{"admin", "se:cret"}.match(&authorization);
}

TEST(Credentials, user_and_password_must_be_right) {
  EXPECT_TRUE(match("Basic YWRtaW46c2U6Y3JldA=="));
  EXPECT_TRUE(match("basic   YWRtaW46c2U6Y3JldA=="));
  EXPECT_FALSE(match("Basic YWRtaW46c2U6Y3JlVA=="));
  EXPECT_FALSE(match("Basic YWRtaW4="));
  EXPECT_FALSE(match("Basic"));
  EXPECT_FALSE(match("Digest YWRtaW46c2U6Y3JldA=="));
  EXPECT_FALSE(match(""));
  EXPECT_FALSE((Credentials{"admin", ""}.match(nullptr)));
}

}  // namespace
}  // namespace sandbox::http
