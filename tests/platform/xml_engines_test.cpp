// What both engines make of the same texts: the verdict, and every field of every node.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/documents.h"
#include "platform/engines.h"
#include "platform/outline.h"

namespace {

using documents::Accepted;
using documents::By;
using documents::Refused;
using engines::Left;
using engines::Reading;

const auto name_of = [](const auto& test) { return std::string(test.param.name); };

std::string outline_of(const Reading& reading) {
  return reading.root() ? outline(*reading.root()) : "refused: " + reading.error();
}

class WellFormed : public testing::TestWithParam<Accepted> {};

TEST_P(WellFormed, is_read_by_both_engines_alike) {
  const Reading expat = engines::read_by_expat(GetParam().document);
  EXPECT_EQ(outline_of(expat), GetParam().nodes);
  const Reading own = engines::scanned(GetParam().document);
  EXPECT_EQ(own.left() != Left::Nothing, GetParam().by == By::Expat) << own.error();
  if (GetParam().by == By::Expat) return;
  EXPECT_EQ(outline_of(own), GetParam().nodes);
  EXPECT_EQ(engines::difference(own.root(), expat.root()), "");
}

INSTANTIATE_TEST_SUITE_P(Xml, WellFormed, testing::ValuesIn(documents::accepted), name_of);

class NotRead : public testing::TestWithParam<Refused> {};

TEST_P(NotRead, is_refused_by_both_engines) {
  const Reading expat = engines::read_by_expat(GetParam().document);
  EXPECT_EQ(expat.root(), nullptr);
  EXPECT_NE(expat.error(), "");
  const Reading own = engines::scanned(GetParam().document);
  EXPECT_EQ(own.root(), nullptr);
  EXPECT_NE(own.error(), "");
  EXPECT_EQ(own.left() != Left::Nothing, GetParam().by == By::Expat) << own.error();
  EXPECT_EQ(engines::disagreement(GetParam().document), "");
}

INSTANTIATE_TEST_SUITE_P(Malformed, NotRead, testing::ValuesIn(documents::malformed), name_of);
INSTANTIATE_TEST_SUITE_P(EntitiesDeclared, NotRead, testing::ValuesIn(documents::entities_declared),
                         name_of);
INSTANTIATE_TEST_SUITE_P(EntitiesElsewhere, NotRead,
                         testing::ValuesIn(documents::entities_elsewhere), name_of);

// ---- Characters and names: each one there is, in each place

std::string utf_8(unsigned code) {
  const auto byte = [](unsigned value) { return static_cast<char>(value); };
  if (code < 0x80) return {byte(code)};
  if (code < 0x800) return {byte(0xC0 | code >> 6), byte(0x80 | (code & 63))};
  if (code < 0x10000)
    return {byte(0xE0 | code >> 12), byte(0x80 | (code >> 6 & 63)), byte(0x80 | (code & 63))};
  return {byte(0xF0 | code >> 18), byte(0x80 | (code >> 12 & 63)), byte(0x80 | (code >> 6 & 63)),
          byte(0x80 | (code & 63))};
}

// Every character of the basic plane, and some of each plane beyond it.
template <class Use>
void for_each_character(Use use) {
  for (unsigned code = 1; code < 0x10000; ++code) use(code);
  for (unsigned code = 0x10000; code <= 0x1FFFFF; code += 0x3FF) use(code);
  for (unsigned plane = 0x1FFFE; plane < 0x110000; plane += 0x10000) use(plane);
  use(0x10FFFF);
}

TEST(Characters, are_the_same_to_both_engines_in_content_and_in_values) {
  for_each_character([](unsigned code) {
    const std::string c = utf_8(code);
    EXPECT_EQ(engines::disagreement(("<a b='" + c + "'>x</a>").c_str()), "") << code;
    EXPECT_EQ(engines::disagreement(("<a>" + c + "y</a>").c_str()), "") << code;
  });
}

TEST(Characters, are_the_same_to_both_engines_by_number) {
  for_each_character([](unsigned code) {
    const std::string reference = "<a>&#" + std::to_string(code) + ";</a>";
    EXPECT_EQ(engines::disagreement(reference.c_str()), "") << code;
  });
}

TEST(Characters, are_the_same_to_both_engines_in_names) {
  for_each_character([](unsigned code) {
    const std::string c = utf_8(code);
    EXPECT_EQ(engines::disagreement(("<" + c + "/>").c_str()), "") << code;
    EXPECT_EQ(engines::disagreement(("<a" + c + " " + c + "='1'/>").c_str()), "") << code;
  });
}

// Bytes that mean something somewhere, and one of each kind that does not.
constexpr std::string_view significant =
    "\x01\t\n\r !\"#%&'()*+,-./09:;<=>?@AXZ[]_`axz|\x7F\x80\xBF\xC0\xC3\xE0\xED\xEF\xF0\xF4\xFF";

TEST(Bytes, in_pairs_are_the_same_to_both_engines_everywhere) {
  const auto with = [](std::string_view frame, const std::string& bytes) {
    std::string text(frame);
    return text.replace(text.find('@'), 1, bytes);
  };
  for (const std::string_view frame :
       {"@", "<a>@</a>", "<a@/>", "<a b='@'/>", "<!--@--><a/>", "<?i@?><a/>", "<a/>@",
        "<a><![CDATA[@]]></a>", "<a>&@;</a>", "<!DOCTYPE a@><a/>", "<?xml version='1.0'@?><a/>",
        "<!DOCTYPE a PUBLIC '@' 'b'><a/>", "<a><@/></a>", "<a></a@>"})
    for (unsigned first = 1; first < 256; ++first)
      for (const char second : significant) {
        const std::string bytes{static_cast<char>(first), second};
        const std::string text = with(frame, bytes);
        ASSERT_EQ(engines::disagreement(text.c_str()), "") << text;
      }
}

// ---- Blocks of sixteen bytes: what means something may stand at any place in one

TEST(Blocks, make_no_difference_wherever_they_begin) {
  for (std::size_t before = 0; before < 40; ++before) {
    const std::string filling(before, 'x');
    for (const char* piece : {"<b/>", "&lt;", "]]>", "]", "\r\n", "\n", "\xC3\xA9", "\x01", "&",
                              "'", "\"", "<![CDATA[]]>", "<!---->", "=", ">", "\xC3"}) {
      const std::string data = filling + piece;
      for (const std::string& text :
           {"<a>" + data + "</a>", "<a b='" + data + "'/>", "<a b=\"" + data + "\" c='1'/>",
            "<" + data + "/>", "<a>" + data + "x</a>                  ", "<a>" + data,
            "<a><![CDATA[" + data + "]]></a>", "<!--" + data + "--><a/>"})
        ASSERT_EQ(engines::disagreement(text.c_str()), "") << text;
    }
  }
}

// ---- Names that are looked up

TEST(Names, that_share_beginning_length_and_end_stay_apart) {
  EXPECT_EQ(outline_of(engines::scanned("<r><sixteen-A-and-more/><sixteen-B-and-more/></r>")),
            "r {sixteen-A-and-more sixteen-B-and-more}");
  EXPECT_EQ(
      outline_of(engines::scanned("<a12345678><a1234567/><b12345678/><a12345679/></a12345678>")),
      "a12345678 {a1234567 b12345678 a12345679}");
}

TEST(Names, beyond_those_that_are_numbered_may_not_be_doubled_either) {
  std::string attributes;
  for (int i = 0; i < 5000; ++i) attributes += " a" + std::to_string(i) + "='1'";
  const std::string doubled = "<r" + attributes + " a4321=''/>";
  EXPECT_EQ(engines::scanned(doubled.c_str()).error(), "line 1, column 1: duplicate attribute");
  EXPECT_EQ(engines::disagreement(doubled.c_str()), "");
  EXPECT_EQ(engines::disagreement(("<r" + attributes + "/>").c_str()), "");
}

}  // namespace
