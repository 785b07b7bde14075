// The operations that make, change and delete instances over CIM-XML.
#include <gtest/gtest.h>

#include <memory>

#include "operations/object_manager.h"
#include "operations/records.h"
#include "support/written.h"

namespace operations_test {
namespace {

using support::written;

// ---- CreateInstance ----

TEST(CreateInstance, sends_the_instance) {
  ObjectManager object_manager(no_answer);
  const auto record = instance("CIM_Fan", "100");
  CIMC_XML_CreateInstance(object_manager.handle(), record.get(), nullptr);
  EXPECT_EQ(
      object_manager.request(),
      operation_request("CreateInstance",
                        "<IPARAMVALUE NAME=\"NewInstance\">"
                        "<INSTANCE CLASSNAME=\"CIM_Fan\">"
                        "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\"><VALUE>100</VALUE></PROPERTY>"
                        "</INSTANCE></IPARAMVALUE>"));
}

TEST(CreateInstance, sends_no_parameter_without_an_instance) {
  ObjectManager object_manager(no_answer);
  CIMC_XML_CreateInstance(object_manager.handle(), nullptr, nullptr);
  EXPECT_EQ(object_manager.request(), operation_request("CreateInstance", ""));
}

TEST(CreateInstance, returns_the_name_and_leaves_the_instance_as_it_is) {
  ObjectManager object_manager(http_answer(operation_answer(
      "CreateInstance",
      "<IRETURNVALUE>\n"
      "<INSTANCENAME CLASSNAME=\"CIM_Fan\">\n"
      "<KEYBINDING NAME=\"Name\">\n<KEYVALUE VALUETYPE=\"string\">left</KEYVALUE>\n"
      "</KEYBINDING>\n"
      "</INSTANCENAME>\n"
      "</IRETURNVALUE>\n")));
  const auto record = instance("CIM_Fan", "100");
  const OwnedInstanceName created(
      CIMC_XML_CreateInstance(object_manager.handle(), record.get(), nullptr));
  ASSERT_NE(created, nullptr);
  EXPECT_STREQ(created->className->name, "CIM_Fan");
  EXPECT_STREQ(created->keyBindings->keyValue->text, "left");
  EXPECT_EQ(written(Gen_Instance, record.get()),
            "<INSTANCE CLASSNAME=\"CIM_Fan\">"
            "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\"><VALUE>100</VALUE></PROPERTY>"
            "</INSTANCE>");
}

// The writer takes the property lists off an embedded instance; only who kept a pointer to them
// can release them.
TEST(CreateInstance, an_embedded_instance_loses_its_properties) {
  ObjectManager object_manager(no_answer);
  const auto record = instance("CIM_Fan", "100");
  Value* value = record->properties->value;
  value->instance = instance("CIM_Blade", "7").release();
  value->isCData = 1;
  const std::unique_ptr<Property, Releases<Free_Property>> kept(value->instance->properties);
  CIMC_XML_CreateInstance(object_manager.handle(), record.get(), nullptr);
  EXPECT_EQ(
      object_manager.request(),
      operation_request("CreateInstance",
                        "<IPARAMVALUE NAME=\"NewInstance\">"
                        "<INSTANCE CLASSNAME=\"CIM_Fan\">"
                        "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\"><VALUE><![CDATA[\n"
                        "<INSTANCE CLASSNAME=\"CIM_Blade\">"
                        "<PROPERTY NAME=\"Speed\" TYPE= \"uint32\"><VALUE>7</VALUE></PROPERTY>"
                        "</INSTANCE>]]></VALUE></PROPERTY>"
                        "</INSTANCE></IPARAMVALUE>"));
  EXPECT_EQ(value->instance->properties, nullptr);
  EXPECT_STREQ(value->instance->className->name, "CIM_Blade");
}

// ---- ModifyInstance ----

TEST(ModifyInstance, sends_include_qualifiers_before_the_instance) {
  ObjectManager object_manager(no_answer);
  const auto record = named_instance("CIM_Fan", "left", "100");
  CIMC_XML_ModifyInstance(object_manager.handle(), record.get(), 0, nullptr, nullptr);
  EXPECT_EQ(
      object_manager.request(),
      operation_request(
          "ModifyInstance",
          "<IPARAMVALUE NAME=\"IncludeQualifiers\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"ModifiedInstance\">"
          "<VALUE.NAMEDINSTANCE>"
          "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
          "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
          "</INSTANCENAME>"
          "<INSTANCE CLASSNAME=\"CIM_Fan\">"
          "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\"><VALUE>100</VALUE></PROPERTY>"
          "</INSTANCE>"
          "</VALUE.NAMEDINSTANCE></IPARAMVALUE>"));
}

TEST(ModifyInstance, leaves_out_what_is_not_given) {
  ObjectManager object_manager(no_answer);
  char speed[] = "Speed";
  char* properties[] = {speed, nullptr};
  CIMC_XML_ModifyInstance(object_manager.handle(), nullptr, 2, properties, nullptr);
  EXPECT_EQ(object_manager.request(), operation_request("ModifyInstance", ""));
}

TEST(ModifyInstance, leaves_the_instance_as_it_is) {
  ObjectManager object_manager(http_answer(operation_answer("ModifyInstance", "")));
  const auto record = named_instance("CIM_Fan", "left", "100");
  Error* error = nullptr;
  EXPECT_EQ(CIMC_XML_ModifyInstance(object_manager.handle(), record.get(), 1, nullptr, &error), 0);
  EXPECT_EQ(error, nullptr);
  EXPECT_EQ(
      written(Gen_NamedInstance, record.get()),
      "<VALUE.NAMEDINSTANCE>"
      "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
      "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
      "</INSTANCENAME>"
      "<INSTANCE CLASSNAME=\"CIM_Fan\">"
      "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\"><VALUE>100</VALUE></PROPERTY>"
      "</INSTANCE>"
      "</VALUE.NAMEDINSTANCE>");
}

// ---- DeleteInstance ----

// The list of an instance name is not cut, unlike in GetInstance.
TEST(DeleteInstance, sends_every_name_of_a_list) {
  ObjectManager object_manager(no_answer);
  const auto name = instance_name("CIM_Fan", "left");
  InstanceName* rest = name->next = instance_name("CIM_Fan", "right").release();
  CIMC_XML_DeleteInstance(object_manager.handle(), name.get(), nullptr);
  EXPECT_EQ(
      object_manager.request(),
      operation_request(
          "DeleteInstance",
          "<IPARAMVALUE NAME=\"InstanceName\">"
          "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
          "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
          "</INSTANCENAME>"
          "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
          "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">right</KEYVALUE></KEYBINDING>"
          "</INSTANCENAME></IPARAMVALUE>"));
  EXPECT_EQ(name->next, rest);
}

TEST(DeleteInstance, sends_no_parameter_without_a_name) {
  ObjectManager object_manager(no_answer);
  CIMC_XML_DeleteInstance(object_manager.handle(), nullptr, nullptr);
  EXPECT_EQ(object_manager.request(), operation_request("DeleteInstance", ""));
}

TEST(DeleteInstance, success_is_0_and_an_empty_error_slot) {
  ObjectManager object_manager(http_answer(operation_answer("DeleteInstance", "")));
  const auto name = instance_name("CIM_Fan", "left");
  Error* error = nullptr;
  EXPECT_EQ(CIMC_XML_DeleteInstance(object_manager.handle(), name.get(), &error), 0);
  EXPECT_EQ(error, nullptr);
}

}  // namespace
}  // namespace operations_test
