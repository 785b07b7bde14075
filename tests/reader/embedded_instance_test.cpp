// Instances embedded in values as CDATA sections.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "reader/reading.h"
#include "support/captured_output.h"
#include "support/document.h"

namespace {

using reading::answer;
using reading::length;
using reading::read;
using reading::returned;
using reading::Tree;

const Value* value(const Tree& tree) { return returned(tree).value; }

// Reads an instance on its own; null when that fails.
class Embedded {
 public:
  explicit Embedded(const char* text) : result_(ParseCDataContent(text, &instance_)) {}
  Embedded(const Embedded&) = delete;
  Embedded& operator=(const Embedded&) = delete;
  ~Embedded() {
    if (result_ == 0) Free_Instance(instance_);
  }

  int result() const { return result_; }
  const Instance* operator->() const { return instance_; }

 private:
  Instance* instance_ = nullptr;
  int result_;
};

TEST(EmbeddedInstance, is_the_instance_of_its_value) {
  const Tree tree = read(
      answer(R"(<VALUE><![CDATA[<INSTANCE CLASSNAME="CIM_Fan"><PROPERTY NAME="a" TYPE="string">)"
             R"(<VALUE>1</VALUE></PROPERTY></INSTANCE>]]></VALUE>)"));
  EXPECT_FALSE(value(tree)->text);
  EXPECT_EQ(value(tree)->isCData, 0);
  ASSERT_TRUE(value(tree)->instance);
  EXPECT_STREQ(value(tree)->instance->className->name, "CIM_Fan");
  EXPECT_FALSE(value(tree)->instance->className->next);
  EXPECT_FALSE(value(tree)->instance->next);
}

TEST(EmbeddedInstance, may_stand_between_line_breaks_and_follow_a_value) {
  const Tree tree =
      read(answer("<VALUE>text</VALUE><VALUE>\n<![CDATA[\n<INSTANCE "
                  "CLASSNAME=\"A\">\n</INSTANCE>\n]]>\n</VALUE><VALUE/>"));
  EXPECT_STREQ(value(tree)->text, "text");
  EXPECT_STREQ(value(tree)->next->instance->className->name, "A");
  EXPECT_STREQ(value(tree)->next->next->text, "");
}

TEST(EmbeddedInstance, a_property_gives_one_record_for_its_name_and_one_for_its_type) {
  const Embedded instance(R"(<INSTANCE CLASSNAME="A">)"
                          R"(<PROPERTY NAME="a" TYPE="string"><VALUE>1</VALUE></PROPERTY>)"
                          R"(<PROPERTY TYPE="uint8" NAME="b"><VALUE>2</VALUE></PROPERTY>)"
                          "</INSTANCE>");
  ASSERT_EQ(instance.result(), 0);
  const Property* property = instance->properties;
  ASSERT_EQ(length(property), 4);
  EXPECT_STREQ(property->name, "a");
  EXPECT_FALSE(property->type);
  EXPECT_STREQ(property->value->text, "1");
  property = property->next;
  EXPECT_FALSE(property->name);
  EXPECT_STREQ(property->type, "string");
  EXPECT_STREQ(property->value->text, "1");
  property = property->next;
  EXPECT_FALSE(property->name);
  EXPECT_STREQ(property->type, "uint8");
  EXPECT_STREQ(property->value->text, "2");
  property = property->next;
  EXPECT_STREQ(property->name, "b");
  EXPECT_FALSE(property->type);
  EXPECT_STREQ(property->value->text, "2");
}

TEST(EmbeddedInstance, any_other_attribute_of_a_property_gives_a_record_with_the_value_alone) {
  const Embedded instance(
      R"(<INSTANCE><PROPERTY CLASSORIGIN="X"><VALUE>1</VALUE></PROPERTY></INSTANCE>)");
  ASSERT_EQ(length(instance->properties), 1);
  EXPECT_FALSE(instance->properties->name);
  EXPECT_FALSE(instance->properties->type);
  EXPECT_FALSE(instance->properties->classOrigin);
  EXPECT_STREQ(instance->properties->value->text, "1");
}

TEST(EmbeddedInstance, a_property_without_attributes_gives_none) {
  const Embedded instance("<INSTANCE><PROPERTY><VALUE>1</VALUE></PROPERTY></INSTANCE>");
  EXPECT_EQ(instance.result(), 0);
  EXPECT_FALSE(instance->properties);
}

TEST(EmbeddedInstance, without_text_in_its_first_child_a_property_has_no_value) {
  for (const char* content : {"", "<VALUE/>", "text", "<QUALIFIER/><VALUE>1</VALUE>",
                              "<VALUE><VALUE>1</VALUE></VALUE>"}) {
    const Embedded instance(
        (std::string("<INSTANCE><PROPERTY NAME=\"a\">") + content + "</PROPERTY></INSTANCE>")
            .c_str());
    ASSERT_EQ(length(instance->properties), 1) << content;
    EXPECT_FALSE(instance->properties->value) << content;
  }
}

// Whatever the element is called: a qualifier's value in front counts as the property's.
TEST(EmbeddedInstance, the_text_in_the_first_child_of_any_name_is_the_value) {
  const Embedded instance(
      R"(<INSTANCE><PROPERTY NAME="a"><ANY>1</ANY><VALUE>2</VALUE></PROPERTY></INSTANCE>)");
  EXPECT_STREQ(instance->properties->value->text, "1");
  EXPECT_FALSE(instance->properties->value->next);
}

TEST(EmbeddedInstance, the_value_of_an_array_arrives_empty_with_room_for_the_first) {
  const Embedded instance(
      R"(<INSTANCE><PROPERTY.ARRAY NAME="a" TYPE="uint8"><VALUE.ARRAY><VALUE>123</VALUE>)"
      R"(<VALUE>4</VALUE></VALUE.ARRAY></PROPERTY.ARRAY></INSTANCE>)");
  const PropertyArray* array = instance->propertyArrays;
  ASSERT_EQ(length(array), 2);
  EXPECT_STREQ(array->name, "a");
  EXPECT_FALSE(array->type);
  EXPECT_FALSE(array->next->name);
  EXPECT_STREQ(array->next->type, "uint8");
  for (; array; array = array->next) {
    const Value* first = array->valueArray->values;
    EXPECT_EQ(std::string(first->text, 4), std::string(4, '\0'));
    EXPECT_FALSE(first->next);
    EXPECT_FALSE(array->valueArray->next);
  }
}

TEST(EmbeddedInstance, without_text_in_its_first_value_an_array_has_none) {
  for (const char* content : {"", "<VALUE.ARRAY/>", "<VALUE.ARRAY><VALUE/></VALUE.ARRAY>"}) {
    const Embedded instance((std::string("<INSTANCE><PROPERTY.ARRAY NAME=\"a\">") + content +
                             "</PROPERTY.ARRAY></INSTANCE>")
                                .c_str());
    ASSERT_EQ(length(instance->propertyArrays), 1) << content;
    EXPECT_FALSE(instance->propertyArrays->valueArray) << content;
  }
}

TEST(EmbeddedInstance, keeps_only_class_name_properties_and_arrays) {
  const Embedded instance(
      R"(<INSTANCE CLASSNAME="A" LANG="de"><QUALIFIER NAME="q"/><PROPERTY.REFERENCE NAME="r"/>)"
      "</INSTANCE>");
  EXPECT_STREQ(instance->className->name, "A");
  EXPECT_FALSE(instance->qualifiers);
  EXPECT_FALSE(instance->properties);
  EXPECT_FALSE(instance->propertyArrays);
  EXPECT_FALSE(instance->propertyReferences);
}

TEST(EmbeddedInstance, without_class_name_has_none) {
  const Embedded instance("<INSTANCE/>");
  EXPECT_EQ(instance.result(), 0);
  EXPECT_FALSE(instance->className);
}

TEST(EmbeddedInstance, of_several_the_last_counts_with_the_properties_of_all) {
  const Embedded instance(R"(<X><INSTANCE CLASSNAME="A"><PROPERTY NAME="a"/></INSTANCE>)"
                          R"(<INSTANCE CLASSNAME="B"><PROPERTY NAME="b"/></INSTANCE></X>)");
  EXPECT_STREQ(instance->className->name, "B");
  EXPECT_STREQ(instance->properties->name, "a");
  EXPECT_STREQ(instance->properties->next->name, "b");
  EXPECT_FALSE(instance->next);
}

TEST(EmbeddedInstance, properties_before_and_outside_of_it_are_its_own) {
  const Embedded instance(R"(<X><PROPERTY NAME="a"/><INSTANCE CLASSNAME="A"/></X>)");
  EXPECT_STREQ(instance->properties->name, "a");
}

TEST(EmbeddedInstance, what_cannot_be_read_is_refused_silently_and_leaves_the_place) {
  support::CapturedOutput output(stdout);
  for (const char* text :
       {"", "text", "<INSTANCE>", "<X/>", "<instance/>", "<X><PROPERTY NAME=\"a\"/></X>"}) {
    Instance place{};
    Instance* instance = &place;
    EXPECT_EQ(ParseCDataContent(text, &instance), -1) << text;
    EXPECT_EQ(instance, &place) << text;
  }
  EXPECT_EQ(output.text(), "");
}

TEST(EmbeddedInstance, without_text_or_place_is_refused) {
  Instance* instance = nullptr;
  EXPECT_EQ(ParseCDataContent(nullptr, &instance), -1);
  EXPECT_EQ(ParseCDataContent("<INSTANCE/>", nullptr), -1);
}

TEST(EmbeddedInstance, a_section_that_cannot_be_read_leaves_an_empty_value) {
  for (const char* section : {"", "text", "<INSTANCE>", "<CLASS/>"}) {
    const Tree tree = read(answer(std::string("<VALUE><![CDATA[") + section + "]]></VALUE>"));
    ASSERT_TRUE(value(tree)) << section;
    EXPECT_FALSE(value(tree)->text) << section;
    EXPECT_FALSE(value(tree)->instance) << section;
  }
}

TEST(EmbeddedInstance, in_an_embedded_instance_is_not_read) {
  const Embedded instance(
      R"(<INSTANCE CLASSNAME="A"><PROPERTY NAME="a"><VALUE><![CDATA[<INSTANCE CLASSNAME="B"/>]]>)"
      "</VALUE></PROPERTY></INSTANCE>");
  EXPECT_STREQ(instance->className->name, "A");
  EXPECT_STREQ(instance->properties->value->text, R"(<INSTANCE CLASSNAME="B"/>)");
  EXPECT_FALSE(instance->properties->value->instance);
}

TEST(EmbeddedInstance, escaped_as_a_text_stays_a_text) {
  const Tree tree = read(answer("<VALUE>&lt;INSTANCE CLASSNAME=\"A\"/&gt;</VALUE>"));
  EXPECT_STREQ(value(tree)->text, R"(<INSTANCE CLASSNAME="A"/>)");
  EXPECT_FALSE(value(tree)->instance);
}

TEST(EmbeddedInstance, leaves_the_element_stack_alone) {
  const Tree tree = read(answer("<VALUE>x</VALUE>"));
  const int32_t before = top;
  const Embedded instance(R"(<INSTANCE CLASSNAME="A"><PROPERTY NAME="a"/></INSTANCE>)");
  EXPECT_EQ(top, before);
  EXPECT_EQ(returnAddress, tree.get());
}

TEST(EmbeddedInstance, a_section_without_text_is_refused) {
  support::Document document;
  StackEntry entry{};
  CreateValue(&entry, document.element("VALUE", {}, {document.cdata(nullptr)}), nullptr);
  auto* made = static_cast<Value*>(entry.address);
  EXPECT_FALSE(made->text);
  EXPECT_FALSE(made->instance);
  Free_Value(made);
}

}  // namespace
