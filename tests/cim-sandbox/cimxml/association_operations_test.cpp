// Whole responses of the association operations and of queries.
#include "cimxml/association_operations.h"

#include "support/serviced_objects.h"

namespace sandbox::cimxml {
namespace {

using test::class_name;
using test::flag;
using test::intrinsic_response;
using test::parameter;

class AssociationOperations : public test::ServicedObjects {
 protected:
  AssociationOperations()
      : ServicedObjects(
            "class Car { [Key] string Id; uint8 Seats; };\nclass Wheel { [Key] uint8 Number; };\n"
            "[Association] class Part { [Key] Car REF Whole; [Key] Wheel REF Item; };\n"
            "instance of Car as $C { Id = \"c\"; Seats = 4; };\n"
            "instance of Wheel as $W { Number = 1; };\n"
            "instance of Part { Whole = $C; Item = $W; };") {}

  static std::string instance_path(const std::string& name) {
    return "<INSTANCEPATH>\n"
           "<NAMESPACEPATH>\n"
           "<HOST>localhost</HOST>\n"
           "<LOCALNAMESPACEPATH>\n"
           "<NAMESPACE NAME=\"root\"/>\n"
           "<NAMESPACE NAME=\"cimv2\"/>\n"
           "</LOCALNAMESPACEPATH>\n"
           "</NAMESPACEPATH>\n" +
           name + "</INSTANCEPATH>\n";
  }
};

constexpr auto wheel =
    "<INSTANCENAME CLASSNAME=\"Wheel\"><KEYBINDING NAME=\"Number\">"
    "<KEYVALUE VALUETYPE = \"numeric\">1</KEYVALUE></KEYBINDING></INSTANCENAME>";
constexpr auto car_name =
    "<INSTANCENAME CLASSNAME=\"Car\">\n"
    "<KEYBINDING NAME=\"Id\">\n"
    "<KEYVALUE VALUETYPE=\"string\">c</KEYVALUE>\n"
    "</KEYBINDING>\n"
    "</INSTANCENAME>\n";
constexpr auto wheel_name =
    "<INSTANCENAME CLASSNAME=\"Wheel\">\n"
    "<KEYBINDING NAME=\"Number\">\n"
    "<KEYVALUE VALUETYPE=\"numeric\">1</KEYVALUE>\n"
    "</KEYBINDING>\n"
    "</INSTANCENAME>\n";

TEST_F(AssociationOperations, associators_come_as_objects_with_path) {
  EXPECT_EQ(
      call("Associators", parameter("ObjectName", wheel) + class_name("AssocClass", "Part") +
                              class_name("ResultClass", "Car") + flag("Role", "Item") +
                              flag("ResultRole", "Whole") + flag("IncludeQualifiers", "FALSE") +
                              flag("IncludeClassOrigin", "TRUE")),
      intrinsic_response("Associators",
                         "<IRETURNVALUE>\n"
                         "<VALUE.OBJECTWITHPATH>\n" +
                             instance_path(car_name) +
                             "<INSTANCE CLASSNAME=\"Car\">\n"
                             "<PROPERTY NAME=\"Id\" TYPE=\"string\" "
                             "CLASSORIGIN=\"Car\">\n"
                             "<VALUE>c</VALUE>\n"
                             "</PROPERTY>\n"
                             "<PROPERTY NAME=\"Seats\" TYPE=\"uint8\" "
                             "CLASSORIGIN=\"Car\">\n"
                             "<VALUE>4</VALUE>\n"
                             "</PROPERTY>\n"
                             "</INSTANCE>\n"
                             "</VALUE.OBJECTWITHPATH>\n"
                             "</IRETURNVALUE>\n"));
}

TEST_F(AssociationOperations, associator_names_come_as_object_paths) {
  EXPECT_EQ(call("AssociatorNames", parameter("ObjectName", wheel)),
            intrinsic_response("AssociatorNames", "<IRETURNVALUE>\n<OBJECTPATH>\n" +
                                                      instance_path(car_name) +
                                                      "</OBJECTPATH>\n</IRETURNVALUE>\n"));
  EXPECT_EQ(call("AssociatorNames", parameter("ObjectName", wheel) + flag("Role", "Whole")),
            intrinsic_response("AssociatorNames", "<IRETURNVALUE>\n</IRETURNVALUE>\n"));
}

TEST_F(AssociationOperations, reference_names_come_as_object_paths) {
  const std::string part =
      "<INSTANCENAME CLASSNAME=\"Part\">\n"
      "<KEYBINDING NAME=\"Whole\">\n<VALUE.REFERENCE>\n" +
      instance_path(car_name) +
      "</VALUE.REFERENCE>\n</KEYBINDING>\n"
      "<KEYBINDING NAME=\"Item\">\n<VALUE.REFERENCE>\n" +
      instance_path(wheel_name) + "</VALUE.REFERENCE>\n</KEYBINDING>\n</INSTANCENAME>\n";
  EXPECT_EQ(
      call("ReferenceNames", parameter("ObjectName", wheel) + class_name("ResultClass", "Part") +
                                 flag("Role", "Item")),
      intrinsic_response("ReferenceNames", "<IRETURNVALUE>\n<OBJECTPATH>\n" + instance_path(part) +
                                               "</OBJECTPATH>\n</IRETURNVALUE>\n"));
}

TEST_F(AssociationOperations, references_come_as_objects_with_path) {
  const std::string answer =
      call("References", parameter("ObjectName", wheel) + class_name("ResultClass", "Part") +
                             flag("IncludeQualifiers", "FALSE") +
                             flag("IncludeClassOrigin", "FALSE") + flag("Role", "Item") +
                             parameter("PropertyList",
                                       "<VALUE.ARRAY><VALUE>Whole</VALUE>"
                                       "</VALUE.ARRAY>"));
  EXPECT_NE(answer.find("<IRETURNVALUE>\n<VALUE.OBJECTWITHPATH>\n<INSTANCEPATH>\n"),
            std::string::npos);
  EXPECT_NE(answer.find("</INSTANCEPATH>\n<INSTANCE CLASSNAME=\"Part\">\n"
                        "<PROPERTY.REFERENCE NAME=\"Whole\" REFERENCECLASS=\"Car\">\n"
                        "<VALUE.REFERENCE>\n" +
                        instance_path(car_name) +
                        "</VALUE.REFERENCE>\n</PROPERTY.REFERENCE>\n</INSTANCE>\n"
                        "</VALUE.OBJECTWITHPATH>\n</IRETURNVALUE>\n"),
            std::string::npos);
}

TEST_F(AssociationOperations, a_class_as_the_object_is_refused) {
  for (const char* operation : {"Associators", "AssociatorNames", "References", "ReferenceNames"}) {
    const std::string refused =
        error(operation, "1", "associations can be asked of an instance, not of a class");
    EXPECT_EQ(call(operation, class_name("ClassName", "Wheel")), refused);
    EXPECT_EQ(call(operation, class_name("ObjectName", "Wheel")), refused);
  }
}

TEST_F(AssociationOperations, mistakes_are_reported) {
  EXPECT_EQ(call("Associators", ""),
            error("Associators", "4", "parameter &quot;ObjectName&quot; is missing"));
  EXPECT_EQ(call("Associators", parameter("ObjectName", wheel) + class_name("AssocClass", "No")),
            error("Associators", "4", "unknown class &quot;No&quot;"));
  EXPECT_EQ(
      call("ReferenceNames", parameter("ObjectName",
                                       "<INSTANCENAME CLASSNAME=\"Wheel\"><KEYVALUE>2</KEYVALUE>"
                                       "</INSTANCENAME>")),
      error("ReferenceNames", "6", "there is no instance root/cimv2:Wheel.Number=2"));
}

TEST_F(AssociationOperations, queries_answer_objects_with_path) {
  EXPECT_EQ(call("ExecQuery", flag("QueryLanguage", "WQL") +
                                  flag("Query", "SELECT Seats FROM Car WHERE Seats &gt; 3")),
            intrinsic_response("ExecQuery",
                               "<IRETURNVALUE>\n"
                               "<VALUE.OBJECTWITHPATH>\n" +
                                   instance_path(car_name) +
                                   "<INSTANCE CLASSNAME=\"Car\">\n"
                                   "<PROPERTY NAME=\"Seats\" TYPE=\"uint8\">\n"
                                   "<VALUE>4</VALUE>\n"
                                   "</PROPERTY>\n"
                                   "</INSTANCE>\n"
                                   "</VALUE.OBJECTWITHPATH>\n"
                                   "</IRETURNVALUE>\n"));
  EXPECT_EQ(call("ExecQuery", flag("QueryLanguage", "CQL") + flag("Query", "SELECT * FROM Car")),
            error("ExecQuery", "14", "the query language is WQL, not &quot;CQL&quot;"));
  EXPECT_EQ(call("ExecQuery", flag("QueryLanguage", "WQL") + flag("Query", "SELECT")),
            error("ExecQuery", "15", "column 7: expected * or a name"));
  EXPECT_EQ(call("ExecQuery", flag("Query", "SELECT * FROM Car")),
            error("ExecQuery", "4", "parameter &quot;QueryLanguage&quot; is missing"));
}

}  // namespace
}  // namespace sandbox::cimxml
