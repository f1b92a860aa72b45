#include "tools/view/Base64.h"

#include <gtest/gtest.h>

namespace {

using Tolvane::Tools::base64;

TEST(Base64, EncodesBytes) {
    EXPECT_EQ(base64(""), "");
    EXPECT_EQ(base64("M"), "TQ==");
    EXPECT_EQ(base64("Ma"), "TWE=");
    EXPECT_EQ(base64("Man"), "TWFu");
    EXPECT_EQ(base64("Many hands"), "TWFueSBoYW5kcw==");
    EXPECT_EQ(base64("\xff\xfe\xfb"), "//77");
    EXPECT_EQ(base64(std::string(3, '\0')), "AAAA");
}

}  // namespace
