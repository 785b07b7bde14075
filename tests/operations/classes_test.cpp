// The operations on classes over CIM-XML.
#include <gtest/gtest.h>

#include "operations/object_manager.h"
#include "operations/records.h"
#include "support/written.h"

namespace operations_test {
namespace {

// ---- GetClass ----

TEST(GetClass, sends_the_whole_message) {
  ObjectManager object_manager(no_answer);
  const auto name = class_name("CIM_Fan");
  CIMC_XML_GetClass(object_manager.handle(), name.get(), 0, 1, 0, nullptr, nullptr);
  EXPECT_EQ(object_manager.message(),
            "POST  /cimom HTTP/1.1 \r\n"
            "Content-Type: application/xml; charset=\"utf-8\"\r\n"
            "Content-Length: 551\r\n"
            "Authorization: Basic dXNlcjpzZWNyZXQ=\r\n"
            "\n\r"
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
            "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
            "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\">"
            "<SIMPLEREQ>"
            "<IMETHODCALL NAME=\"GetClass\">"
            "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root/cimv2\"/></LOCALNAMESPACEPATH>"
            "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"CIM_Fan\"/></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"LocalOnly\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"IncludeQualifiers\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"IncludeClassOrigin\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
            "</IMETHODCALL>"
            "</SIMPLEREQ>"
            "</MESSAGE>"
            "</CIM>");
}

TEST(GetClass, leaves_out_what_is_not_given) {
  ObjectManager object_manager(no_answer);
  CIMC_XML_GetClass(object_manager.handle(), nullptr, 2, 7, 1, nullptr, nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "GetClass",
                "<IPARAMVALUE NAME=\"IncludeClassOrigin\"><VALUE>TRUE</VALUE></IPARAMVALUE>"));
}

TEST(GetClass, does_not_send_a_property_list) {
  ObjectManager object_manager(no_answer);
  char speed[] = "Speed";
  char* properties[] = {speed, nullptr};
  CIMC_XML_GetClass(object_manager.handle(), nullptr, 2, 2, 4294967295u, properties, nullptr);
  EXPECT_EQ(object_manager.request(), operation_request("GetClass", ""));
}

TEST(GetClass, sends_a_namespace_without_name_when_the_handle_has_none) {
  ObjectManager object_manager(no_answer);
  Handle* handle = object_manager.handle();
  free(handle->namespace_);
  handle->namespace_ = nullptr;
  CIMC_XML_GetClass(handle, nullptr, 2, 2, 2, nullptr, nullptr);
  EXPECT_EQ(object_manager.request(),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
            "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
            "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
            "<IMETHODCALL NAME=\"GetClass\">"
            "<LOCALNAMESPACEPATH><NAMESPACE NAME=/></LOCALNAMESPACEPATH>"
            "</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>");
}

TEST(GetClass, returns_the_class) {
  ObjectManager object_manager(
      http_answer(operation_answer("GetClass",
                                   "<IRETURNVALUE>\n"
                                   "<CLASS NAME=\"CIM_Fan\" SUPERCLASS=\"CIM_CoolingDevice\">\n"
                                   "<PROPERTY NAME=\"Speed\" TYPE=\"uint32\">\n"
                                   "</PROPERTY>\n"
                                   "<METHOD NAME=\"SetSpeed\" TYPE=\"uint32\">\n"
                                   "</METHOD>\n"
                                   "</CLASS>\n"
                                   "</IRETURNVALUE>\n")));
  Error* error = nullptr;
  const OwnedClass found(
      CIMC_XML_GetClass(object_manager.handle(), nullptr, 2, 2, 2, nullptr, &error));
  EXPECT_EQ(error, nullptr);
  ASSERT_NE(found, nullptr);
  EXPECT_STREQ(found->name, "CIM_Fan");
  EXPECT_STREQ(found->superClass, "CIM_CoolingDevice");
  ASSERT_NE(found->properties, nullptr);
  EXPECT_STREQ(found->properties->name, "Speed");
  ASSERT_NE(found->methods, nullptr);
  EXPECT_STREQ(found->methods->name, "SetSpeed");
  EXPECT_EQ(found->next, nullptr);
}

// A record of class names is a list: all of it is sent, and none of it changes.
TEST(GetClass, leaves_the_class_name_as_it_is) {
  ObjectManager object_manager(no_answer);
  auto names = class_name("CIM_Fan");
  names->next = class_name("CIM_Pump").release();
  CIMC_XML_GetClass(object_manager.handle(), names.get(), 2, 2, 2, nullptr, nullptr);
  EXPECT_STREQ(names->name, "CIM_Fan");
  ASSERT_NE(names->next, nullptr);
  EXPECT_STREQ(names->next->name, "CIM_Pump");
  EXPECT_EQ(names->next->next, nullptr);
}

// ---- EnumerateClasses ----

TEST(EnumerateClasses, sends_deep_inheritance_before_local_only) {
  ObjectManager object_manager(no_answer);
  const auto name = class_name("CIM_Fan");
  CIMC_XML_EnumerateClasses(object_manager.handle(), name.get(), 1, 0, 1, 0, nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "EnumerateClasses",
                "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"CIM_Fan\"/></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"DeepInheritance\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"LocalOnly\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"IncludeQualifiers\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"IncludeClassOrigin\"><VALUE>FALSE</VALUE></IPARAMVALUE>"));
}

TEST(EnumerateClasses, leaves_out_what_is_not_given) {
  ObjectManager object_manager(no_answer);
  CIMC_XML_EnumerateClasses(object_manager.handle(), nullptr, 2, 1, 3, 0, nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "EnumerateClasses",
                "<IPARAMVALUE NAME=\"LocalOnly\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"IncludeClassOrigin\"><VALUE>FALSE</VALUE></IPARAMVALUE>"));
}

TEST(EnumerateClasses, returns_the_classes_in_their_order) {
  ObjectManager object_manager(http_answer(operation_answer("EnumerateClasses",
                                                            "<IRETURNVALUE>\n"
                                                            "<CLASS NAME=\"CIM_Fan\">\n</CLASS>\n"
                                                            "<CLASS NAME=\"CIM_Pump\">\n</CLASS>\n"
                                                            "</IRETURNVALUE>\n")));
  const OwnedClass found(
      CIMC_XML_EnumerateClasses(object_manager.handle(), nullptr, 2, 2, 2, 2, nullptr));
  ASSERT_NE(found, nullptr);
  EXPECT_STREQ(found->name, "CIM_Fan");
  ASSERT_NE(found->next, nullptr);
  EXPECT_STREQ(found->next->name, "CIM_Pump");
  EXPECT_EQ(found->next->next, nullptr);
}

// ---- EnumerateClassNames ----

TEST(EnumerateClassNames, sends_class_name_and_deep_inheritance) {
  ObjectManager object_manager(no_answer);
  const auto name = class_name("CIM_Fan");
  CIMC_XML_EnumerateClassNames(object_manager.handle(), name.get(), 0, nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "EnumerateClassNames",
                "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"CIM_Fan\"/></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"DeepInheritance\"><VALUE>FALSE</VALUE></IPARAMVALUE>"));
}

TEST(EnumerateClassNames, sends_no_parameter_when_none_is_given) {
  ObjectManager object_manager(no_answer);
  CIMC_XML_EnumerateClassNames(object_manager.handle(), nullptr, 2, nullptr);
  EXPECT_EQ(object_manager.request(), operation_request("EnumerateClassNames", ""));
}

TEST(EnumerateClassNames, returns_the_names_in_their_order) {
  ObjectManager object_manager(http_answer(operation_answer("EnumerateClassNames",
                                                            "<IRETURNVALUE>\n"
                                                            "<CLASSNAME NAME=\"CIM_Fan\"/>\n"
                                                            "<CLASSNAME NAME=\"CIM_Pump\"/>\n"
                                                            "</IRETURNVALUE>\n")));
  const OwnedClassName found(
      CIMC_XML_EnumerateClassNames(object_manager.handle(), nullptr, 2, nullptr));
  ASSERT_NE(found, nullptr);
  EXPECT_STREQ(found->name, "CIM_Fan");
  ASSERT_NE(found->next, nullptr);
  EXPECT_STREQ(found->next->name, "CIM_Pump");
  EXPECT_EQ(found->next->next, nullptr);
}

}  // namespace
}  // namespace operations_test
