// The error text, and the storage that it lies in.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "platform/outline.h"

namespace {

TEST(ParseState, is_464_bytes) { EXPECT_EQ(sizeof(XmlParseState), 464U); }

// Storage at an odd address between bytes that must stay as they are.
class Fenced {
 public:
  Fenced() { bytes_.fill(fence); }

  XmlParseState* state() { return reinterpret_cast<XmlParseState*>(bytes_.data() + before); }

  bool whole() const {
    const auto is_fence = [](unsigned char byte) { return byte == fence; };
    return std::all_of(bytes_.begin(), bytes_.begin() + before, is_fence) &&
           std::all_of(bytes_.begin() + before + 464, bytes_.end(), is_fence);
  }

 private:
  static constexpr unsigned char fence = 0xA5;
  static constexpr std::size_t before = 65;
  std::array<unsigned char, before + 464 + 64> bytes_{};
};

TEST(ParseState, is_all_that_is_written_whatever_the_outcome) {
  const std::string long_name(100000, 'n');
  for (const std::string& text :
       {std::string("<a/>"), std::string("<a>"), std::string("&"), std::string(),
        "<" + long_name + ">", "<a " + long_name + "/>", "<a>&" + long_name + ";</a>",
        "<?xml version=\"1.0\" encoding=\"" + long_name + "\"?><a/>",
        std::string(200000, '\n') + "x"}) {
    Fenced fenced;
    freeXMLDoc(parseText(fenced.state(), text.c_str()));
    getErrorText(fenced.state());
    EXPECT_TRUE(fenced.whole()) << text.substr(0, 40);
  }
}

TEST(ErrorText, lies_in_the_storage_and_ends_within_it) {
  XmlParseState state;
  std::fill(std::begin(state.storage), std::end(state.storage), static_cast<unsigned char>('?'));
  EXPECT_EQ(parseText(&state, "<a>"), nullptr);
  const char* text = getErrorText(&state);
  EXPECT_GE(static_cast<const void*>(text), static_cast<const void*>(&state));
  EXPECT_LT(static_cast<const void*>(text), static_cast<const void*>(&state + 1));
  EXPECT_LT(std::string(text).size(), 464U);
}

TEST(ErrorText, is_empty_after_success_even_when_the_parse_before_failed) {
  XmlParseState state;
  EXPECT_EQ(parseText(&state, "<a>"), nullptr);
  EXPECT_STRNE(getErrorText(&state), "");
  XmlDocument* document = parseText(&state, "<a/>");
  EXPECT_NE(document, nullptr);
  EXPECT_STREQ(getErrorText(&state), "");
  freeXMLDoc(document);
}

TEST(ErrorText, of_each_state_is_its_own) {
  XmlParseState first;
  XmlParseState second;
  EXPECT_EQ(parseText(&first, "<a>"), nullptr);
  EXPECT_EQ(parseText(&second, "\n<a></b>"), nullptr);
  EXPECT_STREQ(getErrorText(&first), "line 1, column 4: no element found");
  EXPECT_STREQ(getErrorText(&second), "line 2, column 6: mismatched tag");
}

TEST(ErrorText, of_a_null_text_says_so) {
  XmlParseState state;
  EXPECT_EQ(parseText(&state, nullptr), nullptr);
  EXPECT_STREQ(getErrorText(&state), "no text");
}

TEST(ErrorText, of_a_null_state_is_empty) {
  EXPECT_EQ(parseText(nullptr, "<a>"), nullptr);
  EXPECT_STREQ(getErrorText(nullptr), "");
}

TEST(ErrorText, counts_lines_and_columns_from_1) {
  EXPECT_EQ(outline_of("&"), "refused: line 1, column 1: not well-formed (invalid token)");
  EXPECT_EQ(outline_of("<a>\n<b>\r\n\t& </b></a>"),
            "refused: line 3, column 3: not well-formed (invalid token)");
}

TEST(ErrorText, counts_characters_not_bytes) {
  EXPECT_EQ(outline_of("<a>é中😀&</a>"),
            "refused: line 1, column 8: not well-formed (invalid token)");
}

TEST(ErrorText, keeps_counting_over_many_lines) {
  std::string text = "<a>\n";
  for (int i = 0; i < 100000; ++i) text += "<b/>\n";  // lines 2 to 100001
  EXPECT_EQ(outline_of((text + "  <c></a>").c_str()),
            "refused: line 100002, column 8: mismatched tag");
}

}  // namespace
