// An object manager whose answer is well framed, and whose document means no good.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hostile/asking.h"
#include "support/scale.h"

namespace hostile {
namespace {

// `count` times the same.
std::string repeated(const std::string& text, int count) {
  std::string all;
  all.reserve(text.size() * static_cast<std::size_t>(count));
  for (; count > 0; --count) all += text;
  return all;
}

std::string nested(const std::string& name, int levels) {
  return repeated("<" + name + ">", levels) + repeated("</" + name + ">", levels);
}

// ---- Size: time and memory grow with the document, and the stack does not ----

TEST(HostileSize, a_million_levels_of_unknown_elements) {
  const std::string http = answer(document(nested("a", support::scaled(1000000))));
  const Bounds bounds(60, 400);
  EXPECT_EQ(ask(http), "null");
}

TEST(HostileSize, a_million_levels_of_known_elements) {
  const std::string http =
      answer(document(nested("VALUE.OBJECTWITHPATH", support::scaled(1000000))));
  const Bounds bounds(60, 700);
  EXPECT_EQ(ask(http), "null");
}

TEST(HostileSize, a_million_levels_that_never_close) {
  const std::string http = answer(document(repeated("<INSTANCE>", support::scaled(1000000))));
  const Bounds bounds(60, 400);
  EXPECT_EQ(ask(http), "null");
}

TEST(HostileSize, a_million_instances_arrive) {
  const int count = support::scaled(1000000);
  const std::string http = answer(document(instances(count)));
  const Bounds bounds(60, 500);
  EXPECT_EQ(ask(http), std::to_string(count) + " instances");
}

TEST(HostileSize, a_million_unknown_siblings_are_left_out) {
  const std::string http =
      answer(document(repeated("<x/>", support::scaled(1000000)) + instances(1)));
  const Bounds bounds(60, 300);
  EXPECT_EQ(ask(http), "1 instance");
}

TEST(HostileSize, a_hundred_thousand_attributes_do_no_harm) {
  std::string attributes;
  for (int i = support::scaled(100000); i > 0; --i) attributes += " a" + std::to_string(i) + "=''";
  const std::string http = answer(document("<VALUE.NAMEDINSTANCE" + attributes + "/>"));
  const Bounds bounds(60, 100);
  EXPECT_EQ(ask(http), "1 instance");
}

TEST(HostileSize, a_value_of_100_megabytes_arrives) {
  const int size = support::scaled(100000000);
  const std::string http =
      answer(document(instance_with(std::string(static_cast<std::size_t>(size), 'v'))));
  const Bounds bounds(120, 800);
  EXPECT_EQ(ask(http), "1 instance, " + std::to_string(size) + " bytes");
}

// Each is one byte of text.
TEST(HostileSize, a_million_character_references_arrive) {
  const int count = support::scaled(1000000);
  const std::string http = answer(document(instance_with(repeated("&#65;", count))));
  const Bounds bounds(60, 100);
  EXPECT_EQ(ask(http), "1 instance, " + std::to_string(count) + " bytes");
}

TEST(HostileSize, a_name_of_a_megabyte_is_no_known_one) {
  const std::string name(static_cast<std::size_t>(support::scaled(1000000)), 'N');
  const std::string http = answer(document("<" + name + "/>" + instances(1)));
  const Bounds bounds(60, 50);
  EXPECT_EQ(ask(http), "1 instance");
}

// An element without an end tag owes none, however many others are owed.
TEST(HostileSize, an_empty_element_at_the_bottom_of_a_deep_document_is_read) {
  const int levels = support::scaled(100000);
  std::string text = document(instances(1));
  text.insert(text.find("</IRETURNVALUE>"),
              repeated("<a>", levels) + "<b c='d'/>" + repeated("</a>", levels));
  const Bounds bounds(60, 60);
  EXPECT_EQ(ask(answer(text)), "1 instance");
}

// ---- Entities: nothing is expanded, nothing is opened ----

std::string with_type(const std::string& declarations, const std::string& value) {
  std::string text = document(instance_with(value));
  return text.insert(text.find("<CIM"), "<!DOCTYPE CIM [" + declarations + "]>\n");
}

TEST(HostileEntities, that_multiply_give_nothing) {
  std::string declarations = "<!ENTITY a0 \"ha\">";
  for (int i = 1; i < 30; ++i) {
    const std::string before = "&a" + std::to_string(i - 1) + ";";
    declarations += "<!ENTITY a" + std::to_string(i) + " \"" + repeated(before, 10) + "\">";
  }
  const std::string http = answer(with_type(declarations, "&a29;"));
  const Bounds bounds(20, 16);
  EXPECT_EQ(ask(http), "null");
}

TEST(HostileEntities, of_which_a_long_one_is_used_often_give_nothing) {
  const std::string http = answer(
      with_type("<!ENTITY a \"" + std::string(100000, 'a') + "\">", repeated("&a;", 100000)));
  const Bounds bounds(20, 16);
  EXPECT_EQ(ask(http), "null");
}

TEST(HostileEntities, that_stand_for_themselves_or_for_files_give_nothing) {
  const Bounds bounds(20, 16);
  for (const char* declaration :
       {"<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">", "<!ENTITY a SYSTEM \"file:///etc/passwd\">",
        "<!ENTITY a SYSTEM \"http://127.0.0.1:9/\">", "<!ENTITY % p \"<!ENTITY a 'x'>\"> %p;",
        "<!ENTITY % p SYSTEM \"file:///etc/passwd\"> %p;", "<!ENTITY a \"x\">"})
    EXPECT_EQ(ask(answer(with_type(declaration, "&a;"))), "null") << declaration;
}

TEST(HostileEntities, that_nobody_declared_give_nothing) {
  const Bounds bounds(20, 16);
  for (const char* reference : {"&a;", "&", "&#0;", "&#xD800;", "&#x110000;", "&#99999999999999;"})
    EXPECT_EQ(ask(answer(document(instance_with(reference)))), "null") << reference;
}

TEST(HostileEntities, a_document_type_elsewhere_is_not_fetched) {
  const Bounds bounds(20, 16);
  std::string text = document(instance_with("x"));
  text.insert(text.find("<CIM"), "<!DOCTYPE CIM SYSTEM \"http://127.0.0.1:9/cim.dtd\">\n");
  const std::string given = ask(answer(text));
  EXPECT_TRUE(given == "1 instance, 1 bytes" || given == "null") << given;
}

// ---- Encodings ----

std::string declared(const std::string& encoding, const std::string& value) {
  std::string text = document(instance_with(value));
  return text.replace(text.find("utf-8"), 5, encoding);
}

TEST(HostileEncoding, bytes_that_are_no_utf_8_give_nothing) {
  const Bounds bounds(20, 16);
  for (const char* value : {"\xff", "\xc0\x80", "\xe2\x82", "\xed\xa0\x80", "\xf8\x88\x80\x80\x80",
                            "\xf4\x90\x80\x80", "\x80", "a\x01"})
    EXPECT_EQ(ask(answer(document(instance_with(value)))), "null");
}

TEST(HostileEncoding, latin_1_is_read_and_becomes_utf_8) {
  const Bounds bounds(20, 16);
  EXPECT_EQ(ask(answer(declared("iso-8859-1", "\xe4"))), "1 instance, 2 bytes");
}

TEST(HostileEncoding, that_nobody_knows_gives_nothing) {
  const Bounds bounds(20, 16);
  for (const char* encoding : {"utf-7", "ebcdic-cp-us", "x-hostile", "", "utf-16"})
    EXPECT_EQ(ask(answer(declared(encoding, "a"))), "null") << encoding;
}

// Every second byte is zero, and a zero byte ends a text.
TEST(HostileEncoding, utf_16_gives_nothing) {
  const Bounds bounds(20, 16);
  std::string wide = "\xff\xfe";
  for (const char letter : document(instances(1))) {
    wide += letter;
    wide += '\0';
  }
  EXPECT_EQ(ask(answer(wide)), "null");
}

// ---- Elements where they do not belong ----

TEST(HostileElements, that_are_doubled_or_misplaced_do_no_harm) {
  const Bounds bounds(20, 16);
  const std::string good = document(instances(1));
  const auto replaced = [&](const std::string& what, const std::string& with) {
    std::string text = good;
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
      text.replace(at, what.size(), with);
    return text;
  };
  const struct {
    std::string text;
    const char* given;
  } cases[] = {
      {good, "1 instance"},
      {replaced("<VALUE.NAMEDINSTANCE/>", "<VALUE.NAMEDINSTANCE/><VALUE.NAMEDINSTANCE/>"),
       "2 instances"},
      // An Error without code and description.
      {replaced("IRETURNVALUE", "ERROR"), "null, error  "},
      {replaced("IRETURNVALUE", "RETURNVALUE"), "null"},
      {replaced("IMETHODRESPONSE", "METHODRESPONSE"), "null"},
      {replaced("SIMPLERSP", "SIMPLEREQ"), "null"},
      {replaced("SIMPLERSP", "MULTIRSP"), "null"},
      {replaced("MESSAGE", "DECLARATION"), "null"},
      {replaced("VALUE.NAMEDINSTANCE", "CIM"), "null"},
      {replaced("VALUE.NAMEDINSTANCE", "MESSAGE"), "null"},
      {replaced("VALUE.NAMEDINSTANCE", "VALUE"), "null"},
      {replaced("<VALUE.NAMEDINSTANCE/>", ""), "null"},
  };
  for (const auto& [text, given] : cases) EXPECT_EQ(ask(answer(text)), given) << text;
}

TEST(HostileElements, two_of_a_kind_where_one_belongs_give_the_last) {
  const Bounds bounds(20, 16);
  const std::string good = document(instances(1));
  for (const char* name : {"MESSAGE", "SIMPLERSP", "IMETHODRESPONSE", "IRETURNVALUE"}) {
    const std::string open = std::string("<") + name;
    const std::string close = std::string("</") + name + ">";
    std::string text = good;
    text.insert(text.find(open), "<" + std::string(name) + "/>");
    EXPECT_EQ(ask(answer(text)), "1 instance") << name;
    std::string other = good;
    other.insert(other.find(close) + close.size(), "<" + std::string(name) + "/>");
    EXPECT_EQ(ask(answer(other)), "null") << name;
  }
}

TEST(HostileElements, two_documents_in_one_give_nothing) {
  const Bounds bounds(20, 16);
  const std::string good = document(instances(1));
  EXPECT_EQ(ask(answer(good + good)), "null");
  EXPECT_EQ(ask(answer(good + "<CIM/>")), "null");
}

}  // namespace
}  // namespace hostile
