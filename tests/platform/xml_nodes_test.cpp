// What the fields of the nodes hold, and how the nodes hang together.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "platform/outline.h"

namespace {

// A document released at the end of its scope.
class Parsed {
 public:
  explicit Parsed(const char* text) : document_(parseText(nullptr, text)) {}
  Parsed(const Parsed&) = delete;
  Parsed& operator=(const Parsed&) = delete;
  ~Parsed() { freeXMLDoc(document_); }

  const XmlNode& root() const { return *document_->root; }

 private:
  XmlDocument* document_;
};

TEST(DocumentNode, stands_above_the_root_and_is_called_document) {
  const Parsed parsed("<!-- c --><?i x?><a/><!-- c -->");
  const XmlNode& node = *parsed.root().parentNode;
  EXPECT_STREQ(node.nodeName, "#document");
  EXPECT_EQ(node.nodeNameId, 0U);
  EXPECT_EQ(node.nodeType, 9);
  EXPECT_EQ(node.nodeValue, nullptr);
  EXPECT_EQ(node.attributes, nullptr);
  EXPECT_EQ(node.parentNode, nullptr);
  EXPECT_EQ(node.nextSibling, nullptr);
  EXPECT_EQ(node.firstChild, &parsed.root());
  EXPECT_EQ(parsed.root().nextSibling, nullptr);
}

TEST(Document, begins_with_its_root) {
  XmlDocument* document = parseText(nullptr, "<a/>");
  const auto* first_member = *reinterpret_cast<XmlNode**>(document);
  EXPECT_STREQ(first_member->nodeName, "a");
  freeXMLDoc(document);
}

TEST(Element, has_no_value) {
  const Parsed parsed("<VALUE>x</VALUE>");
  const XmlNode& element = parsed.root();
  EXPECT_EQ(element.nodeType, 1);
  EXPECT_STREQ(element.nodeName, "VALUE");
  EXPECT_EQ(element.nodeValue, nullptr);
  EXPECT_EQ(element.attributes, nullptr);
}

TEST(Attribute, carries_name_and_value_and_hangs_on_no_parent) {
  const Parsed parsed(R"(<a NAME="x&amp;y" b=""/>)");
  const XmlNode& first = *parsed.root().attributes;
  EXPECT_EQ(first.nodeType, 2);
  EXPECT_STREQ(first.nodeName, "NAME");
  EXPECT_STREQ(first.nodeValue, "x&y");
  EXPECT_EQ(first.parentNode, nullptr);
  EXPECT_EQ(first.firstChild, nullptr);
  EXPECT_EQ(first.attributes, nullptr);
  const XmlNode& second = *first.nextSibling;
  EXPECT_STREQ(second.nodeName, "b");
  EXPECT_STREQ(second.nodeValue, "");
  EXPECT_EQ(second.nextSibling, nullptr);
}

TEST(Text, carries_its_data_and_length_in_bytes) {
  const Parsed parsed("<a>\xC3\xA9&lt;</a>");
  const XmlNode& text = *parsed.root().firstChild;
  EXPECT_EQ(text.nodeType, 3);
  EXPECT_STREQ(text.nodeName, "#text");
  EXPECT_EQ(text.nodeNameId, 0U);
  EXPECT_STREQ(text.nodeValue, "\xC3\xA9<");
  EXPECT_EQ(text.attributes, nullptr);
  EXPECT_EQ(text.firstChild, nullptr);
  EXPECT_EQ(text.nextSibling, nullptr);
  EXPECT_EQ(text.parentNode, &parsed.root());
}

TEST(CdataSection, is_of_type_4_and_never_without_value) {
  const Parsed parsed("<a><![CDATA[<i>]]><![CDATA[]]></a>");
  const XmlNode& first = *parsed.root().firstChild;
  EXPECT_EQ(first.nodeType, 4);
  EXPECT_STREQ(first.nodeName, "#cdata-section");
  EXPECT_EQ(first.nodeNameId, 0U);
  EXPECT_STREQ(first.nodeValue, "<i>");
  const XmlNode& second = *first.nextSibling;
  EXPECT_EQ(second.nodeType, 4);
  EXPECT_STREQ(second.nodeValue, "");
}

TEST(Nodes, know_their_parents_and_siblings) {
  const Parsed parsed("<a><b><c/></b>t<d/></a>");
  const XmlNode& a = parsed.root();
  const XmlNode& b = *a.firstChild;
  const XmlNode& c = *b.firstChild;
  const XmlNode& text = *b.nextSibling;
  const XmlNode& d = *text.nextSibling;
  EXPECT_EQ(b.parentNode, &a);
  EXPECT_EQ(c.parentNode, &b);
  EXPECT_EQ(c.nextSibling, nullptr);
  EXPECT_EQ(text.parentNode, &a);
  EXPECT_EQ(d.parentNode, &a);
  EXPECT_EQ(d.nextSibling, nullptr);
}

// ---- Name numbers

TEST(NameNumbers, start_at_1_in_order_of_appearance_and_are_shared_with_attributes) {
  const Parsed parsed(R"(<a b="1" c="2"><b a="3"/><d/></a>)");
  const XmlNode& a = parsed.root();
  EXPECT_EQ(a.nodeNameId, 1U);
  EXPECT_EQ(a.attributes->nodeNameId, 2U);
  EXPECT_EQ(a.attributes->nextSibling->nodeNameId, 3U);
  EXPECT_EQ(a.firstChild->nodeNameId, 2U);
  EXPECT_EQ(a.firstChild->attributes->nodeNameId, 1U);
  EXPECT_EQ(a.firstChild->nextSibling->nodeNameId, 4U);
}

TEST(NameNumbers, begin_anew_with_each_document) {
  const Parsed first("<a><b/></a>");
  const Parsed second("<b/>");
  EXPECT_EQ(second.root().nodeNameId, 1U);
}

TEST(NameNumbers, never_stand_for_two_names_however_many_there_are) {
  std::string text = "<r>";
  for (int round = 0; round < 2; ++round)
    for (int i = 0; i < 3000; ++i) text += "<n" + std::to_string(i) + "/>";
  const Parsed parsed((text + "</r>").c_str());

  std::map<std::string, std::uint32_t> number_of;
  std::map<std::uint32_t, std::string> name_of;
  int count = 0;
  for (const XmlNode* n = parsed.root().firstChild; n; n = n->nextSibling) {
    EXPECT_EQ(n->nodeName, std::string("n").append(std::to_string(count % 3000)));
    ++count;
    if (n->nodeNameId == 0) continue;
    EXPECT_EQ(name_of.emplace(n->nodeNameId, n->nodeName).first->second, n->nodeName);
    EXPECT_EQ(number_of.emplace(n->nodeName, n->nodeNameId).first->second, n->nodeNameId);
  }
  EXPECT_EQ(count, 6000);
}

TEST(NameNumbers, are_there_for_as_many_names_as_cim_documents_use) {
  std::string text = "<r>";
  for (int i = 0; i < 120; ++i) text += "<ELEMENT." + std::to_string(i) + "/>";
  const Parsed parsed((text + "</r>").c_str());
  for (const XmlNode* n = parsed.root().firstChild; n; n = n->nextSibling)
    EXPECT_NE(n->nodeNameId, 0U) << n->nodeName;
}

// ---- Values that stand there again and again, which nodes may share

TEST(AttributeValues, are_right_however_many_there_are_and_however_often_they_come) {
  const auto value = [](int i) {
    return std::string(static_cast<std::size_t>(i % 100), 'v') + std::to_string(i % 700);
  };
  std::string text = "<r>";
  for (int i = 0; i < 3000; ++i) text += "<a b=\"" + value(i) + "\" c='" + value(i + 1) + "'/>";
  const Parsed parsed((text + "</r>").c_str());

  int count = 0;
  for (const XmlNode* n = parsed.root().firstChild; n; n = n->nextSibling, ++count) {
    EXPECT_EQ(n->attributes->nodeValue, value(count));
    EXPECT_EQ(n->attributes->nextSibling->nodeValue, value(count + 1));
  }
  EXPECT_EQ(count, 3000);
}

TEST(AttributeValues, that_share_beginning_length_and_end_stay_apart) {
  const Parsed parsed(
      R"(<a b="beginning-1-the-end" c="beginning-2-the-end" d="beginning-1-the-end"/>)");
  EXPECT_EQ(outline(parsed.root()),
            R"(a @b="beginning-1-the-end" @c="beginning-2-the-end" @d="beginning-1-the-end")");
}

TEST(AttributeValues, are_the_same_with_references_and_without) {
  const Parsed parsed(R"(<a b="x&amp;y" c="xy" d="x&#121;" e="x&amp;y"/>)");
  EXPECT_EQ(outline(parsed.root()), R"(a @b="x&y" @c="xy" @d="xy" @e="x&y")");
}

// ---- Several documents

TEST(Documents, outlive_their_text_and_each_other) {
  std::string text = R"(<a b="1">x</a>)";
  XmlParseState state;
  XmlDocument* first = parseText(&state, text.c_str());
  text.assign(text.size(), '?');
  XmlDocument* second = parseText(&state, "<c/>");
  EXPECT_EQ(outline(*first->root), R"(a @b="1" {"x"})");
  freeXMLDoc(first);
  EXPECT_EQ(outline(*second->root), "c");
  freeXMLDoc(second);
}

TEST(Documents, are_read_in_several_threads_at_once) {
  std::vector<std::thread> threads;
  std::vector<std::string> results(4);
  for (std::size_t t = 0; t < results.size(); ++t)
    threads.emplace_back([&result = results[t], t] {
      const std::string text = "<a b=\"" + std::to_string(t) + "\">x</a>";
      for (int i = 0; i < 200; ++i) result = outline_of(text.c_str());
    });
  for (auto& thread : threads) thread.join();
  for (std::size_t t = 0; t < results.size(); ++t)
    EXPECT_EQ(results[t], "a @b=\"" + std::to_string(t) + "\" {\"x\"}");
}

TEST(Release, of_null_does_nothing) { freeXMLDoc(nullptr); }

}  // namespace
