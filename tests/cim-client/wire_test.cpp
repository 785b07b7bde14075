// Records made fit to send.
#include "wire.h"

#include <gtest/gtest.h>

#include "object_path.h"
#include "records.h"
#include "sample_records.h"

namespace cli {
namespace {

template <class Record, class Writer>
std::string sent(Record* record, Writer write) {
  char* text = nullptr;
  write(record, &text);
  const TextOwner owner(text);
  return std::string(text_or_empty(text));
}

TEST(Wire, class_names_are_escaped) {
  const ClassNameOwner name(CIMC_CreateClassName("CIM\"<X>"));
  escape_texts(name.get());
  EXPECT_STREQ(name->name, "CIM&quot;&lt;X&gt;");
}

TEST(Wire, keys_are_escaped_down_to_nested_references) {
  ObjectUri path = parse_object(R"(CIM_Has.A="1 < 2",Part="//h&h/r&s:CIM_Fan.K=\"a&b\"")");
  path.keys[1].kind = Key::Kind::Reference;
  const InstanceNameOwner name = make_instance_name(path);
  escape_texts(name.get());
  EXPECT_EQ(sent(name.get(), Gen_InstanceName),
            "<INSTANCENAME CLASSNAME=\"CIM_Has\">"
            "<KEYBINDING NAME=\"A\"><KEYVALUE VALUETYPE = \"string\">1 &lt; 2</KEYVALUE>"
            "</KEYBINDING><KEYBINDING NAME=\"Part\"><VALUE.REFERENCE><INSTANCEPATH><NAMESPACEPATH>"
            "<HOST>h&amp;h</HOST><LOCALNAMESPACEPATH><NAMESPACE NAME=\"r&amp;s\"/>"
            "</LOCALNAMESPACEPATH></NAMESPACEPATH><INSTANCENAME CLASSNAME=\"CIM_Fan\">"
            "<KEYBINDING NAME=\"K\"><KEYVALUE VALUETYPE = \"string\">a&amp;b</KEYVALUE>"
            "</KEYBINDING></INSTANCENAME></INSTANCEPATH></VALUE.REFERENCE></KEYBINDING>"
            "</INSTANCENAME>");
}

TEST(Wire, every_value_of_an_instance_is_escaped) {
  const InstanceOwner instance(new_record<Instance>());
  instance->className = CIMC_CreateClassName("CIM_X");
  char value[] = "a & b";
  AddToProeprtyList(&instance->properties, "P", value, "string");
  auto* array = new_record<ValueArray>();
  AddToValueList(&array->values, "<1>");
  AddToValueList(&array->values, "plain");
  AddToPropertyArrayList(&instance->propertyArrays, "Q", array, "string");
  instance->propertyReferences = new_record<PropertyReference>();
  instance->propertyReferences->name = new_text("R");
  instance->propertyReferences->valueReference =
      samples::reference("", "", "CIM_Y", {{"K", "<"}}).release();
  escape_texts(instance.get());
  EXPECT_EQ(sent(instance.get(), Gen_Instance),
            "<INSTANCE CLASSNAME=\"CIM_X\">"
            "<PROPERTY NAME=\"P\" TYPE=\"string\"><VALUE>a &amp; b</VALUE></PROPERTY>"
            "<PROPERTY.ARRAY NAME=\"Q\" TYPE=\"string\"><VALUE.ARRAY><VALUE>&lt;1&gt;</VALUE>"
            "<VALUE>plain</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>"
            "<PROPERTY.REFERENCE NAME=\"R\"><VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"CIM_Y\">"
            "<KEYBINDING NAME=\"K\"><KEYVALUE VALUETYPE = \"string\">&lt;</KEYVALUE></KEYBINDING>"
            "</INSTANCENAME></VALUE.REFERENCE></PROPERTY.REFERENCE></INSTANCE>");
}

TEST(Wire, texts_inside_embedded_instances_are_escaped_once) {
  const ParamValueOwner parameter(new_record<ParamValue>());
  parameter->name = new_text("Setting");
  parameter->value = new_record<Value>();
  parameter->value->isCData = 1;
  parameter->value->instance = new_record<Instance>();
  parameter->value->instance->className = CIMC_CreateClassName("CIM_S");
  char value[] = "]]> & <";
  AddToProeprtyList(&parameter->value->instance->properties, "P", value, "string");
  escape_texts(parameter.get());
  Property* const properties = parameter->value->instance->properties;
  EXPECT_EQ(sent(parameter.get(), Gen_ParamValue),
            "<PARAMVALUE NAME=\"Setting\"><VALUE><![CDATA[\n<INSTANCE CLASSNAME=\"CIM_S\">"
            "<PROPERTY NAME=\"P\" TYPE= \"string\"><VALUE>]]&gt; &amp; &lt;</VALUE></PROPERTY>"
            "</INSTANCE>]]></VALUE></PARAMVALUE>");
  // The writer unhooks the properties that it has written.
  EXPECT_EQ(parameter->value->instance->properties, nullptr);
  Free_Property(properties);
}

TEST(Wire, null_records_are_left_alone) {
  escape_texts(static_cast<ClassName*>(nullptr));
  escape_texts(static_cast<InstanceName*>(nullptr));
  escape_texts(static_cast<Instance*>(nullptr));
  escape_texts(static_cast<ParamValue*>(nullptr));
  SUCCEED();
}

}  // namespace
}  // namespace cli
