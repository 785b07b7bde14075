// The bytes of values, names and paths.
#include <gtest/gtest.h>

#include <string>

#include "cim_client.h"
#include "support/written.h"

namespace {

using support::text;
using support::written;

// A namespace of two segments, as most documents carry it.
struct RootCimv2 {
  Namespace cimv2{.name = text("cimv2")};
  Namespace root{.name = text("root"), .next = &cimv2};
  LocalNamespacePath local{.namespaces = &root};
  NamespacePath on_host{.host = text("10.0.0.1"), .localNamespacePath = &local};
};

constexpr char local_xml[] =
    "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/>"
    "</LOCALNAMESPACEPATH>";

constexpr char on_host_xml[] =
    "<NAMESPACEPATH><HOST>10.0.0.1</HOST><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
    "<NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH></NAMESPACEPATH>";

// ---- Texts ----

TEST(WriteName, is_the_text_in_double_quotes) {
  EXPECT_EQ(written(Gen_CIMName, text("CIM_Fan")), "\"CIM_Fan\"");
}

TEST(WriteName, of_an_empty_text_is_two_quotes) {
  EXPECT_EQ(written(Gen_CIMName, text("")), "\"\"");
}

TEST(WriteType, is_an_attribute_with_its_blank) {
  EXPECT_EQ(written(Gen_CIMType, text("uint32")), " TYPE=\"uint32\"");
}

TEST(WriteType, of_an_empty_text_has_empty_quotes) {
  EXPECT_EQ(written(Gen_CIMType, text("")), " TYPE=\"\"");
}

// ---- Names ----

TEST(WriteClassName, is_the_quoted_name_without_its_element) {
  ClassName fan{.name = text("CIM_Fan")};
  EXPECT_EQ(written(Gen_ClassName, &fan), "\"CIM_Fan\"");
}

TEST(WriteClassName, two_names_stand_back_to_back) {
  ClassName second{.name = text("CIM_Sensor")};
  ClassName first{.name = text("CIM_Fan"), .next = &second};
  EXPECT_EQ(written(Gen_ClassName, &first), "\"CIM_Fan\"\"CIM_Sensor\"");
}

TEST(WriteClassName, without_a_name_writes_nothing) {
  ClassName nameless{};
  EXPECT_EQ(written(Gen_ClassName, &nameless), "");
}

TEST(WriteNamespace, one_segment) {
  Namespace root{.name = text("root")};
  EXPECT_EQ(written(Gen_Namespace, &root), "<NAMESPACE NAME=\"root\"/>");
}

TEST(WriteNamespace, two_segments) {
  RootCimv2 names;
  EXPECT_EQ(written(Gen_Namespace, &names.root),
            "<NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/>");
}

TEST(WriteNamespace, without_a_name_has_nothing_after_the_equals_sign) {
  Namespace nameless{};
  EXPECT_EQ(written(Gen_Namespace, &nameless), "<NAMESPACE NAME=/>");
}

// ---- Paths ----

TEST(WriteLocalNamespacePath, holds_its_namespaces) {
  RootCimv2 names;
  EXPECT_EQ(written(Gen_LocalNamespacePath, &names.local), local_xml);
}

TEST(WriteLocalNamespacePath, without_namespaces) {
  LocalNamespacePath empty{};
  EXPECT_EQ(written(Gen_LocalNamespacePath, &empty), "<LOCALNAMESPACEPATH></LOCALNAMESPACEPATH>");
}

TEST(WriteNamespacePath, holds_host_and_path) {
  RootCimv2 names;
  EXPECT_EQ(written(Gen_NamespacePath, &names.on_host), on_host_xml);
}

TEST(WriteNamespacePath, without_a_host_has_no_host_element) {
  RootCimv2 names;
  names.on_host.host = nullptr;
  EXPECT_EQ(written(Gen_NamespacePath, &names.on_host),
            "<NAMESPACEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
            "<NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH></NAMESPACEPATH>");
}

TEST(WriteNamespacePath, with_an_empty_host_has_an_empty_element) {
  NamespacePath path{.host = text("")};
  EXPECT_EQ(written(Gen_NamespacePath, &path), "<NAMESPACEPATH><HOST></HOST></NAMESPACEPATH>");
}

TEST(WriteLocalClassPath, has_a_blank_before_the_equals_sign_of_the_class_name) {
  RootCimv2 names;
  ClassName fan{.name = text("CIM_Fan")};
  LocalClassPath path{.localNamespacePath = &names.local, .className = &fan};
  EXPECT_EQ(written(Gen_LocalClassPath, &path), std::string("<LOCALCLASSPATH>") + local_xml +
                                                    "<CLASSNAME NAME =\"CIM_Fan\"/>"
                                                    "</LOCALCLASSPATH>");
}

TEST(WriteLocalClassPath, without_children) {
  LocalClassPath empty{};
  EXPECT_EQ(written(Gen_LocalClassPath, &empty), "<LOCALCLASSPATH></LOCALCLASSPATH>");
}

TEST(WriteClassPath, has_no_blank_before_the_equals_sign_of_the_class_name) {
  RootCimv2 names;
  ClassName fan{.name = text("CIM_Fan")};
  ClassPath path{.namespacePath = &names.on_host, .className = &fan};
  EXPECT_EQ(written(Gen_ClassPath, &path),
            std::string("<CLASSPATH>") + on_host_xml + "<CLASSNAME NAME=\"CIM_Fan\"/></CLASSPATH>");
}

TEST(WriteClassPath, without_children) {
  ClassPath empty{};
  EXPECT_EQ(written(Gen_ClassPath, &empty), "<CLASSPATH></CLASSPATH>");
}

TEST(WriteInstancePath, holds_namespace_and_name) {
  RootCimv2 names;
  ClassName fan{.name = text("CIM_Fan")};
  InstanceName name{.className = &fan};
  InstancePath path{.namespacePath = &names.on_host, .instanceName = &name};
  EXPECT_EQ(written(Gen_InstancePath, &path),
            std::string("<INSTANCEPATH>") + on_host_xml +
                "<INSTANCENAME CLASSNAME=\"CIM_Fan\"></INSTANCENAME></INSTANCEPATH>");
}

TEST(WriteInstancePath, without_children) {
  InstancePath empty{};
  EXPECT_EQ(written(Gen_InstancePath, &empty), "<INSTANCEPATH></INSTANCEPATH>");
}

TEST(WriteLocalInstancePath, holds_namespace_and_name) {
  RootCimv2 names;
  ClassName fan{.name = text("CIM_Fan")};
  InstanceName name{.className = &fan};
  LocalInstancePath path{.localNamespacePath = &names.local, .instanceName = &name};
  EXPECT_EQ(written(Gen_LocalInstancePath, &path),
            std::string("<LOCALINSTANCEPATH>") + local_xml +
                "<INSTANCENAME CLASSNAME=\"CIM_Fan\"></INSTANCENAME></LOCALINSTANCEPATH>");
}

TEST(WriteLocalInstancePath, without_children) {
  LocalInstancePath empty{};
  EXPECT_EQ(written(Gen_LocalInstancePath, &empty), "<LOCALINSTANCEPATH></LOCALINSTANCEPATH>");
}

// ---- Keys ----

TEST(WriteKeyValue, attributes_have_blanks_around_the_equals_sign) {
  KeyValue key{.text = text("fan1"), .valueType = text("string"), .cimType = text("string")};
  EXPECT_EQ(written(Gen_KeyValue, &key),
            "<KEYVALUE VALUETYPE = \"string\" CIMTYPE = \"string\">fan1</KEYVALUE>");
}

TEST(WriteKeyValue, with_value_type_only) {
  KeyValue key{.text = text("7"), .valueType = text("numeric")};
  EXPECT_EQ(written(Gen_KeyValue, &key), "<KEYVALUE VALUETYPE = \"numeric\">7</KEYVALUE>");
}

TEST(WriteKeyValue, with_cim_type_only) {
  KeyValue key{.text = text("7"), .cimType = text("uint8")};
  EXPECT_EQ(written(Gen_KeyValue, &key), "<KEYVALUE CIMTYPE = \"uint8\">7</KEYVALUE>");
}

TEST(WriteKeyValue, without_anything) {
  KeyValue key{};
  EXPECT_EQ(written(Gen_KeyValue, &key), "<KEYVALUE></KEYVALUE>");
}

TEST(WriteKeyValue, text_is_not_escaped) {
  KeyValue key{.text = text("a<b&c>\"d\"'e'")};
  EXPECT_EQ(written(Gen_KeyValue, &key), "<KEYVALUE>a<b&c>\"d\"'e'</KEYVALUE>");
}

TEST(WriteKeyBinding, holds_a_value) {
  KeyValue value{.text = text("fan1")};
  KeyBinding key{.keyValue = &value, .name = text("DeviceID")};
  EXPECT_EQ(written(Gen_KeyBinding, &key),
            "<KEYBINDING NAME=\"DeviceID\"><KEYVALUE>fan1</KEYVALUE></KEYBINDING>");
}

TEST(WriteKeyBinding, holds_a_reference) {
  ValueReference reference{};
  KeyBinding key{.valueReference = &reference, .name = text("Antecedent")};
  EXPECT_EQ(written(Gen_KeyBinding, &key),
            "<KEYBINDING NAME=\"Antecedent\"><VALUE.REFERENCE></VALUE.REFERENCE></KEYBINDING>");
}

TEST(WriteKeyBinding, with_both_alternatives_writes_the_value_first) {
  KeyValue value{.text = text("1")};
  ValueReference reference{};
  KeyBinding key{.keyValue = &value, .valueReference = &reference, .name = text("k")};
  EXPECT_EQ(written(Gen_KeyBinding, &key),
            "<KEYBINDING NAME=\"k\"><KEYVALUE>1</KEYVALUE><VALUE.REFERENCE></VALUE.REFERENCE>"
            "</KEYBINDING>");
}

TEST(WriteKeyBinding, two_keys) {
  KeyBinding second{.name = text("b")};
  KeyBinding first{.name = text("a"), .next = &second};
  EXPECT_EQ(written(Gen_KeyBinding, &first),
            "<KEYBINDING NAME=\"a\"></KEYBINDING><KEYBINDING NAME=\"b\"></KEYBINDING>");
}

TEST(WriteKeyBinding, without_a_name_has_nothing_after_the_equals_sign) {
  KeyBinding nameless{};
  EXPECT_EQ(written(Gen_KeyBinding, &nameless), "<KEYBINDING NAME=></KEYBINDING>");
}

TEST(WriteInstanceName, holds_its_keys) {
  ClassName fan{.name = text("CIM_Fan")};
  KeyValue value{.text = text("fan1"), .valueType = text("string")};
  KeyBinding key{.keyValue = &value, .name = text("DeviceID")};
  InstanceName name{.keyBindings = &key, .className = &fan};
  EXPECT_EQ(written(Gen_InstanceName, &name),
            "<INSTANCENAME CLASSNAME=\"CIM_Fan\"><KEYBINDING NAME=\"DeviceID\">"
            "<KEYVALUE VALUETYPE = \"string\">fan1</KEYVALUE></KEYBINDING></INSTANCENAME>");
}

TEST(WriteInstanceName, writes_keys_then_the_bare_value_then_the_bare_reference) {
  ClassName fan{.name = text("CIM_Fan")};
  KeyBinding key{.name = text("k")};
  KeyValue value{.text = text("1")};
  ValueReference reference{};
  InstanceName name{
      .keyBindings = &key, .keyValue = &value, .valueReference = &reference, .className = &fan};
  EXPECT_EQ(written(Gen_InstanceName, &name),
            "<INSTANCENAME CLASSNAME=\"CIM_Fan\"><KEYBINDING NAME=\"k\"></KEYBINDING>"
            "<KEYVALUE>1</KEYVALUE><VALUE.REFERENCE></VALUE.REFERENCE></INSTANCENAME>");
}

TEST(WriteInstanceName, two_names) {
  ClassName sensor{.name = text("CIM_Sensor")};
  ClassName fan{.name = text("CIM_Fan")};
  InstanceName second{.className = &sensor};
  InstanceName first{.className = &fan, .next = &second};
  EXPECT_EQ(written(Gen_InstanceName, &first),
            "<INSTANCENAME CLASSNAME=\"CIM_Fan\"></INSTANCENAME>"
            "<INSTANCENAME CLASSNAME=\"CIM_Sensor\"></INSTANCENAME>");
}

TEST(WriteInstanceName, without_a_class_has_nothing_after_the_equals_sign) {
  InstanceName name{};
  EXPECT_EQ(written(Gen_InstanceName, &name), "<INSTANCENAME CLASSNAME=></INSTANCENAME>");
}

// ---- References ----

TEST(WriteValueReference, writes_every_path_in_its_order) {
  ClassName fan{.name = text("CIM_Fan")};
  ClassPath class_path{};
  LocalClassPath local_class_path{};
  InstancePath instance_path{};
  LocalInstancePath local_instance_path{};
  InstanceName name{.className = &fan};
  ValueReference reference{.classPath = &class_path,
                           .localClassPath = &local_class_path,
                           .className = &fan,
                           .instancePath = &instance_path,
                           .localInstancePath = &local_instance_path,
                           .instanceName = &name};
  EXPECT_EQ(written(Gen_ValueReference, &reference),
            "<VALUE.REFERENCE><CLASSPATH></CLASSPATH><LOCALCLASSPATH></LOCALCLASSPATH>"
            "<CLASSNAME NAME=\"CIM_Fan\"/><INSTANCEPATH></INSTANCEPATH>"
            "<LOCALINSTANCEPATH></LOCALINSTANCEPATH>"
            "<INSTANCENAME CLASSNAME=\"CIM_Fan\"></INSTANCENAME></VALUE.REFERENCE>");
}

TEST(WriteValueReference, two_references) {
  ClassName fan{.name = text("CIM_Fan")};
  ValueReference second{.className = &fan};
  ValueReference first{.next = &second};
  EXPECT_EQ(written(Gen_ValueReference, &first),
            "<VALUE.REFERENCE></VALUE.REFERENCE>"
            "<VALUE.REFERENCE><CLASSNAME NAME=\"CIM_Fan\"/></VALUE.REFERENCE>");
}

TEST(WriteValueRefArray, holds_its_references) {
  ClassName fan{.name = text("CIM_Fan")};
  ValueReference second{};
  ValueReference first{.className = &fan, .next = &second};
  ValueRefArray array{.valueReferences = &first};
  EXPECT_EQ(written(Gen_ValueRefArray, &array),
            "<VALUE.REFARRAY><VALUE.REFERENCE><CLASSNAME NAME=\"CIM_Fan\"/></VALUE.REFERENCE>"
            "<VALUE.REFERENCE></VALUE.REFERENCE></VALUE.REFARRAY>");
}

TEST(WriteValueRefArray, two_arrays) {
  ValueRefArray second{};
  ValueRefArray first{.next = &second};
  EXPECT_EQ(written(Gen_ValueRefArray, &first),
            "<VALUE.REFARRAY></VALUE.REFARRAY><VALUE.REFARRAY></VALUE.REFARRAY>");
}

// ---- Values ----

TEST(WriteValueArray, holds_its_values) {
  Value second{.text = text("2")};
  Value first{.text = text("1"), .next = &second};
  ValueArray array{.values = &first};
  EXPECT_EQ(written(Gen_ValueArray, &array),
            "<VALUE.ARRAY><VALUE>1</VALUE><VALUE>2</VALUE></VALUE.ARRAY>");
}

TEST(WriteValueArray, two_arrays) {
  Value value{.text = text("2")};
  ValueArray second{.values = &value};
  ValueArray first{.next = &second};
  EXPECT_EQ(written(Gen_ValueArray, &first),
            "<VALUE.ARRAY></VALUE.ARRAY><VALUE.ARRAY><VALUE>2</VALUE></VALUE.ARRAY>");
}

TEST(WriteValueNull, has_no_content) {
  ValueNull value{.text = text("never written")};
  EXPECT_EQ(written(Gen_ValueNull, &value), "<VALUE.NULL/>");
}

TEST(WriteValueNull, two_nulls) {
  ValueNull second{};
  ValueNull first{.next = &second};
  EXPECT_EQ(written(Gen_ValueNull, &first), "<VALUE.NULL/><VALUE.NULL/>");
}

TEST(WriteValue, holds_its_text) {
  Value value{.text = text("42")};
  EXPECT_EQ(written(Gen_Value, &value), "<VALUE>42</VALUE>");
}

TEST(WriteValue, of_an_empty_text_is_an_empty_element) {
  Value value{.text = text("")};
  EXPECT_EQ(written(Gen_Value, &value), "<VALUE></VALUE>");
}

TEST(WriteValue, text_is_not_escaped) {
  Value value{.text = text("<a href=\"x\">&amp;</a>\n")};
  EXPECT_EQ(written(Gen_Value, &value), "<VALUE><a href=\"x\">&amp;</a>\n</VALUE>");
}

TEST(WriteValue, a_node_without_text_between_two_others_writes_nothing) {
  Value third{.text = text("c")};
  Value second{.next = &third};
  Value first{.text = text("a"), .next = &second};
  EXPECT_EQ(written(Gen_Value, &first), "<VALUE>a</VALUE><VALUE>c</VALUE>");
}

TEST(WriteValue, alone_and_without_text_makes_an_empty_output) {
  Value value{};
  EXPECT_EQ(written(Gen_Value, &value), "");
}

TEST(WriteValue, carries_its_instance_only_when_the_flag_is_1) {
  Instance instance{};
  for (std::int32_t flag : {-1, 0, 2}) {
    Value value{.text = text("plain"), .instance = &instance, .isCData = flag};
    EXPECT_EQ(written(Gen_Value, &value), "<VALUE>plain</VALUE>") << flag;
  }
}

}  // namespace
