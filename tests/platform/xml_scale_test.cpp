// Documents that are deep, wide or long, and pieces that fall anywhere.
#include <gtest/gtest.h>
#include <pthread.h>

#include <cstring>
#include <ctime>
#include <functional>
#include <string>

#include "platform/outline.h"
#include "support/scale.h"

namespace {

using support::scaled;

constexpr std::size_t piece = 64 * 1024;  // bytes; texts are fed to the parser in such pieces

std::string repeated(const std::string& text, int count) {
  std::string result;
  result.reserve(text.size() * static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

// Runs `work` in a thread with a stack of 128 KB.
void with_a_small_stack(std::function<void()> work) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 128 * 1024), 0);
  pthread_t thread;
  const auto run = [](void* what) -> void* {
    (*static_cast<std::function<void()>*>(what))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

int depth_of(const XmlNode* node) {
  int levels = 0;
  for (; node; node = node->firstChild) ++levels;
  return levels;
}

TEST(Depth, of_65_levels_is_read) {
  const std::string text = repeated("<a>", 65) + "x" + repeated("</a>", 65);
  EXPECT_EQ(outline_of(text.c_str()), repeated("a {", 64) + "a {\"x\"}" + repeated("}", 64));
}

TEST(Depth, of_a_million_levels_needs_no_stack) {
  with_a_small_stack([] {
    const int levels = scaled(1000000);
    const std::string text = repeated("<a>", levels) + repeated("</a>", levels);
    XmlDocument* document = parseText(nullptr, text.c_str());
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(depth_of(document->root), levels);
    freeXMLDoc(document);
  });
}

TEST(Depth, of_a_million_unclosed_levels_is_refused) {
  const std::string text = repeated("<a>", 1000000);
  EXPECT_EQ(outline_of(text.c_str()), "refused: line 1, column 3000001: no element found");
}

TEST(Width, of_a_million_siblings_keeps_them_all_in_order) {
  const int siblings = scaled(1000000);
  std::string text = "<r>";
  for (int i = 0; i < siblings; ++i) text += i % 2 ? "<b/>" : "<a n='" + std::to_string(i) + "'/>";
  XmlDocument* document = parseText(nullptr, (text + "</r>").c_str());
  ASSERT_NE(document, nullptr);
  int count = 0;
  for (const XmlNode* n = document->root->firstChild; n; n = n->nextSibling, ++count) {
    ASSERT_STREQ(n->nodeName, count % 2 ? "b" : "a");
    ASSERT_EQ(n->parentNode, document->root);
    if (count % 2 == 0) {
      ASSERT_EQ(n->attributes->nodeValue, std::to_string(count));
    }
  }
  EXPECT_EQ(count, siblings);
  freeXMLDoc(document);
}

TEST(Width, of_100000_attributes_keeps_them_all) {
  const int attributes = scaled(100000);
  std::string text = "<r";
  for (int i = 0; i < attributes; ++i)
    text += " a" + std::to_string(i) + "='" + std::to_string(i) + "'";
  XmlDocument* document = parseText(nullptr, (text + "/>").c_str());
  ASSERT_NE(document, nullptr);
  int count = 0;
  for (const XmlNode* a = document->root->attributes; a; a = a->nextSibling, ++count)
    ASSERT_EQ(a->nodeValue, std::to_string(count));
  EXPECT_EQ(count, attributes);
  freeXMLDoc(document);
}

// A value that differs everywhere, so that a piece lost or moved shows.
std::string varied(int length) {
  std::string value(static_cast<std::size_t>(length), '\0');
  std::uint32_t state = 1;
  for (char& c : value) {
    state = state * 1664525U + 1013904223U;
    c = static_cast<char>('a' + state % 26U);
  }
  return value;
}

TEST(LongValue, of_100_megabytes_comes_out_as_it_went_in) {
  const std::string value = varied(scaled(100'000'000));
  XmlDocument* document = parseText(nullptr, ("<a>" + value + "</a>").c_str());
  ASSERT_NE(document, nullptr);
  const XmlNode& text = *document->root->firstChild;
  EXPECT_TRUE(text.nodeValue == value);
  EXPECT_EQ(text.nextSibling, nullptr);
  freeXMLDoc(document);
}

TEST(LongValue, in_cdata_or_an_attribute_comes_out_as_it_went_in) {
  const std::string value = varied(scaled(10'000'000));
  XmlDocument* document =
      parseText(nullptr, ("<a b='" + value + "'><![CDATA[" + value + "]]></a>").c_str());
  ASSERT_NE(document, nullptr);
  EXPECT_TRUE(document->root->attributes->nodeValue == value);
  EXPECT_TRUE(document->root->firstChild->nodeValue == value);
  freeXMLDoc(document);
}

TEST(LongValue, of_references_alone_is_one_text) {
  XmlDocument* document = parseText(nullptr, ("<a>" + repeated("&amp;", 1000000) + "</a>").c_str());
  ASSERT_NE(document, nullptr);
  EXPECT_TRUE(document->root->firstChild->nodeValue == std::string(1000000, '&'));
  EXPECT_EQ(document->root->firstChild->nextSibling, nullptr);
  freeXMLDoc(document);
}

TEST(LongName, of_a_million_bytes_is_kept_whole) {
  const std::string name = varied(scaled(1'000'000));
  XmlDocument* document = parseText(nullptr, ("<" + name + " " + name + "='1'/>").c_str());
  ASSERT_NE(document, nullptr);
  EXPECT_TRUE(document->root->nodeName == name);
  EXPECT_TRUE(document->root->attributes->nodeName == name);
  freeXMLDoc(document);
}

// ---- Time

double seconds_for(const std::string& text) {
  timespec before = {};
  timespec after = {};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &before);
  freeXMLDoc(parseText(nullptr, text.c_str()));
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &after);
  return static_cast<double>(after.tv_sec - before.tv_sec) +
         static_cast<double>(after.tv_nsec - before.tv_nsec) * 1e-9;
}

// Read again from its beginning with every piece, such a token would take 256 times as long.
TEST(Time, of_a_token_that_spans_many_pieces_does_not_grow_with_their_square) {
  const std::string filling(32 * 1024 * 1024, 'x');
  const double in_content = seconds_for("<a>" + filling + "</a>");
  EXPECT_LT(seconds_for("<a b='" + filling + "'/>"), 20 * in_content);
  EXPECT_LT(seconds_for("<!--" + filling + "--><a/>"), 20 * in_content);
  EXPECT_LT(seconds_for("<a b='" + filling), 20 * in_content);
}

TEST(Time, of_distinct_names_does_not_grow_with_their_square) {
  const auto names = [](int count) {
    std::string text = "<r>";
    for (int i = 0; i < count; ++i) text += "<n" + std::to_string(i) + "/>";
    return text + "</r>";
  };
  EXPECT_LT(seconds_for(names(200000)), 100 * seconds_for(names(10000)));  // squared: 400
}

// ---- Pieces

struct Construct {
  const char* name;
  const char* document;
};

class PieceBoundary : public testing::TestWithParam<Construct> {};

// Moves the document over the end of the first piece, byte by byte, behind a long comment.
TEST_P(PieceBoundary, anywhere_within_makes_no_difference) {
  const std::string document = GetParam().document;
  const std::string expected = outline_of(document.c_str());
  ASSERT_EQ(expected.rfind("refused", 0), expected.npos) << expected;
  const std::string frame = "<!---->";
  for (std::size_t inside = 0; inside <= document.size(); ++inside) {
    const std::string comment = "<!--" + std::string(piece - inside - frame.size(), 'c') + "-->";
    EXPECT_EQ(outline_of((comment + document).c_str()), expected) << inside;
  }
}

constexpr Construct constructs[] = {
    {"in_names", "<element attribute='1'><inner/></element>"},
    {"in_text", "<a>text that is cut</a>"},
    {"in_characters_of_several_bytes", "<é 名='ü😀'>é中😀</é>"},
    {"in_references", "<a b='&lt;&#65;&#x1F600;'>&amp;&#66;&#x4e2d;&quot;</a>"},
    {"in_line_ends", "<a>\r\n1\r\n\r2\r</a>"},
    {"in_cdata_sections", "<a>x<![CDATA[1]]><![CDATA[]]]]>y</a>"},
    {"in_comments_and_instructions", "<a>1<!-- - -->2<?i x?>3</a>"},
    {"in_white_space", "<a> <b> </b> <c/> \n </a>"},
#ifdef XML_LIBRARY_HAS_EXPAT
    {"in_a_document_type", "<!DOCTYPE a SYSTEM 'x' [<!ATTLIST a b CDATA 'c&lt;'>]><a d='&gt;'/>"},
#endif
};

INSTANTIATE_TEST_SUITE_P(Xml, PieceBoundary, testing::ValuesIn(constructs),
                         [](const auto& test) { return std::string(test.param.name); });

#ifdef XML_LIBRARY_HAS_EXPAT
TEST(Pieces, refuse_an_entity_declaration_cut_anywhere) {
  const std::string document = "<!DOCTYPE a [<!ENTITY b 'c'>]><a/>";
  for (std::size_t inside = 0; inside <= document.size(); ++inside) {
    const std::string comment = "<!--" + std::string(piece - inside - 7, 'c') + "-->";
    const std::string result = outline_of((comment + document).c_str());
    EXPECT_NE(result.find("entity declarations are not accepted"), result.npos) << inside;
  }
}
#endif

TEST(Pieces, check_references_in_tags_cut_anywhere) {
  const std::string document = "<!DOCTYPE a SYSTEM 'x'><a b='&lt;' c='&d;'/>";
  for (std::size_t inside = 0; inside <= document.size(); ++inside) {
    const std::string comment = "<!--" + std::string(piece - inside - 7, 'c') + "-->";
    const std::string result = outline_of((comment + document).c_str());
    EXPECT_NE(result.find("reference to an entity that is not declared"), result.npos) << inside;
  }
}

TEST(Pieces, of_texts_one_byte_around_their_ends_lose_nothing) {
  for (const std::size_t pieces : {1U, 2U, 3U}) {
    for (std::size_t length = pieces * piece - 10; length < pieces * piece + 10; ++length) {
      const std::string value = varied(static_cast<int>(length));
      XmlDocument* document = parseText(nullptr, ("<a>" + value + "</a>").c_str());
      ASSERT_NE(document, nullptr);
      EXPECT_TRUE(document->root->firstChild->nodeValue == value) << length;
      EXPECT_EQ(document->root->firstChild->nextSibling, nullptr) << length;
      freeXMLDoc(document);
    }
  }
}

}  // namespace
