// Tags, line breaks and escaping.
#include "cimxml/markup.h"

#include <gtest/gtest.h>

namespace sandbox::cimxml {
namespace {

TEST(Markup, every_tag_is_followed_by_a_line_break) {
  Markup out;
  out.open("A", {{"X", "1"}, when(false, "Y", "2")});
  out.empty("B");
  out.leaf("VALUE", {}, "text");
  out.close("A");
  EXPECT_EQ(out.text(), "<A X=\"1\">\n<B/>\n<VALUE>text</VALUE>\n</A>\n");
}

TEST(Markup, texts_are_escaped_so_that_they_come_back_as_they_were) {
  Markup out;
  out.leaf("V", {{"N", "<&\">\t\n\r'"}}, "<&\">\t\n\r'");
  EXPECT_EQ(out.text(),
            "<V N=\"&lt;&amp;&quot;&gt;&#9;&#10;&#13;'\">&lt;&amp;\"&gt;\t\n&#13;'</V>\n");
}

TEST(Markup, markup_within_a_value_stands_in_a_cdata_section) {
  Markup inner;
  inner.leaf("V", {}, "]]>");
  Markup out;
  out.leaf_of_markup("VALUE", inner);
  EXPECT_EQ(out.text(), "<VALUE><![CDATA[<V>]]&gt;</V>\n]]></VALUE>\n");
}

TEST(Markup, what_was_written_can_be_cut_off_again) {
  Markup out;
  out.open("A");
  const std::size_t size = out.size();
  out.open("B");
  out.cut(size);
  EXPECT_EQ(out.take(), "<A>\n");
}

}  // namespace
}  // namespace sandbox::cimxml
