// The operations on associations, and the query, over CIM-XML.
#include <gtest/gtest.h>

#include "operations/object_manager.h"
#include "operations/records.h"
#include "support/written.h"

namespace operations_test {
namespace {

using support::written;

// ---- Associators ----

TEST(Associators, sends_every_parameter_in_its_order) {
  ObjectManager object_manager(no_answer);
  const auto object = object_name(nullptr, instance_name("CIM_Fan", "left"));
  const auto association = class_name("CIM_Cooling");
  const auto result = class_name("CIM_Case");
  CIMC_XML_Associators(object_manager.handle(), object.get(), association.get(), result.get(),
                       "Cooler", "Cooled", 0, 1, nullptr, nullptr);
  EXPECT_EQ(
      object_manager.request(),
      operation_request(
          "Associators",
          "<IPARAMVALUE NAME=\"ObjectName\">"
          "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
          "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
          "</INSTANCENAME></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"AssocClass\"><CLASSNAME NAME=\"CIM_Cooling\"/></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"ResultClass\"><CLASSNAME NAME=\"CIM_Case\"/></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"Role\"><VALUE>Cooler</VALUE></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"ResultRole\"><VALUE>Cooled</VALUE></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"IncludeQualifiers\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"IncludeClassOrigin\"><VALUE>TRUE</VALUE></IPARAMVALUE>"));
}

// Object managers know the parameter as "ObjectName" only, and refuse this.
TEST(Associators, a_class_is_sent_as_class_name) {
  ObjectManager object_manager(no_answer);
  const auto object = object_name("CIM_Fan", instance_name("CIM_Pump", "left"));
  CIMC_XML_Associators(object_manager.handle(), object.get(), nullptr, nullptr, nullptr, nullptr, 2,
                       2, nullptr, nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "Associators",
                "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"CIM_Fan\"/></IPARAMVALUE>"));
}

TEST(Associators, an_empty_object_name_sends_no_object) {
  ObjectManager object_manager(no_answer);
  const auto object = object_name(nullptr, nullptr);
  CIMC_XML_Associators(object_manager.handle(), object.get(), nullptr, nullptr, "", nullptr, 2, 0,
                       nullptr, nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "Associators",
                "<IPARAMVALUE NAME=\"Role\"><VALUE></VALUE></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"IncludeClassOrigin\"><VALUE>FALSE</VALUE></IPARAMVALUE>"));
}

TEST(Associators, a_null_object_name_sends_no_object) {
  ObjectManager object_manager(no_answer);
  CIMC_XML_Associators(object_manager.handle(), nullptr, nullptr, nullptr, nullptr, nullptr, 2, 2,
                       nullptr, nullptr);
  EXPECT_EQ(object_manager.request(), operation_request("Associators", ""));
}

TEST(Associators, returns_instances_with_their_paths) {
  ObjectManager object_manager(http_answer(operation_answer(
      "Associators",
      "<IRETURNVALUE>\n"
      "<VALUE.OBJECTWITHPATH>\n"
      "<INSTANCEPATH>\n"
      "<NAMESPACEPATH>\n<HOST>127.0.0.1</HOST>\n"
      "<LOCALNAMESPACEPATH>\n<NAMESPACE NAME=\"root\"/>\n<NAMESPACE NAME=\"cimv2\"/>\n"
      "</LOCALNAMESPACEPATH>\n</NAMESPACEPATH>\n"
      "<INSTANCENAME CLASSNAME=\"CIM_Case\">\n</INSTANCENAME>\n"
      "</INSTANCEPATH>\n"
      "<INSTANCE CLASSNAME=\"CIM_Case\">\n</INSTANCE>\n"
      "</VALUE.OBJECTWITHPATH>\n"
      "</IRETURNVALUE>\n")));
  const OwnedObjectWithPath found(CIMC_XML_Associators(object_manager.handle(), nullptr, nullptr,
                                                       nullptr, nullptr, nullptr, 2, 2, nullptr,
                                                       nullptr));
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(written(Gen_ObjectWithPath, found.get()),
            "<VALUE.OBJECTWITHPATH>"
            "<INSTANCEPATH>"
            "<NAMESPACEPATH><HOST>127.0.0.1</HOST>"
            "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/>"
            "</LOCALNAMESPACEPATH></NAMESPACEPATH>"
            "<INSTANCENAME CLASSNAME=\"CIM_Case\"></INSTANCENAME>"
            "</INSTANCEPATH>"
            "<INSTANCE CLASSNAME=\"CIM_Case\"></INSTANCE>"
            "</VALUE.OBJECTWITHPATH>");
}

TEST(Associators, leaves_the_records_given_as_they_are) {
  ObjectManager object_manager(http_answer(operation_answer("Associators", "<IRETURNVALUE/>")));
  const auto object = object_name(nullptr, instance_name("CIM_Fan", "left"));
  const auto association = class_name("CIM_Cooling");
  const auto result = class_name("CIM_Case");
  CIMC_XML_Associators(object_manager.handle(), object.get(), association.get(), result.get(),
                       "Cooler", "Cooled", 0, 1, nullptr, nullptr);
  EXPECT_EQ(object->className, nullptr);
  EXPECT_EQ(
      written(Gen_InstanceName, object->instanceName),
      "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
      "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
      "</INSTANCENAME>");
  EXPECT_STREQ(association->name, "CIM_Cooling");
  EXPECT_EQ(association->next, nullptr);
  EXPECT_STREQ(result->name, "CIM_Case");
  EXPECT_EQ(result->next, nullptr);
}

// ---- AssociatorNames ----

TEST(AssociatorNames, sends_every_parameter_in_its_order) {
  ObjectManager object_manager(no_answer);
  const auto object = object_name("CIM_Fan", nullptr);
  const auto association = class_name("CIM_Cooling");
  const auto result = class_name("CIM_Case");
  CIMC_XML_AssociatorNames(object_manager.handle(), object.get(), association.get(), result.get(),
                           "Cooler", "Cooled", nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "AssociatorNames",
                "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"CIM_Fan\"/></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"AssocClass\"><CLASSNAME NAME=\"CIM_Cooling\"/></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"ResultClass\"><CLASSNAME NAME=\"CIM_Case\"/></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"Role\"><VALUE>Cooler</VALUE></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"ResultRole\"><VALUE>Cooled</VALUE></IPARAMVALUE>"));
}

TEST(AssociatorNames, leaves_out_what_is_not_given) {
  ObjectManager object_manager(no_answer);
  const auto object = object_name(nullptr, instance_name("CIM_Fan", "left"));
  CIMC_XML_AssociatorNames(object_manager.handle(), object.get(), nullptr, nullptr, nullptr,
                           "Cooled", nullptr);
  EXPECT_EQ(
      object_manager.request(),
      operation_request(
          "AssociatorNames",
          "<IPARAMVALUE NAME=\"ObjectName\">"
          "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
          "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
          "</INSTANCENAME></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"ResultRole\"><VALUE>Cooled</VALUE></IPARAMVALUE>"));
}

TEST(AssociatorNames, returns_one_path_per_object) {
  ObjectManager object_manager(http_answer(operation_answer(
      "AssociatorNames",
      "<IRETURNVALUE>\n"
      "<OBJECTPATH>\n<INSTANCEPATH>\n<INSTANCENAME CLASSNAME=\"CIM_Case\">\n</INSTANCENAME>\n"
      "</INSTANCEPATH>\n</OBJECTPATH>\n"
      "<OBJECTPATH>\n<INSTANCEPATH>\n<INSTANCENAME CLASSNAME=\"CIM_Rack\">\n</INSTANCENAME>\n"
      "</INSTANCEPATH>\n</OBJECTPATH>\n"
      "</IRETURNVALUE>\n")));
  const OwnedObjectPath found(CIMC_XML_AssociatorNames(object_manager.handle(), nullptr, nullptr,
                                                       nullptr, nullptr, nullptr, nullptr));
  ASSERT_NE(found, nullptr);
  EXPECT_STREQ(found->instancePath->instanceName->className->name, "CIM_Case");
  ASSERT_NE(found->next, nullptr);
  EXPECT_STREQ(found->next->instancePath->instanceName->className->name, "CIM_Rack");
  EXPECT_EQ(found->next->next, nullptr);
}

// ---- References ----

TEST(References, sends_the_role_last) {
  ObjectManager object_manager(no_answer);
  const auto object = object_name(nullptr, instance_name("CIM_Fan", "left"));
  const auto result = class_name("CIM_Cooling");
  CIMC_XML_References(object_manager.handle(), object.get(), result.get(), "r", 1, 1, nullptr,
                      nullptr);
  EXPECT_EQ(
      object_manager.request(),
      operation_request(
          "References",
          "<IPARAMVALUE NAME=\"ObjectName\">"
          "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
          "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
          "</INSTANCENAME></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"ResultClass\"><CLASSNAME NAME=\"CIM_Cooling\"/></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"IncludeQualifiers\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"IncludeClassOrigin\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"Role\"><VALUE>r</VALUE></IPARAMVALUE>"));
}

TEST(References, leaves_out_what_is_not_given) {
  ObjectManager object_manager(no_answer);
  const auto object = object_name("CIM_Fan", nullptr);
  CIMC_XML_References(object_manager.handle(), object.get(), nullptr, nullptr, 0, 2, nullptr,
                      nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "References",
                "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"CIM_Fan\"/></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"IncludeQualifiers\"><VALUE>FALSE</VALUE></IPARAMVALUE>"));
}

TEST(References, returns_instances_with_their_paths) {
  ObjectManager object_manager(http_answer(
      operation_answer("References",
                       "<IRETURNVALUE>\n"
                       "<VALUE.OBJECTWITHPATH>\n"
                       "<INSTANCEPATH>\n<INSTANCENAME CLASSNAME=\"CIM_Cooling\">\n</INSTANCENAME>\n"
                       "</INSTANCEPATH>\n"
                       "<INSTANCE CLASSNAME=\"CIM_Cooling\">\n</INSTANCE>\n"
                       "</VALUE.OBJECTWITHPATH>\n"
                       "</IRETURNVALUE>\n")));
  const OwnedObjectWithPath found(CIMC_XML_References(object_manager.handle(), nullptr, nullptr,
                                                      nullptr, 2, 2, nullptr, nullptr));
  ASSERT_NE(found, nullptr);
  EXPECT_STREQ(found->instancePath->instanceName->className->name, "CIM_Cooling");
  EXPECT_STREQ(found->instance->className->name, "CIM_Cooling");
  EXPECT_EQ(found->next, nullptr);
}

// ---- ReferenceNames ----

TEST(ReferenceNames, sends_every_parameter_in_its_order) {
  ObjectManager object_manager(no_answer);
  const auto object = object_name(nullptr, instance_name("CIM_Fan", "left"));
  const auto result = class_name("CIM_Cooling");
  CIMC_XML_ReferenceNames(object_manager.handle(), object.get(), result.get(), "Cooler", nullptr);
  EXPECT_EQ(
      object_manager.request(),
      operation_request(
          "ReferenceNames",
          "<IPARAMVALUE NAME=\"ObjectName\">"
          "<INSTANCENAME CLASSNAME=\"CIM_Fan\">"
          "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE = \"string\">left</KEYVALUE></KEYBINDING>"
          "</INSTANCENAME></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"ResultClass\"><CLASSNAME NAME=\"CIM_Cooling\"/></IPARAMVALUE>"
          "<IPARAMVALUE NAME=\"Role\"><VALUE>Cooler</VALUE></IPARAMVALUE>"));
}

TEST(ReferenceNames, a_class_is_sent_as_class_name) {
  ObjectManager object_manager(no_answer);
  const auto object = object_name("CIM_Fan", nullptr);
  CIMC_XML_ReferenceNames(object_manager.handle(), object.get(), nullptr, nullptr, nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "ReferenceNames",
                "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"CIM_Fan\"/></IPARAMVALUE>"));
}

TEST(ReferenceNames, wraps_the_list_of_names_in_one_object_path) {
  ObjectManager object_manager(
      http_answer(operation_answer("ReferenceNames",
                                   "<IRETURNVALUE>\n"
                                   "<INSTANCENAME CLASSNAME=\"CIM_Cooling\">\n</INSTANCENAME>\n"
                                   "<INSTANCENAME CLASSNAME=\"CIM_Mounting\">\n</INSTANCENAME>\n"
                                   "</IRETURNVALUE>\n")));
  const OwnedObjectPath found(
      CIMC_XML_ReferenceNames(object_manager.handle(), nullptr, nullptr, nullptr, nullptr));
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->classPath, nullptr);
  EXPECT_EQ(found->next, nullptr);
  ASSERT_NE(found->instancePath, nullptr);
  EXPECT_EQ(found->instancePath->namespacePath, nullptr);
  const InstanceName* names = found->instancePath->instanceName;
  ASSERT_NE(names, nullptr);
  EXPECT_STREQ(names->className->name, "CIM_Cooling");
  ASSERT_NE(names->next, nullptr);
  EXPECT_STREQ(names->next->className->name, "CIM_Mounting");
  EXPECT_EQ(names->next->next, nullptr);
}

// As object managers of the field answer.
TEST(ReferenceNames, object_paths_give_null_without_an_error) {
  ObjectManager object_manager(http_answer(operation_answer(
      "ReferenceNames",
      "<IRETURNVALUE>\n"
      "<OBJECTPATH>\n<INSTANCEPATH>\n<INSTANCENAME CLASSNAME=\"CIM_Cooling\">\n</INSTANCENAME>\n"
      "</INSTANCEPATH>\n</OBJECTPATH>\n"
      "</IRETURNVALUE>\n")));
  Error* error = nullptr;
  EXPECT_EQ(CIMC_XML_ReferenceNames(object_manager.handle(), nullptr, nullptr, nullptr, &error),
            nullptr);
  EXPECT_EQ(error, nullptr);
}

// ---- ExecQuery ----

TEST(ExecQuery, sends_the_language_before_the_query) {
  ObjectManager object_manager(no_answer);
  CIMC_XML_ExecQuery(object_manager.handle(), "WQL", "SELECT * FROM CIM_Fan", nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "ExecQuery",
                "<IPARAMVALUE NAME=\"QueryLanguage\"><VALUE>WQL</VALUE></IPARAMVALUE>"
                "<IPARAMVALUE NAME=\"Query\"><VALUE>SELECT * FROM CIM_Fan</VALUE></IPARAMVALUE>"));
}

TEST(ExecQuery, leaves_out_what_is_not_given) {
  ObjectManager object_manager(no_answer);
  CIMC_XML_ExecQuery(object_manager.handle(), nullptr, "SELECT * FROM CIM_Fan", nullptr);
  EXPECT_EQ(object_manager.request(),
            operation_request(
                "ExecQuery",
                "<IPARAMVALUE NAME=\"Query\"><VALUE>SELECT * FROM CIM_Fan</VALUE></IPARAMVALUE>"));
}

TEST(ExecQuery, returns_instances_with_their_paths) {
  ObjectManager object_manager(http_answer(
      operation_answer("ExecQuery",
                       "<IRETURNVALUE>\n"
                       "<VALUE.OBJECTWITHPATH>\n"
                       "<INSTANCEPATH>\n<INSTANCENAME CLASSNAME=\"CIM_Fan\">\n</INSTANCENAME>\n"
                       "</INSTANCEPATH>\n"
                       "<INSTANCE CLASSNAME=\"CIM_Fan\">\n</INSTANCE>\n"
                       "</VALUE.OBJECTWITHPATH>\n"
                       "</IRETURNVALUE>\n")));
  const OwnedObjectWithPath found(
      CIMC_XML_ExecQuery(object_manager.handle(), nullptr, nullptr, nullptr));
  ASSERT_NE(found, nullptr);
  EXPECT_STREQ(found->instancePath->instanceName->className->name, "CIM_Fan");
  EXPECT_STREQ(found->instance->className->name, "CIM_Fan");
  EXPECT_EQ(found->next, nullptr);
}

}  // namespace
}  // namespace operations_test
