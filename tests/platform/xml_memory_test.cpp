// Memory that runs out at each allocation of a parse, whoever makes it.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "XMLParser.h"
#include "support/allocations.h"

namespace {

// Every kind of node, a text that outgrows several chunks, more names than are numbered, and deep
// enough that Expat allocates for it too.  `prolog` says what goes before.
std::string rich_document(const std::string& prolog) {
  std::string text = prolog + "<r a='1' b='" + std::string(30000, 'v') + "'>";
  for (int i = 0; i < 100; ++i) text += "<name" + std::to_string(i) + " x='1'>";
  text += "t&amp;<![CDATA[c]]>" + std::string(200000, 'u');
  for (int i = 99; i >= 0; --i) text += "</name" + std::to_string(i) + ">";
  text += "<s";
  for (int i = 0; i < 400; ++i) text += " a" + std::to_string(i) + "=''";
  return text + ">  </s><!-- c --></r>";
}

// Returns how many allocations the document takes.
std::size_t refused_at_each_allocation(const std::string& text) {
  const long blocks = support::living_blocks();
  XmlParseState state;
  XmlDocument* document = nullptr;
  const std::size_t allocations =
      support::fail_each_allocation([&] { document = parseText(&state, text.c_str()); },
                                    [&] {
                                      EXPECT_EQ(document, nullptr);
                                      EXPECT_STREQ(getErrorText(&state), "out of memory");
                                      EXPECT_EQ(support::living_blocks(), blocks);
                                    });
  EXPECT_NE(document, nullptr);
  EXPECT_STREQ(getErrorText(&state), "");
  freeXMLDoc(document);
  EXPECT_EQ(support::living_blocks(), blocks);
  return allocations;
}

TEST(MemoryThatRunsOut, at_any_allocation_refuses_the_document_and_leaks_nothing) {
  EXPECT_GT(refused_at_each_allocation(rich_document("<?xml version=\"1.0\"?>")), 5U);
}

#ifdef XML_LIBRARY_HAS_EXPAT
TEST(MemoryThatRunsOut, at_any_allocation_for_declarations_refuses_the_document) {
  const std::string prolog = "<!DOCTYPE r [<!ATTLIST r d CDATA 'default'>]>";
  EXPECT_GT(refused_at_each_allocation(rich_document(prolog)), 100U);
}
#endif

// Of a text that fills its chunk to the last byte, nothing but the NUL needs more memory.
TEST(MemoryThatRunsOut, at_the_end_of_a_text_of_any_length_refuses_the_document) {
  for (std::size_t length = 15900; length < 16400; ++length) {
    const std::string text = "<a>" + std::string(length, 'x') + "</a>";
    const long blocks = support::living_blocks();
    XmlDocument* document = nullptr;
    support::fail_each_allocation([&] { document = parseText(nullptr, text.c_str()); },
                                  [&] {
                                    EXPECT_EQ(document, nullptr) << length;
                                    EXPECT_EQ(support::living_blocks(), blocks) << length;
                                  });
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(std::strlen(document->root->firstChild->nodeValue), length);
    freeXMLDoc(document);
  }
}

TEST(MemoryThatRunsOut, in_a_document_that_is_not_well_formed_leaks_nothing) {
  const std::string text = rich_document("") + "<";
  const long blocks = support::living_blocks();
  const auto attempt = [&] { EXPECT_EQ(parseText(nullptr, text.c_str()), nullptr); };
  support::fail_each_allocation(attempt, [&] { EXPECT_EQ(support::living_blocks(), blocks); });
  EXPECT_EQ(support::living_blocks(), blocks);
}

TEST(Memory, of_a_small_document_is_one_block) {
  const long blocks = support::living_blocks();
  XmlDocument* document = parseText(nullptr, "<a b='1'>x<c/></a>");
  EXPECT_EQ(support::living_blocks(), blocks + 1);
  freeXMLDoc(document);
  EXPECT_EQ(support::living_blocks(), blocks);
}

TEST(Memory, of_a_million_nodes_is_a_few_dozen_blocks) {
  std::string text = "<a>";
  for (int i = 0; i < 1000000; ++i) text += "<b/>";
  text += "</a>";
  const long blocks = support::living_blocks();
  XmlDocument* document = parseText(nullptr, text.c_str());
  EXPECT_LT(support::living_blocks(), blocks + 50);
  freeXMLDoc(document);
  EXPECT_EQ(support::living_blocks(), blocks);
}

}  // namespace
