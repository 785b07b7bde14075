// How a text grows under the writer: from nothing, behind what is there, to any length, and
// until memory runs out.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "cim_client.h"
#include "support/allocations.h"
#include "support/written.h"

namespace {

using support::FailingAllocation;
using support::text;
using support::written;

char* heap_copy(const std::string& from) { return strdup(from.c_str()); }

// ---- What is there already ----

TEST(Text, continues_the_output_it_is_given) {
  char* output = heap_copy("before");
  Property property{.name = text("a")};
  EXPECT_EQ(Gen_Property(&property, &output), 0);
  EXPECT_STREQ(output, "before<PROPERTY NAME=\"a\"></PROPERTY>");
  EXPECT_EQ(Gen_CIMType(text("uint8"), &output), 0);
  EXPECT_STREQ(output, "before<PROPERTY NAME=\"a\"></PROPERTY> TYPE=\"uint8\"");
  std::free(output);
}

TEST(Text, continues_an_empty_output) {
  char* output = heap_copy("");
  Gen_CIMName(text("a"), &output);
  EXPECT_STREQ(output, "\"a\"");
  std::free(output);
}

TEST(Text, document_follows_the_output_it_is_given) {
  char* output = heap_copy("before");
  CIM root{.cimVersion = text("2.0"), .dtdVersion = text("2.0")};
  EXPECT_EQ(Gen_CIM(&root, &output), 0);
  EXPECT_STREQ(output,
               "before<?xml version=\"1.0\" encoding=\"utf-8\"?>"
               "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"></CIM>");
  std::free(output);
}

TEST(Text, grows_over_many_appends) {
  char* output = nullptr;
  std::string expected;
  for (int i = 0; i < 2000; ++i) {
    const std::string name = "name" + std::to_string(i);
    Gen_CIMName(text(name.c_str()), &output);
    expected += '"' + name + '"';
  }
  EXPECT_EQ(output, expected);
  std::free(output);
}

// ---- Length ----

// Every length around the sizes at which texts are copied and grow in another way.
TEST(Text, texts_of_every_short_length_are_kept_whole) {
  for (std::size_t length = 0; length <= 2100; ++length) {
    std::string content(length, ' ');
    for (std::size_t i = 0; i < length; ++i) content[i] = static_cast<char>('!' + i % 90);
    Value value{.text = content.data()};
    ASSERT_EQ(written(Gen_Value, &value), "<VALUE>" + content + "</VALUE>") << length;
    ASSERT_EQ(written(Gen_CIMName, content.data()), '"' + content + '"') << length;
  }
}

TEST(Text, a_value_of_1_mb_is_kept_whole) {
  std::string content(1 << 20, 'x');
  content.front() = '<';
  content.back() = '&';
  Value value{.text = content.data()};
  EXPECT_EQ(written(Gen_Value, &value), "<VALUE>" + content + "</VALUE>");
}

TEST(Text, attributes_and_names_of_100_kb_are_kept_whole) {
  std::string content(100 << 10, 'n');
  Property property{.name = content.data(), .type = content.data()};
  EXPECT_EQ(written(Gen_Property, &property),
            "<PROPERTY NAME=\"" + content + "\" TYPE=\"" + content + "\"></PROPERTY>");
  Error error{.code = text("1"), .description = content.data()};
  EXPECT_EQ(written(Gen_Error, &error),
            "<ERROR CODE=\"1\" DESCRIPTION=\"" + content + "\"></ERROR>");
}

TEST(Text, a_list_of_100000_nodes_is_written_whole) {
  std::vector<Value> values(100000, Value{.text = text("v")});
  for (std::size_t i = 0; i + 1 < values.size(); ++i) values[i].next = &values[i + 1];
  std::string expected;
  for (std::size_t i = 0; i < values.size(); ++i) expected += "<VALUE>v</VALUE>";
  EXPECT_EQ(written(Gen_Value, values.data()), expected);
}

// ---- Memory that runs out ----

TEST(Text, stays_null_when_there_is_no_memory_at_all) {
  char* output = nullptr;
  Property property{.name = text("a")};
  int result = -1;
  {
    FailingAllocation first(0);
    result = Gen_Property(&property, &output);
  }
  EXPECT_EQ(result, 0);
  EXPECT_EQ(output, nullptr);
}

TEST(Text, stays_as_it_was_when_there_is_no_memory_to_go_on) {
  char* output = heap_copy("before");
  Property property{.name = text("a")};
  {
    FailingAllocation first(0);
    Gen_Property(&property, &output);
  }
  EXPECT_STREQ(output, "before");
  std::free(output);
}

TEST(Text, of_an_empty_list_stays_null_when_there_is_no_memory) {
  char* output = nullptr;
  Value nothing{};
  {
    FailingAllocation first(0);
    Gen_Value(&nothing, &output);
  }
  EXPECT_EQ(output, nullptr);
}

// Short texts would fit behind a long one for which memory ran out: they are not written.
TEST(Text, ends_for_good_where_memory_ran_out) {
  std::string content(100000, 'x');
  Value third{.text = text("c")};
  Value second{.text = content.data(), .next = &third};
  Value first{.text = text("a"), .next = &second};
  ValueArray array{.values = &first};
  char* output = nullptr;
  {
    FailingAllocation growing(1);
    Gen_ValueArray(&array, &output);
  }
  EXPECT_STREQ(output, "<VALUE.ARRAY><VALUE>a</VALUE><VALUE>");
  std::free(output);
}

// Whichever allocation fails, what comes out is a beginning of the whole text, without end.
TEST(Text, is_a_true_beginning_whichever_allocation_fails) {
  std::string content(300, 'x');
  std::vector<Property> properties(50);
  Value value{.text = content.data()};
  for (std::size_t i = 0; i < properties.size(); ++i) {
    properties[i] = {.value = &value, .name = text("name")};
    if (i) properties[i - 1].next = &properties[i];
  }
  Instance instance{.properties = properties.data()};
  const std::string whole = written(Gen_Instance, &instance);

  char* output = nullptr;
  const std::size_t allocations =
      support::fail_each_allocation([&] { Gen_Instance(&instance, &output); },
                                    [&] {
                                      const std::string cut = output ? output : "";
                                      EXPECT_LT(cut.size(), whole.size());
                                      EXPECT_EQ(cut, whole.substr(0, cut.size()));
                                      std::free(output);
                                      output = nullptr;
                                    });
  EXPECT_EQ(output, whole);
  EXPECT_GE(allocations, 2U);
  std::free(output);
}

}  // namespace
