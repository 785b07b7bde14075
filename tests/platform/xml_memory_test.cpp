// Memory that runs out at each allocation of a parse, the XML library's and Expat's alike.
#include <gtest/gtest.h>

#include <string>

#include "platform/failing_memory.h"
#include "platform/outline.h"

namespace {

// Every kind of node, a text that outgrows several chunks, many names, and deep enough that
// Expat allocates for it too.
std::string rich_document() {
  std::string text =
      "<?xml version=\"1.0\"?><!DOCTYPE r [<!ATTLIST r d CDATA 'default'>]>"
      "<r a='1' b='" +
      std::string(30000, 'v') + "'>";
  for (int i = 0; i < 100; ++i) text += "<name" + std::to_string(i) + " x='1'>";
  text += "t&amp;<![CDATA[c]]>" + std::string(200000, 'u');
  for (int i = 99; i >= 0; --i) text += "</name" + std::to_string(i) + ">";
  return text + "<s>  </s><!-- c --></r>";
}

struct Outcome {
  std::string result;  // outline, or "refused: " and the error text
  Counted counted;
};

Outcome parse_with_failure_at(int number, bool lasting, const std::string& text) {
  XmlParseState state;
  start_counting(number, lasting);
  XmlDocument* document = parseText(&state, text.c_str());
  stop_counting();
  std::string result =
      document ? outline(*document->root) : std::string("refused: ") + getErrorText(&state);
  freeXMLDoc(document);

  // Once more without looking at the document, so that only its own blocks count.
  start_counting(number, lasting);
  freeXMLDoc(parseText(nullptr, text.c_str()));
  return {result, stop_counting()};
}

void sweep(bool lasting) {
  const std::string text = rich_document();
  const Outcome whole = parse_with_failure_at(0, lasting, text);
  ASSERT_EQ(whole.result.rfind("refused", 0), whole.result.npos);
  ASSERT_EQ(whole.counted.held, 0);
  ASSERT_GT(whole.counted.allocations, 100);
  for (int number = 1; number <= whole.counted.allocations; ++number) {
    const Outcome outcome = parse_with_failure_at(number, lasting, text);
    EXPECT_EQ(outcome.result, "refused: out of memory") << number;
    EXPECT_EQ(outcome.counted.held, 0) << number;
  }
}

TEST(MemoryThatRunsOut, once_at_any_allocation_refuses_the_document_and_leaks_nothing) {
  sweep(/*lasting=*/false);
}

TEST(MemoryThatRunsOut, for_good_at_any_allocation_refuses_the_document_and_leaks_nothing) {
  sweep(/*lasting=*/true);
}

TEST(MemoryThatRunsOut, in_a_document_that_is_not_well_formed_leaks_nothing) {
  const std::string text = rich_document() + "<";
  start_counting(0, false);
  EXPECT_EQ(parseText(nullptr, text.c_str()), nullptr);
  const Counted whole = stop_counting();
  EXPECT_EQ(whole.held, 0);
  for (int number = 1; number <= whole.allocations; ++number) {
    start_counting(number, false);
    XmlDocument* document = parseText(nullptr, text.c_str());
    EXPECT_EQ(stop_counting().held, 0) << number;
    EXPECT_EQ(document, nullptr) << number;
  }
}

TEST(Memory, of_a_small_document_is_one_block) {
  start_counting(0, false);
  XmlDocument* document = parseText(nullptr, "<a b='1'>x<c/></a>");
  EXPECT_EQ(stop_counting().held, 1);
  freeXMLDoc(document);
}

TEST(Memory, of_a_million_nodes_is_a_few_dozen_blocks) {
  std::string text = "<a>";
  for (int i = 0; i < 1000000; ++i) text += "<b/>";
  text += "</a>";
  start_counting(0, false);
  XmlDocument* document = parseText(nullptr, text.c_str());
  EXPECT_LT(stop_counting().held, 50);
  freeXMLDoc(document);
}

}  // namespace
