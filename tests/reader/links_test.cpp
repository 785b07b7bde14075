// Which record holds which: every pair of elements, once in a document and once by the builder.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string>
#include <vector>

#include "reader/elements.h"
#include "reader/reading.h"
#include "support/allocations.h"
#include "support/document.h"

namespace {

using elements::Element;
using elements::Link;
using elements::pointer_at;
using reading::Tree;

// The places in a record, a pointer wide, that are not zero.
std::vector<std::size_t> filled_places(const void* record, const Element& element) {
  std::vector<std::size_t> places;
  if (element.size < sizeof(void*)) {
    if (*static_cast<const char*>(record)) places.push_back(0);
    return places;
  }
  for (std::size_t at = 0; at < element.size; at += sizeof(void*))
    if (pointer_at(record, at)) places.push_back(at);
  return places;
}

// The places that ought not to be zero when the record holds what is at `link` and nothing else.
std::vector<std::size_t> expected_places(const Element& element, const Link* link) {
  std::vector<std::size_t> places;
  if (element.text != elements::nowhere) places.push_back(element.text);
  if (link) places.push_back(link->offset);
  return places;
}

void* next_of(const void* record, const Element& element) {
  return element.next == elements::nowhere ? nullptr : pointer_at(record, element.next);
}

std::string tag(const Element& element) { return std::string("<") + element.name + "/>"; }

std::string open(const Element& element, const std::string& content) {
  return std::string("<") + element.name + ">" + content + "</" + element.name + ">";
}

// The elements as test parameters, which print as their names.
class Pairs : public testing::TestWithParam<Element> {
 protected:
  void SetUp() override { reading::start_over(); }
  void TearDown() override { reading::start_over(); }
};

std::string test_name(const testing::TestParamInfo<Element>& info) {
  std::string name = info.param.name;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return !std::isalnum(c); }, '_');
  return name;
}

// The document is CIM, the parent element, the child element: map[1] is the parent's entry.
TEST_P(Pairs, a_child_is_in_the_field_of_its_kind_or_nowhere) {
  const Element& parent = GetParam();
  for (const Element& child : elements::all) {
    SCOPED_TRACE(child.name);
    const Tree tree = reading::read(reading::document(open(parent, tag(child))));
    const void* record = map[1].address;
    ASSERT_TRUE(record);
    const Link* link = elements::find_link(parent.name, child.name);
    EXPECT_EQ(filled_places(record, parent), expected_places(parent, link));
    if (link) {
      EXPECT_FALSE(next_of(pointer_at(record, link->offset), child));
    }
  }
}

TEST_P(Pairs, a_second_child_is_appended_or_replaces_the_first) {
  const Element& parent = GetParam();
  for (const Element& child : elements::all) {
    SCOPED_TRACE(child.name);
    const Tree tree = reading::read(reading::document(open(parent, tag(child) + tag(child))));
    const void* record = map[1].address;
    ASSERT_TRUE(record);
    const Link* link = elements::find_link(parent.name, child.name);
    EXPECT_EQ(filled_places(record, parent), expected_places(parent, link));
    if (!link) continue;
    const void* second = next_of(pointer_at(record, link->offset), child);
    EXPECT_EQ(second != nullptr, link->list);
    if (second) {
      EXPECT_FALSE(next_of(second, child));
    }
  }
}

TEST_P(Pairs, no_child_outlives_the_document) {
  const Element& parent = GetParam();
  for (const Element& child : elements::all) {
    SCOPED_TRACE(child.name);
    const std::string text = reading::document(open(parent, tag(child) + tag(child)));
    const long living = support::living_blocks();
    parseXML(text.c_str());
    EXPECT_GT(support::living_blocks(), living);
    reading::start_over();
    EXPECT_EQ(support::living_blocks(), living);
  }
}

TEST_P(Pairs, the_builder_links_as_the_walk_does) {
  const Element& child = GetParam();
  for (const Element& parent : elements::all) {
    SCOPED_TRACE(parent.name);
    support::Document document;
    XmlNode* first = document.element(child.name);
    XmlNode* second = document.element(child.name);
    document.element(parent.name, {}, {first, second});

    std::vector<void*> record(parent.size / sizeof(void*) + 1, nullptr);
    StackEntry entry{};
    ASSERT_EQ(child.build(&entry, first, record.data()), &entry);
    const Link* link = elements::find_link(parent.name, child.name);
    EXPECT_EQ(filled_places(record.data(), parent),
              link ? std::vector<std::size_t>{link->offset} : std::vector<std::size_t>{});
    if (child.name == std::string("CIM")) {
      child.release(entry.address);  // the one builder whose entry names a childless element
      continue;
    }
    if (!link) continue;

    child.build(&entry, second, record.data());
    void* held = pointer_at(record.data(), link->offset);
    EXPECT_EQ(next_of(held, child) != nullptr, link->list);
    child.release(held);
  }
}

INSTANTIATE_TEST_SUITE_P(Of, Pairs, testing::ValuesIn(elements::all), test_name);

class BuilderOnly : public Pairs {};

// The link of an element that one parent holds.
const Link& only_link_of(const Element& child) {
  return *std::find_if(std::begin(elements::builder_only_links),
                       std::end(elements::builder_only_links),
                       [&](const Link& link) { return link.child == std::string(child.name); });
}

TEST_P(BuilderOnly, is_linked_by_its_builder) {
  const Element& child = GetParam();
  const Link& link = only_link_of(child);
  support::Document document;
  XmlNode* node = document.element(child.name);
  document.element(link.parent, {}, {node});

  std::vector<void*> record(16, nullptr);
  StackEntry entry{};
  child.build(&entry, node, record.data());
  void* held = pointer_at(record.data(), link.offset);
  ASSERT_TRUE(held);
  EXPECT_EQ(std::count(record.begin(), record.end(), nullptr), 15);
  child.release(held);
}

TEST_P(BuilderOnly, is_passed_over_in_a_document) {
  const Element& child = GetParam();
  const Element& parent = *elements::find(only_link_of(child).parent);
  const Tree tree = reading::read(reading::document(open(parent, tag(child))));
  EXPECT_TRUE(filled_places(map[1].address, parent).empty());
}

INSTANTIATE_TEST_SUITE_P(Of, BuilderOnly, testing::ValuesIn(elements::builder_only), test_name);

TEST(Link, every_linked_pair_is_listed_once) {
  for (const Link& link : elements::links) {
    EXPECT_TRUE(elements::find(link.parent)) << link.parent;
    EXPECT_TRUE(elements::find(link.child)) << link.child;
    EXPECT_EQ(elements::find_link(link.parent, link.child), &link);
  }
}

}  // namespace
