// Characters, their widths, and texts that are safe to show.
#include "utf8.h"

#include <gtest/gtest.h>

namespace cli {
namespace {

TEST(Utf8, valid_texts_of_one_to_four_bytes_are_recognised) {
  EXPECT_TRUE(is_utf8(""));
  EXPECT_TRUE(is_utf8("plain"));
  EXPECT_TRUE(
      is_utf8("L\xC3\xBC"
              "fter \xE6\xB8\xA9\xE5\xBA\xA6 \xF0\x9F\x8C\xA1"));
}

TEST(Utf8, overlong_surrogate_cut_and_stray_bytes_are_refused) {
  EXPECT_FALSE(is_utf8("\xC0\xAF"));
  EXPECT_FALSE(is_utf8("\xE0\x80\xAF"));
  EXPECT_FALSE(is_utf8("\xED\xA0\x80"));
  EXPECT_FALSE(is_utf8("\xF4\x90\x80\x80"));
  EXPECT_FALSE(is_utf8("abc\xE6\xB8"));
  EXPECT_FALSE(is_utf8("\x80"));
  EXPECT_FALSE(is_utf8("\xFF"));
}

TEST(Utf8, width_counts_columns_not_bytes) {
  EXPECT_EQ(display_width("fan"), 3U);
  EXPECT_EQ(display_width("L\xC3\xBC"
                          "fter"),
            6U);
  EXPECT_EQ(display_width("\xE6\xB8\xA9\xE5\xBA\xA6"), 4U) << "two wide characters";
  EXPECT_EQ(display_width("u\xCC\x88"), 1U) << "u and a combining diaeresis";
  EXPECT_EQ(display_width("\xF0\x9F\x8C\xA1"), 2U) << "a thermometer";
}

TEST(Utf8, printable_text_keeps_letters_and_escapes_what_steers_a_terminal) {
  EXPECT_EQ(printable("L\xC3\xBC"
                      "fter 1"),
            "L\xC3\xBC"
            "fter 1");
  EXPECT_EQ(printable("red\x1b[31m\a"), "red\\x1b[31m\\x07");
  EXPECT_EQ(printable("two\nlines\tand\rmore"), "two\\nlines\\tand\\rmore");
  EXPECT_EQ(printable("\xC2\x9B"
                      "2J"),
            "\\xc2\\x9b2J")
      << "the C1 control CSI";
  EXPECT_EQ(printable("\xE2\x80\xAE"
                      "txt"),
            "\\xe2\\x80\\xaetxt")
      << "right-to-left override";
  EXPECT_EQ(printable("broken \xE6\xB8"), "broken \\xe6\\xb8");
}

TEST(Utf8, fitting_never_cuts_a_character) {
  EXPECT_EQ(fitting("abcdef", 3), "abc");
  EXPECT_EQ(fitting("abc", 9), "abc");
  EXPECT_EQ(fitting("\xE6\xB8\xA9\xE5\xBA\xA6", 3), "\xE6\xB8\xA9") << "half a character is none";
}

TEST(Utf8, names_are_the_same_whatever_their_case) {
  EXPECT_TRUE(same_name("DeviceID", "deviceid"));
  EXPECT_TRUE(same_name("", ""));
  EXPECT_FALSE(same_name("DeviceID", "DeviceI"));
  EXPECT_FALSE(same_name("Device", "Service"));
  EXPECT_EQ(lower_case("CIM_Fan1"), "cim_fan1");
}

}  // namespace
}  // namespace cli
