// The operations that read instances over CIM-XML.
#include <gtest/gtest.h>

#include <string>

#include "operations/object_manager.h"
#include "operations/records.h"
#include "support/written.h"

namespace operations_test {
namespace {

using support::written;

// ---- EnumerateInstances ----

TEST(EnumerateInstances, sends_local_only_before_deep_inheritance) {
  ObjectManager object_manager(no_answer);
  const auto name = class_name("CIM_Fan");
  CIMC_XML_EnumerateInstances(object_manager.handle(), name.get(), 0, 1, 0, 1, nullptr, nullptr);
  EXPECT_EQ(object_manager.message(),
            "POST  /cimom HTTP/1.1 \r\n"
            "Content-Type: application/xml; charset=\"utf-8\"\r\n"
            "Content-Length: 630\r\n"
            "Authorization: Basic dXNlcjpzZWNyZXQ=\r\n"
            "\n\r"
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
            "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
            "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
            "<IMETHODCALL NAME=\"EnumerateInstances\">"
            "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root/cimv2\"/></LOCALNAMESPACEPATH>"
            "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"CIM_Fan\"/></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"LocalOnly\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"DeepInheritance\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"IncludeQualifiers\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"IncludeClassOrigin\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
            "</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>");
}

TEST(EnumerateInstances, leaves_out_what_is_not_given) {
  ObjectManager object_manager(no_answer);
  CIMC_XML_EnumerateInstances(object_manager.handle(), nullptr, 2, 0, 1, 2, nullptr, nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "EnumerateInstances",
                "<IPARAMVALUE NAME=\"DeepInheritance\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"IncludeQualifiers\"><VALUE>TRUE</VALUE></IPARAMVALUE>"));
}

TEST(EnumerateInstances, does_not_send_a_property_list) {
  ObjectManager object_manager(no_answer);
  char speed[] = "Speed";
  char* properties[] = {speed, nullptr};
  CIMC_XML_EnumerateInstances(object_manager.handle(), nullptr, 2, 2, 2, 2, properties, nullptr);
  EXPECT_EQ(object_manager.request(), operation_request("EnumerateInstances", ""));
}

TEST(EnumerateInstances, returns_instances_with_their_names) {
  ObjectManager object_manager(http_answer(operation_answer(
      "EnumerateInstances",
      "<IRETURNVALUE>\n"
      "<VALUE.NAMEDINSTANCE>\n"
      "<INSTANCENAME CLASSNAME=\"CIM_Fan\">\n"
      "<KEYBINDING NAME=\"Name\">\n<KEYVALUE VALUETYPE=\"string\">left</KEYVALUE>\n"
      "</KEYBINDING>\n"
      "</INSTANCENAME>\n"
      "<INSTANCE CLASSNAME=\"CIM_Fan\">\n"
      "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\">\n<VALUE>100</VALUE>\n</PROPERTY>\n"
      "<PROPERTY NAME=\"Alarm\" TYPE=\"string\">\n</PROPERTY>\n"
      "</INSTANCE>\n"
      "</VALUE.NAMEDINSTANCE>\n"
      "<VALUE.NAMEDINSTANCE>\n"
      "<INSTANCENAME CLASSNAME=\"CIM_Pump\">\n</INSTANCENAME>\n"
      "<INSTANCE CLASSNAME=\"CIM_Pump\">\n</INSTANCE>\n"
      "</VALUE.NAMEDINSTANCE>\n"
      "</IRETURNVALUE>\n")));
  const OwnedNamedInstance found(
      CIMC_XML_EnumerateInstances(object_manager.handle(), nullptr, 2, 2, 2, 2, nullptr, nullptr));
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(
      written(Gen_NamedInstance, found.get()),
      "<VALUE.NAMEDINSTANCE>"
      "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
      "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
      "</INSTANCENAME>"
      "<INSTANCE CLASSNAME=\"CIM_Fan\">"
      "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\"><VALUE>100</VALUE></PROPERTY>"
      "<PROPERTY NAME=\"Alarm\" TYPE=\"string\"></PROPERTY>"
      "</INSTANCE>"
      "</VALUE.NAMEDINSTANCE>"
      "<VALUE.NAMEDINSTANCE>"
      "<INSTANCENAME CLASSNAME=\"CIM_Pump\"></INSTANCENAME>"
      "<INSTANCE CLASSNAME=\"CIM_Pump\"></INSTANCE>"
      "</VALUE.NAMEDINSTANCE>");
}

TEST(EnumerateInstances, returns_a_thousand_instances) {
  std::string instances;
  for (int number = 0; number < 1000; ++number)
    instances += "<VALUE.NAMEDINSTANCE>\n<INSTANCENAME CLASSNAME=\"C" + std::to_string(number) +
                 "\">\n</INSTANCENAME>\n<INSTANCE CLASSNAME=\"C\">\n</INSTANCE>\n"
                 "</VALUE.NAMEDINSTANCE>\n";
  ObjectManager object_manager(http_answer(
      operation_answer("EnumerateInstances", "<IRETURNVALUE>\n" + instances + "</IRETURNVALUE>")));
  const OwnedNamedInstance found(
      CIMC_XML_EnumerateInstances(object_manager.handle(), nullptr, 2, 2, 2, 2, nullptr, nullptr));
  int number = 0;
  for (const auto* node = found.get(); node; node = node->next, ++number)
    ASSERT_EQ(node->instanceName->className->name, "C" + std::to_string(number));
  EXPECT_EQ(number, 1000);
}

// ---- EnumerateInstanceNames ----

TEST(EnumerateInstanceNames, sends_the_class_name) {
  ObjectManager object_manager(no_answer);
  const auto name = class_name("CIM_Fan");
  CIMC_XML_EnumerateInstanceNames(object_manager.handle(), name.get(), nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "EnumerateInstanceNames",
                "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"CIM_Fan\"/></IPARAMVALUE>"));
}

TEST(EnumerateInstanceNames, sends_no_parameter_without_a_class_name) {
  ObjectManager object_manager(no_answer);
  CIMC_XML_EnumerateInstanceNames(object_manager.handle(), nullptr, nullptr);
  EXPECT_EQ(object_manager.request(), operation_request("EnumerateInstanceNames", ""));
}

TEST(EnumerateInstanceNames, returns_the_names_in_their_order) {
  ObjectManager object_manager(http_answer(operation_answer(
      "EnumerateInstanceNames",
      "<IRETURNVALUE>\n"
      "<INSTANCENAME CLASSNAME=\"CIM_Fan\">\n"
      "<KEYBINDING NAME=\"name\">\n<KEYVALUE VALUETYPE=\"string\">left</KEYVALUE>\n"
      "</KEYBINDING>\n"
      "</INSTANCENAME>\n"
      "<INSTANCENAME CLASSNAME=\"CIM_Fan\">\n"
      "<KEYBINDING NAME=\"name\">\n<KEYVALUE VALUETYPE=\"string\">right</KEYVALUE>\n"
      "</KEYBINDING>\n"
      "</INSTANCENAME>\n"
      "</IRETURNVALUE>\n")));
  const OwnedInstanceName found(
      CIMC_XML_EnumerateInstanceNames(object_manager.handle(), nullptr, nullptr));
  ASSERT_NE(found, nullptr);
  EXPECT_STREQ(found->keyBindings->keyValue->text, "left");
  ASSERT_NE(found->next, nullptr);
  EXPECT_STREQ(found->next->keyBindings->keyValue->text, "right");
  EXPECT_EQ(found->next->next, nullptr);
}

// ---- GetInstance ----

TEST(GetInstance, sends_the_instance_name_first) {
  ObjectManager object_manager(no_answer);
  const auto name = instance_name("CIM_Fan", "left");
  CIMC_XML_GetInstance(object_manager.handle(), name.get(), 1, 0, 1, nullptr, nullptr);
  EXPECT_EQ(
      object_manager.request(),
      operation_request(
          "GetInstance",
          "<IPARAMVALUE NAME=\"InstanceName\">"
          "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
          "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
          "</INSTANCENAME></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"LocalOnly\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"IncludeQualifiers\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"IncludeClassOrigin\"><VALUE>TRUE</VALUE></IPARAMVALUE>"));
}

TEST(GetInstance, leaves_out_what_is_not_given) {
  ObjectManager object_manager(no_answer);
  char speed[] = "Speed";
  char* properties[] = {speed, nullptr};
  CIMC_XML_GetInstance(object_manager.handle(), nullptr, 0, 2, 2, properties, nullptr);
  EXPECT_EQ(
      object_manager.request(),
      operation_request("GetInstance",
                        "<IPARAMVALUE NAME=\"LocalOnly\"><VALUE>FALSE</VALUE></IPARAMVALUE>"));
}

TEST(GetInstance, returns_the_instance) {
  ObjectManager object_manager(http_answer(operation_answer(
      "GetInstance",
      "<IRETURNVALUE>\n"
      "<INSTANCE CLASSNAME=\"CIM_Fan\">\n"
      "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\">\n<VALUE>100</VALUE>\n</PROPERTY>\n"
      "</INSTANCE>\n"
      "</IRETURNVALUE>\n")));
  const OwnedInstance found(
      CIMC_XML_GetInstance(object_manager.handle(), nullptr, 2, 2, 2, nullptr, nullptr));
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(written(Gen_Instance, found.get()),
            "<INSTANCE CLASSNAME=\"CIM_Fan\">"
            "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\"><VALUE>100</VALUE></PROPERTY>"
            "</INSTANCE>");
}

// An instance name at the head of a list of three, and the rest of that list.
class GetInstanceOfAList : public testing::Test {
 protected:
  GetInstanceOfAList() : first_(instance_name("CIM_Fan", "left")) {
    rest_ = first_->next = instance_name("CIM_Fan", "middle").release();
    rest_->next = instance_name("CIM_Fan", "right").release();
  }
  ~GetInstanceOfAList() override { first_->next = rest_; }

  void get_from(Handle* handle) {
    Error* error = nullptr;
    const OwnedInstance found(CIMC_XML_GetInstance(handle, first_.get(), 2, 2, 2, nullptr, &error));
    const OwnedError owned(error);
  }
  void get(const std::string& http) { get_from(ObjectManager(http).handle()); }

  OwnedInstanceName first_;
  InstanceName* rest_;
};

TEST_F(GetInstanceOfAList, sends_the_first_alone) {
  ObjectManager object_manager(no_answer);
  get_from(object_manager.handle());
  EXPECT_EQ(
      object_manager.request(),
      operation_request(
          "GetInstance",
          "<IPARAMVALUE NAME=\"InstanceName\">"
          "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
          "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
          "</INSTANCENAME></IPARAMVALUE>"));
}

TEST_F(GetInstanceOfAList, the_list_is_whole_again_after_an_instance) {
  get(http_answer(operation_answer(
      "GetInstance",
      "<IRETURNVALUE>\n<INSTANCE CLASSNAME=\"CIM_Fan\">\n</INSTANCE>\n</IRETURNVALUE>\n")));
  EXPECT_EQ(first_->next, rest_);
  EXPECT_STREQ(rest_->keyBindings->keyValue->text, "middle");
  EXPECT_STREQ(rest_->next->keyBindings->keyValue->text, "right");
}

TEST_F(GetInstanceOfAList, the_list_is_whole_again_after_an_error) {
  get(http_answer(operation_answer("GetInstance", "<ERROR CODE=\"6\" DESCRIPTION=\"x\"/>")));
  EXPECT_EQ(first_->next, rest_);
}

TEST_F(GetInstanceOfAList, the_list_stays_cut_after_a_refusal) {
  get(http_refusal());
  EXPECT_EQ(first_->next, nullptr);
}

TEST_F(GetInstanceOfAList, the_list_stays_cut_when_nobody_listens) {
  ObjectManager object_manager(no_answer);
  object_manager.handle()->port = support::unused_port();
  get_from(object_manager.handle());
  EXPECT_EQ(first_->next, nullptr);
}

TEST_F(GetInstanceOfAList, the_list_stays_cut_after_an_answer_without_content_length) {
  get("HTTP/1.1 200 OK\r\n\r\n<?xml version=\"1.0\"?><CIM></CIM>");
  EXPECT_EQ(first_->next, nullptr);
}

TEST_F(GetInstanceOfAList, the_list_stays_cut_after_an_answer_without_xml) {
  get("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
  EXPECT_EQ(first_->next, nullptr);
}

TEST_F(GetInstanceOfAList, the_list_stays_cut_after_an_empty_answer) {
  get("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n<?xml version=\"1.0\"?><CIM></CIM>");
  EXPECT_EQ(first_->next, nullptr);
}

TEST_F(GetInstanceOfAList, a_null_handle_leaves_the_list_whole) {
  get_from(nullptr);
  EXPECT_EQ(first_->next, rest_);
}

}  // namespace
}  // namespace operations_test
