// Object paths as people type them.
#include "object_path.h"

#include <gtest/gtest.h>

#include "exit_status.h"
#include "records.h"

namespace cli {
namespace {

std::string refusal(std::string_view text) {
  try {
    parse_object(text);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.status(), ExitStatus::Usage);
    return failure.what();
  }
  return "not refused";
}

// Writes a record as the library sends it.
template <class Record, class Writer>
std::string sent(Record* record, Writer write) {
  char* text = nullptr;
  write(record, &text);
  const TextOwner owner(text);
  return std::string(text_or_empty(text));
}

std::string sent_name(std::string_view path) {
  return sent(make_instance_name(parse_object(path)).get(), Gen_InstanceName);
}

std::string sent_reference(std::string_view path) {
  return sent(make_reference(parse_object(path)).get(), Gen_ValueReference);
}

TEST(ObjectPath, a_bare_name_is_a_class) {
  const ObjectUri path = parse_object("CIM_Fan");
  EXPECT_EQ(path.class_name, "CIM_Fan");
  EXPECT_FALSE(path.is_instance);
  EXPECT_EQ(path.name_space, "");
}

TEST(ObjectPath, keys_are_texts_numbers_and_booleans) {
  const ObjectUri path = parse_object("CIM_X.A=\"x\",B=5,C=-0x1F,D=1.5e3,E=TRUE,F=false");
  ASSERT_EQ(path.keys.size(), 6U);
  EXPECT_TRUE(path.is_instance);
  EXPECT_EQ(path.keys[0].name, "A");
  EXPECT_EQ(path.keys[0].text, "x");
  EXPECT_EQ(path.keys[0].kind, Key::Kind::Text);
  for (std::size_t index : {1U, 2U, 3U}) EXPECT_EQ(path.keys[index].kind, Key::Kind::Number);
  EXPECT_EQ(path.keys[2].text, "-0x1F");
  EXPECT_EQ(path.keys[4].kind, Key::Kind::Boolean);
  EXPECT_EQ(path.keys[4].text, "TRUE");
  EXPECT_EQ(path.keys[5].text, "FALSE");
}

TEST(ObjectPath, a_number_in_quotes_is_a_text) {
  EXPECT_EQ(parse_object("CIM_X.A=\"5\"").keys[0].kind, Key::Kind::Text);
}

TEST(ObjectPath, a_bare_word_is_a_text_because_shells_eat_quotes) {
  const ObjectUri path = parse_object("CIM_Fan.DeviceID=fan1,SystemName=10.0.0.1");
  EXPECT_EQ(path.keys[0].text, "fan1");
  EXPECT_EQ(path.keys[0].kind, Key::Kind::Text);
  EXPECT_EQ(path.keys[1].text, "10.0.0.1");
  EXPECT_EQ(path.keys[1].kind, Key::Kind::Text);
}

TEST(ObjectPath, quotes_and_backslashes_stand_behind_a_backslash) {
  const ObjectUri path = parse_object(R"(CIM_X.A="say \"hi\", C:\\temp",B="a\nb")");
  EXPECT_EQ(path.keys[0].text, "say \"hi\", C:\\temp");
  EXPECT_EQ(path.keys[1].text, "a\nb");
}

TEST(ObjectPath, the_namespace_goes_before_a_colon_with_or_without_slash) {
  EXPECT_EQ(parse_object("root/interop:CIM_X").name_space, "root/interop");
  EXPECT_EQ(parse_object("/root/interop:CIM_X").name_space, "root/interop");
  EXPECT_EQ(parse_object("/root/interop:CIM_X.A=\"b:c\"").class_name, "CIM_X");
}

TEST(ObjectPath, a_colon_inside_a_value_begins_no_class) {
  const ObjectUri path = parse_object("CIM_X.A=b:c");
  EXPECT_EQ(path.name_space, "");
  EXPECT_EQ(path.keys[0].text, "b:c");
}

TEST(ObjectPath, a_host_is_read_in_both_forms) {
  EXPECT_EQ(parse_object("//device/root/cimv2:CIM_X.A=1").host, "device");
  const ObjectUri path = parse_object("http://device:5988/root/cimv2:CIM_X.A=1");
  EXPECT_EQ(path.host, "device:5988");
  EXPECT_EQ(path.name_space, "root/cimv2");
}

TEST(ObjectPath, the_instance_of_a_keyless_class_is_typed_with_an_at_sign) {
  const ObjectUri path = parse_object("CIM_Only=@");
  EXPECT_TRUE(path.is_instance);
  EXPECT_TRUE(path.keys.empty());
}

TEST(ObjectPath, mistakes_are_shown_where_they_are) {
  EXPECT_EQ(refusal(""), "not an object path: \nexpected the name of a class at its beginning");
  EXPECT_EQ(refusal("CIM_Fan."),
            "not an object path: CIM_Fan.\nexpected the name of a key after CIM_Fan.");
  EXPECT_EQ(refusal("CIM_Fan.A"),
            "not an object path: CIM_Fan.A\nexpected \"=\" and the key's value after CIM_Fan.A");
  EXPECT_EQ(refusal("CIM_Fan.A=\"x"),
            "not an object path: CIM_Fan.A=\"x\nexpected the closing \" after CIM_Fan.A=\"x");
  EXPECT_EQ(
      refusal("CIM_Fan.A=\"x\"y"),
      "not an object path: CIM_Fan.A=\"x\"y\nexpected a comma or the end after CIM_Fan.A=\"x\"");
  EXPECT_EQ(refusal("CIM_Fan.A=1,"),
            "not an object path: CIM_Fan.A=1,\nexpected the name of a key after CIM_Fan.A=1,");
  EXPECT_EQ(refusal("CIM_Fan.A="),
            "not an object path: CIM_Fan.A=\nexpected a value after CIM_Fan.A=");
  EXPECT_EQ(refusal("CIM Fan"),
            "not an object path: CIM Fan\nexpected \".\" and keys, or the end after CIM");
  EXPECT_EQ(refusal(":CIM_Fan"),
            "not an object path: :CIM_Fan\nexpected a namespace at its beginning");
  EXPECT_EQ(refusal("5Fan"),
            "not an object path: 5Fan\nexpected the name of a class at its beginning");
}

TEST(ObjectPath, an_instance_is_asked_for_in_words_where_a_class_stands) {
  try {
    parse_instance("CIM_Fan");
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_STREQ(failure.what(),
                 "CIM_Fan names a class; an instance needs its keys, as in "
                 "'CIM_Fan.Key=\"value\"', or CIM_Fan=@ when its class has none");
  }
}

TEST(ObjectPath, texts_that_could_be_references_are_told_from_others) {
  EXPECT_TRUE(looks_like_instance("CIM_Fan.DeviceID=\"fan1\""));
  EXPECT_TRUE(looks_like_instance("/root/cimv2:CIM_Fan.DeviceID=\"fan1\""));
  EXPECT_FALSE(looks_like_instance("fan1"));
  EXPECT_FALSE(looks_like_instance("CIM_Fan"));
  EXPECT_FALSE(looks_like_instance("10.0.0.1"));
  EXPECT_FALSE(looks_like_instance("a=b"));
}

TEST(ObjectPath, keys_become_key_bindings_with_their_types) {
  EXPECT_EQ(sent_name("CIM_X.A=\"x\",B=5,C=true"),
            "<INSTANCENAME CLASSNAME=\"CIM_X\">"
            "<KEYBINDING NAME=\"A\"><KEYVALUE VALUETYPE = \"string\">x</KEYVALUE></KEYBINDING>"
            "<KEYBINDING NAME=\"B\"><KEYVALUE VALUETYPE = \"numeric\">5</KEYVALUE></KEYBINDING>"
            "<KEYBINDING NAME=\"C\"><KEYVALUE VALUETYPE = \"boolean\">TRUE</KEYVALUE></KEYBINDING>"
            "</INSTANCENAME>");
}

TEST(ObjectPath, a_keyless_instance_has_no_bindings) {
  EXPECT_EQ(sent_name("CIM_X=@"), "<INSTANCENAME CLASSNAME=\"CIM_X\"></INSTANCENAME>");
}

TEST(ObjectPath, a_nameless_key_is_a_bare_value) {
  EXPECT_EQ(sent_name("CIM_X=\"x\""),
            "<INSTANCENAME CLASSNAME=\"CIM_X\"><KEYVALUE VALUETYPE = \"string\">x</KEYVALUE>"
            "</INSTANCENAME>");
}

TEST(ObjectPath, a_key_marked_as_reference_is_nested) {
  ObjectUri path = parse_object(R"(CIM_Has.Part="/root/cimv2:CIM_Fan.DeviceID=\"fan1\"")");
  path.keys[0].kind = Key::Kind::Reference;
  EXPECT_EQ(sent(make_instance_name(path).get(), Gen_InstanceName),
            "<INSTANCENAME CLASSNAME=\"CIM_Has\"><KEYBINDING NAME=\"Part\"><VALUE.REFERENCE>"
            "<LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
            "<NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH>"
            "<INSTANCENAME CLASSNAME=\"CIM_Fan\"><KEYBINDING NAME=\"DeviceID\">"
            "<KEYVALUE VALUETYPE = \"string\">fan1</KEYVALUE></KEYBINDING></INSTANCENAME>"
            "</LOCALINSTANCEPATH></VALUE.REFERENCE></KEYBINDING></INSTANCENAME>");
}

TEST(ObjectPath, references_keep_as_much_of_their_path_as_is_given) {
  EXPECT_EQ(sent_reference("CIM_X.A=1"),
            "<VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"CIM_X\"><KEYBINDING NAME=\"A\">"
            "<KEYVALUE VALUETYPE = \"numeric\">1</KEYVALUE></KEYBINDING></INSTANCENAME>"
            "</VALUE.REFERENCE>");
  EXPECT_EQ(sent_reference("//h/root:CIM_X=@"),
            "<VALUE.REFERENCE><INSTANCEPATH><NAMESPACEPATH><HOST>h</HOST><LOCALNAMESPACEPATH>"
            "<NAMESPACE NAME=\"root\"/></LOCALNAMESPACEPATH></NAMESPACEPATH>"
            "<INSTANCENAME CLASSNAME=\"CIM_X\"></INSTANCENAME></INSTANCEPATH></VALUE.REFERENCE>");
  EXPECT_EQ(sent_reference("CIM_X"),
            "<VALUE.REFERENCE><CLASSNAME NAME=\"CIM_X\"/></VALUE.REFERENCE>");
  EXPECT_EQ(sent_reference("root:CIM_X"),
            "<VALUE.REFERENCE><LOCALCLASSPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
            "</LOCALNAMESPACEPATH><CLASSNAME NAME =\"CIM_X\"/></LOCALCLASSPATH></VALUE.REFERENCE>");
  EXPECT_EQ(sent_reference("//h/root:CIM_X"),
            "<VALUE.REFERENCE><CLASSPATH><NAMESPACEPATH><HOST>h</HOST><LOCALNAMESPACEPATH>"
            "<NAMESPACE NAME=\"root\"/></LOCALNAMESPACEPATH></NAMESPACEPATH>"
            "<CLASSNAME NAME=\"CIM_X\"/></CLASSPATH></VALUE.REFERENCE>");
}

}  // namespace
}  // namespace cli
