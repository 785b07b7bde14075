// Which attributes each record takes from its element, and in which form.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>

#include "reader/elements.h"
#include "reader/reading.h"
#include "support/document.h"

namespace {

using elements::Element;
using reading::answer;
using reading::document;
using reading::read;
using reading::returned;
using reading::Tree;

enum class Form { Text, Number16, Number32, Flag, SortDirection, ClassName, Flavor };

struct Attribute {
  const char* element;
  const char* name;
  std::size_t offset;
  Form form;
};

// clang-format off
constexpr Attribute attributes[] = {
  {"KEYVALUE", "TYPE", offsetof(KeyValue, cimType), Form::Text},
  {"KEYVALUE", "VALUETYPE", offsetof(KeyValue, valueType), Form::Text},
  {"NAMESPACE", "NAME", offsetof(Namespace, name), Form::Text},
  {"KEYBINDING", "NAME", offsetof(KeyBinding, name), Form::Text},
  {"INSTANCENAME", "CLASSNAME", offsetof(InstanceName, className), Form::ClassName},
  {"CLASSNAME", "NAME", offsetof(ClassName, name), Form::Text},

  {"QUALIFIER", "NAME", offsetof(Qualifier, name), Form::Text},
  {"QUALIFIER", "TYPE", offsetof(Qualifier, type), Form::Text},
  {"QUALIFIER", "QUALIFIERFLAVOR", offsetof(Qualifier, qualifierFlavor), Form::Flavor},
  {"QUALIFIER", "PROPAGATED", offsetof(Qualifier, propagated), Form::Number16},
  {"PROPERTY", "NAME", offsetof(Property, name), Form::Text},
  {"PROPERTY", "TYPE", offsetof(Property, type), Form::Text},
  {"PROPERTY", "CLASSORIGIN", offsetof(Property, classOrigin), Form::Text},
  {"PROPERTY", "PROPAGATED", offsetof(Property, propagated), Form::Number16},
  {"PROPERTY.ARRAY", "NAME", offsetof(PropertyArray, name), Form::Text},
  {"PROPERTY.ARRAY", "TYPE", offsetof(PropertyArray, type), Form::Text},
  {"PROPERTY.ARRAY", "ARRAYSIZE", offsetof(PropertyArray, arraySize), Form::Number32},
  {"PROPERTY.ARRAY", "CLASSORIGIN", offsetof(PropertyArray, classOrigin), Form::Text},
  {"PROPERTY.ARRAY", "PROPAGATED", offsetof(PropertyArray, propagated), Form::Number16},
  {"PROPERTY.REFERENCE", "NAME", offsetof(PropertyReference, name), Form::Text},
  {"PROPERTY.REFERENCE", "REFERENCECLASS", offsetof(PropertyReference, referenceClass), Form::Text},
  {"PROPERTY.REFERENCE", "CLASSORIGIN", offsetof(PropertyReference, classOrigin), Form::Text},
  {"PROPERTY.REFERENCE", "PROPAGATED", offsetof(PropertyReference, propagated), Form::Number16},
  {"METHOD", "NAME", offsetof(Method, name), Form::Text},
  {"METHOD", "TYPE", offsetof(Method, type), Form::Text},
  {"METHOD", "CLASSORIGIN", offsetof(Method, classOrigin), Form::Text},
  {"METHOD", "PROPAGATED", offsetof(Method, propagated), Form::Number16},
  {"PARAMETER", "NAME", offsetof(Parameter, name), Form::Text},
  {"PARAMETER", "TYPE", offsetof(Parameter, type), Form::Text},
  {"PARAMETER.REFERENCE", "NAME", offsetof(ParameterReference, name), Form::Text},
  {"PARAMETER.REFERENCE", "REFERENCECLASS", offsetof(ParameterReference, referenceClass), Form::Text},
  {"PARAMETER.ARRAY", "NAME", offsetof(ParameterArray, name), Form::Text},
  {"PARAMETER.ARRAY", "TYPE", offsetof(ParameterArray, type), Form::Text},
  {"PARAMETER.ARRAY", "ARRAYSIZE", offsetof(ParameterArray, arraySize), Form::Number32},
  {"PARAMETER.REFARRAY", "NAME", offsetof(ParameterRefArray, name), Form::Text},
  {"PARAMETER.REFARRAY", "REFERENCECLASS", offsetof(ParameterRefArray, referenceClass), Form::Text},
  {"PARAMETER.REFARRAY", "ARRAYSIZE", offsetof(ParameterRefArray, arraySize), Form::Number32},
  {"QUALIFIER.DECLARATION", "NAME", offsetof(QualifierDecl, name), Form::Text},
  {"QUALIFIER.DECLARATION", "TYPE", offsetof(QualifierDecl, type), Form::Text},
  {"QUALIFIER.DECLARATION", "ISARRAY", offsetof(QualifierDecl, isArray), Form::Flag},
  {"QUALIFIER.DECLARATION", "ARRAYSIZE", offsetof(QualifierDecl, arraySize), Form::Number32},
  {"QUALIFIER.DECLARATION", "QUALIFIERFLAVOR", offsetof(QualifierDecl, qualifierFlavor), Form::Flavor},
  {"CLASS", "NAME", offsetof(Class, name), Form::Text},
  {"CLASS", "SUPERCLASS", offsetof(Class, superClass), Form::Text},
  {"INSTANCE", "CLASSNAME", offsetof(Instance, className), Form::ClassName},

  {"CIM", "CIMVERSION", offsetof(CIM, cimVersion), Form::Text},
  {"CIM", "DTDVERSION", offsetof(CIM, dtdVersion), Form::Text},
  {"MESSAGE", "ID", offsetof(Message, id), Form::Text},
  {"MESSAGE", "PROTOCOLVERSION", offsetof(Message, protocolVersion), Form::Text},
  {"ERROR", "CODE", offsetof(Error, code), Form::Text},
  {"ERROR", "DESCRIPTION", offsetof(Error, description), Form::Text},
  {"IMETHODRESPONSE", "NAME", offsetof(IMethodResponse, name), Form::Text},
  {"METHODRESPONSE", "NAME", offsetof(MethodResponse, name), Form::Text},
  {"RETURNVALUE", "PARAMTYPE", offsetof(ReturnValue, paramType), Form::Text},
  {"IMETHODCALL", "NAME", offsetof(IMethodCall, name), Form::Text},
  {"IPARAMVALUE", "NAME", offsetof(IParamValue, name), Form::Text},
  {"METHODCALL", "NAME", offsetof(MethodCall, name), Form::Text},
  {"PARAMVALUE", "NAME", offsetof(ParamValue, name), Form::Text},
  {"PARAMVALUE", "PARAMTYPE", offsetof(ParamValue, paramType), Form::Text},
  {"SIMPLEREQACK", "INSTANCEID", offsetof(SimpleReqAck, instanceId), Form::Text},
  {"EXPMETHODCALL", "NAME", offsetof(ExpMethodCall, name), Form::Text},
  {"EXPPARAMVALUE", "NAME", offsetof(ExpParamValue, name), Form::Text},
  {"EXPMETHODRESPONSE", "NAME", offsetof(ExpMethodResponse, name), Form::Text},

  {"TABLECELL.DECLARATION", "NAME", offsetof(TableCellDecl, name), Form::Text},
  {"TABLECELL.DECLARATION", "TYPE", offsetof(TableCellDecl, type), Form::Text},
  {"TABLECELL.DECLARATION", "ISARRAY", offsetof(TableCellDecl, isArray), Form::Flag},
  {"TABLECELL.DECLARATION", "ARRAYSIZE", offsetof(TableCellDecl, arraySize), Form::Number32},
  {"TABLECELL.DECLARATION", "CELLPOS", offsetof(TableCellDecl, cellPos), Form::Number16},
  {"TABLECELL.DECLARATION", "SORTPOS", offsetof(TableCellDecl, sortPos), Form::Number16},
  {"TABLECELL.DECLARATION", "SORTDIR", offsetof(TableCellDecl, sortDir), Form::SortDirection},
  {"TABLECELL.REFERENCE", "NAME", offsetof(TableCellReference, name), Form::Text},
  {"TABLECELL.REFERENCE", "REFERENCECLASS", offsetof(TableCellReference, referenceClass), Form::Text},
  {"TABLECELL.REFERENCE", "ISARRAY", offsetof(TableCellReference, isArray), Form::Flag},
  {"TABLECELL.REFERENCE", "ARRAYSIZE", offsetof(TableCellReference, arraySize), Form::Number32},
  {"TABLECELL.REFERENCE", "CELLPOS", offsetof(TableCellReference, cellPos), Form::Number16},
  {"TABLECELL.REFERENCE", "SORTPOS", offsetof(TableCellReference, sortPos), Form::Number16},
  {"TABLECELL.REFERENCE", "SORTDIR", offsetof(TableCellReference, sortDir), Form::SortDirection},
};
// clang-format on

// The attribute of that name of an element; null when the element does not take it.
const Attribute* find(const std::string& element, const std::string& name) {
  for (const Attribute& attribute : attributes)
    if (element == attribute.element && name == attribute.name) return &attribute;
  return nullptr;
}

template <class Number>
Number number_at(const void* record, std::size_t offset) {
  Number number;
  std::memcpy(&number, static_cast<const char*>(record) + offset, sizeof number);
  return number;
}

// What a record holds at the place of an attribute, as a text.
std::string held(const void* record, const Attribute& attribute) {
  const void* pointer = attribute.form == Form::Text || attribute.form == Form::ClassName ||
                                attribute.form == Form::Flavor
                            ? elements::pointer_at(record, attribute.offset)
                            : nullptr;
  switch (attribute.form) {
    case Form::Text:
      return pointer ? static_cast<const char*>(pointer) : "none";
    case Form::ClassName:
      return pointer ? static_cast<const ClassName*>(pointer)->name : "none";
    case Form::Flavor: {
      if (!pointer) return "none";
      const auto* flavor = static_cast<const QualifierFlavor*>(pointer);
      const bool zero = !flavor->overridable && !flavor->toSubclass && !flavor->toInstance &&
                        !flavor->translatable;
      return zero ? "zero" : "filled";
    }
    case Form::Number16:
    case Form::Flag:
      return std::to_string(number_at<std::int16_t>(record, attribute.offset));
    case Form::Number32:
    case Form::SortDirection:
      return std::to_string(number_at<std::int32_t>(record, attribute.offset));
  }
  return "";
}

// What that ought to be for a value.
std::string expected(const std::string& value, Form form) {
  switch (form) {
    case Form::Text:
    case Form::ClassName:
      return value;
    case Form::Flavor:
      return "zero";
    case Form::Number16:
    case Form::Number32:
      return value == "7" ? "7" : "0";
    case Form::Flag:
      return value == "TRUE" ? "1" : "0";
    case Form::SortDirection:
      return value == "DESC" ? "2" : "0";
  }
  return "";
}

std::string absent(Form form) {
  return form == Form::Text || form == Form::ClassName || form == Form::Flavor ? "none" : "0";
}

// Whether a record is zero but for the text that is always there.
bool is_zero(const void* record, const Element& element) {
  const auto* bytes = static_cast<const char*>(record);
  for (std::size_t at = 0; at < element.size; ++at) {
    if (at == element.text) at += sizeof(char*);
    if (at < element.size && bytes[at]) return false;
  }
  return true;
}

// Builds a record of `element` with one attribute and looks at all that the element takes.
void check(const Element& element, const std::string& name, const char* value) {
  SCOPED_TRACE(std::string(element.name) + " " + name + "=" + value);
  support::Document document;
  XmlNode* node = document.element(element.name, {{name.c_str(), value}}, {document.element("X")});
  StackEntry entry{};
  element.build(&entry, node, nullptr);
  ASSERT_TRUE(entry.address);
  for (const Attribute& attribute : attributes) {
    if (std::string(attribute.element) != element.name) continue;
    EXPECT_EQ(held(entry.address, attribute),
              attribute.name == name ? expected(value, attribute.form) : absent(attribute.form))
        << attribute.name;
  }
  if (!find(element.name, name)) {
    EXPECT_TRUE(is_zero(entry.address, element));
  }
  element.release(entry.address);
}

TEST(Attributes, each_element_takes_its_own_and_no_other) {
  std::set<std::string> names = {"LANG"};
  for (const Attribute& attribute : attributes) names.insert(attribute.name);
  EXPECT_EQ(names.size(), 23U);
  for (const std::string& name : names) {
    for (const char* value : {"7", "TRUE", "DESC", ""}) {
      for (const Element& element : elements::all) check(element, name, value);
      for (const Element& element : elements::builder_only) check(element, name, value);
    }
  }
}

TEST(Attributes, names_count_exactly) {
  const Tree tree = read(document(R"(<MESSAGE id="1" I="2" IDS="3" xml:ID="4" ID="5"/>)"));
  EXPECT_STREQ(tree->message->id, "5");
  const Tree other = read(document(R"(<MESSAGE id="1" I="2" IDS="3" xml:ID="4"/>)"));
  EXPECT_FALSE(other->message->id);
}

TEST(Attributes, come_out_of_a_document_as_copies) {
  const Tree tree =
      read(answer(R"(<INSTANCE CLASSNAME="CIM_Fan"><PROPERTY NAME="&lt;&amp;&#x20AC;" TYPE=""/>)"
                  R"(</INSTANCE>)"));
  const Instance* instance = returned(tree).instance;
  EXPECT_STREQ(instance->className->name, "CIM_Fan");
  EXPECT_FALSE(instance->className->next);
  EXPECT_STREQ(instance->properties->name, "<&\xE2\x82\xAC");
  EXPECT_STREQ(instance->properties->type, "");
  EXPECT_FALSE(instance->properties->classOrigin);
}

TEST(Attributes, a_null_value_is_an_empty_one) {
  support::Document document;
  StackEntry entry{};
  CreateProperty(&entry,
                 document.element("PROPERTY", {{"NAME", nullptr}, {"PROPAGATED", nullptr}},
                                  {document.text("x")}),
                 nullptr);
  auto* property = static_cast<Property*>(entry.address);
  EXPECT_STREQ(property->name, "");
  EXPECT_EQ(property->propagated, 0);
  Free_Property(property);
}

// A parsed document cannot repeat an attribute; the leak checker sees what becomes of the first.
TEST(Attributes, of_a_repeated_one_the_last_counts) {
  support::Document document;
  StackEntry entry{};
  CreateInstance(
      &entry,
      document.element("INSTANCE", {{"CLASSNAME", "A"}, {"CLASSNAME", "B"}}, {document.text("x")}),
      nullptr);
  auto* instance = static_cast<Instance*>(entry.address);
  EXPECT_STREQ(instance->className->name, "B");
  EXPECT_FALSE(instance->className->next);
  Free_Instance(instance);
}

// The flag of a property with this PROPAGATED attribute.
int propagated(const std::string& value) {
  const Tree tree = read(answer("<INSTANCE><PROPERTY PROPAGATED=\"" + value + "\"/></INSTANCE>"));
  return returned(tree).instance->properties->propagated;
}

TEST(Attributes, propagated_is_a_number_so_that_true_is_0) {
  EXPECT_EQ(propagated("true"), 0);
  EXPECT_EQ(propagated("TRUE"), 0);
  EXPECT_EQ(propagated("1"), 1);
  EXPECT_EQ(propagated("0"), 0);
  EXPECT_EQ(propagated("2"), 2);
  EXPECT_EQ(propagated("-1"), -1);
  EXPECT_EQ(propagated("1true"), 1);
  EXPECT_EQ(propagated(""), 0);
  EXPECT_EQ(propagated("65537"), 1);  // the lower 16 bits
}

// The size of an array with this ARRAYSIZE attribute.
int32_t array_size(const std::string& value) {
  const Tree tree =
      read(answer("<INSTANCE><PROPERTY.ARRAY ARRAYSIZE=\"" + value + "\"/></INSTANCE>"));
  return returned(tree).instance->propertyArrays->arraySize;
}

TEST(Attributes, numbers_are_the_leading_decimal_digits) {
  EXPECT_EQ(array_size("8"), 8);
  EXPECT_EQ(array_size("007"), 7);
  EXPECT_EQ(array_size("0x10"), 0);
  EXPECT_EQ(array_size("12 monkeys"), 12);
  EXPECT_EQ(array_size("monkeys"), 0);
  EXPECT_EQ(array_size(""), 0);
  EXPECT_EQ(array_size("-5"), -5);
  EXPECT_EQ(array_size("+5"), 5);
}

TEST(Attributes, numbers_beyond_32_bits_are_the_nearest_there_is) {
  EXPECT_EQ(array_size("2147483647"), INT32_MAX);
  EXPECT_EQ(array_size("2147483648"), INT32_MAX);
  EXPECT_EQ(array_size("-2147483649"), INT32_MIN);
  EXPECT_EQ(array_size("99999999999999999999999999"), INT32_MAX);
  EXPECT_EQ(array_size("-99999999999999999999999999"), INT32_MIN);
}

// The flag of a qualifier declaration with this ISARRAY attribute.
int is_array(const std::string& value) {
  const Tree tree = read(answer("<QUALIFIER.DECLARATION ISARRAY=\"" + value + "\"/>"));
  return returned(tree).qualifierDecl->isArray;
}

TEST(Attributes, is_array_is_true_for_the_upper_case_word_alone) {
  EXPECT_EQ(is_array("TRUE"), 1);
  EXPECT_EQ(is_array("FALSE"), 0);
  EXPECT_EQ(is_array("true"), 0);
  EXPECT_EQ(is_array("1"), 0);
  EXPECT_EQ(is_array("TRUE "), 0);
}

// The direction of a table cell with this SORTDIR attribute.
int sort_direction(const char* value) {
  support::Document document;
  StackEntry entry{};
  CreateTableCellDecl(
      &entry, document.element("TABLECELL.DECLARATION", {{"SORTDIR", value}}, {document.text("x")}),
      nullptr);
  auto* cell = static_cast<TableCellDecl*>(entry.address);
  const int direction = cell->sortDir;
  Free_TableCellDecl(cell);
  return direction;
}

TEST(Attributes, sort_direction_knows_two_upper_case_words) {
  EXPECT_EQ(sort_direction("ASC"), 1);
  EXPECT_EQ(sort_direction("DESC"), 2);
  EXPECT_EQ(sort_direction("asc"), 0);
  EXPECT_EQ(sort_direction("desc"), 0);
  EXPECT_EQ(sort_direction("UP"), 0);
}

TEST(Attributes, the_text_of_a_flavor_is_not_read) {
  const Tree tree = read(answer(
      R"(<CLASS><QUALIFIER QUALIFIERFLAVOR="TRUE"/><QUALIFIER OVERRIDABLE="false"/></CLASS>)"));
  const Qualifier* qualifier = returned(tree).class_->qualifiers;
  ASSERT_TRUE(qualifier->qualifierFlavor);
  EXPECT_EQ(qualifier->qualifierFlavor->overridable, 0);
  EXPECT_EQ(qualifier->qualifierFlavor->toSubclass, 0);
  EXPECT_EQ(qualifier->qualifierFlavor->toInstance, 0);
  EXPECT_EQ(qualifier->qualifierFlavor->translatable, 0);
  EXPECT_FALSE(qualifier->next->qualifierFlavor);
}

// Two attributes of one name are not well-formed; a device's own XML library may let them pass.
TEST(Attributes, a_second_flavor_changes_nothing) {
  support::Document nodes;
  const XmlNode* node = nodes.element(
      "QUALIFIER", {{"QUALIFIERFLAVOR", "a"}, {"QUALIFIERFLAVOR", "b"}}, {nodes.text("x")});
  StackEntry entry{};
  CreateQualifier(&entry, node, nullptr);
  auto* qualifier = static_cast<Qualifier*>(entry.address);
  ASSERT_TRUE(qualifier);
  EXPECT_TRUE(qualifier->qualifierFlavor);
  Free_Qualifier(qualifier);
}

TEST(Attributes, an_attribute_and_a_child_for_one_class_name_leave_the_child) {
  const Tree tree =
      read(answer(R"(<INSTANCENAME CLASSNAME="A"><CLASSNAME NAME="B"/></INSTANCENAME>)"));
  EXPECT_STREQ(returned(tree).instanceName->className->name, "B");
  EXPECT_FALSE(returned(tree).instanceName->className->next);
}

TEST(Attributes, each_listed_one_belongs_to_an_element) {
  for (const Attribute& attribute : attributes) {
    EXPECT_TRUE(elements::find(attribute.element)) << attribute.element;
    EXPECT_EQ(find(attribute.element, attribute.name), &attribute);
  }
}

}  // namespace
