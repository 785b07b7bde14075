// Names without case, and UTF-8.
#include "model/text.h"

#include <gtest/gtest.h>

namespace sandbox {
namespace {

TEST(Text, names_that_differ_only_in_case_are_the_same) {
  EXPECT_TRUE(same_name("CIM_Fan", "cim_FAN"));
  EXPECT_FALSE(same_name("CIM_Fan", "CIM_Fan1"));
  EXPECT_FALSE(same_name("@", "`"));  // they differ in the bit that tells letters' case
  EXPECT_EQ(lower_case("ÄBC_x9"), "Äbc_x9");
  EXPECT_EQ(NameHash()("CIM_Fan"), NameHash()("cim_fan"));
  EXPECT_TRUE(NameLess()("a", "B"));
  EXPECT_FALSE(NameLess()("B", "a"));
  EXPECT_FALSE(NameLess()("a", "A"));
}

TEST(Text, a_name_is_letters_digits_and_underscores) {
  EXPECT_TRUE(is_name("_a1"));
  EXPECT_TRUE(is_name("größe"));
  EXPECT_FALSE(is_name(""));
  EXPECT_FALSE(is_name("1a"));
  EXPECT_FALSE(is_name("a b"));
  EXPECT_FALSE(is_name("a-b"));
}

TEST(Text, characters_are_taken_from_utf_8_and_put_back) {
  const std::string text = "a\xc3\x9f\xe2\x82\xac\xf0\x9f\x98\x80";
  std::string_view rest = text;
  std::u32string characters;
  while (!rest.empty()) characters += take_character(rest);
  EXPECT_EQ(characters, U"a\u00df\u20ac\U0001f600");
  std::string again;
  for (const char32_t character : characters) append_character(again, character);
  EXPECT_EQ(again, text);
}

TEST(Text, impossible_utf_8_is_no_character) {
  for (const std::string_view bytes :
       {"\x80", "\xc3", "\xc3(", "\xc0\x80", "\xe0\x80\x80", "\xed\xa0\x80", "\xf0\x80\x80\x80",
        "\xf4\x90\x80\x80", "\xff", "\xe2\x82"}) {
    std::string_view rest = bytes;
    EXPECT_EQ(take_character(rest), no_character) << testing::PrintToString(bytes);
    EXPECT_FALSE(is_xml_text(bytes));
  }
  std::string_view empty;
  EXPECT_EQ(take_character(empty), no_character);
}

TEST(Text, xml_carries_no_control_characters_but_white_space) {
  EXPECT_TRUE(is_xml_text("tab\t line\n return\r"));
  EXPECT_FALSE(is_xml_text("\x01"));
  EXPECT_FALSE(is_xml_text(std::string_view("\0", 1)));
  EXPECT_FALSE(is_xml_text("\xef\xbf\xbf"));  // U+FFFF
}

TEST(Text, trimming_takes_white_space_at_both_ends) {
  EXPECT_EQ(trimmed(" \t\r\n a b \n"), "a b");
  EXPECT_EQ(trimmed(" \n "), "");
  EXPECT_EQ(trimmed(""), "");
}

}  // namespace
}  // namespace sandbox
