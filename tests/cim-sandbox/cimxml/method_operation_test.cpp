// Whole responses to method calls.
#include "cimxml/method_operation.h"

#include "support/serviced_objects.h"

namespace sandbox::cimxml {
namespace {

using test::extrinsic_request;
using test::extrinsic_response;

constexpr auto name =
    "<INSTANCENAME CLASSNAME=\"Fan\"><KEYBINDING NAME=\"Id\"><KEYVALUE>f</KEYVALUE></KEYBINDING>"
    "</INSTANCENAME>";

class MethodCalls : public test::ServicedObjects {
 protected:
  MethodCalls()
      : ServicedObjects(
            "class Box { string Label; };\n"
            "class Fan { [Key] string Id; uint16 Speed = 5; [EmbeddedObject] string In;\n"
            "  [SandboxSets{\"Speed=$New\"}, SandboxGives{\"Old=Speed\"}]\n"
            "  uint32 Set([In] uint16 New, [In(false), Out] uint16 Old);\n"
            "  [SandboxSets{\"In=$Box\"}] boolean Keep([EmbeddedInstance(\"Box\")] string Box);\n"
            "  [SandboxEchoes] sint8 Echo([In, Out] string A[], [In, Out] Fan REF B,\n"
            "    [In, Out] Fan REF C[], [In, Out] datetime D, [In, Out] boolean E);\n"
            "  [SandboxFails(2)] uint32 Fail();\n"
            "  [Static, SandboxReturns(\"a & b\")] string Greet(); };\n"
            "instance of Fan { Id = \"f\"; };") {}

  std::string invoke(const std::string& method, const std::string& arguments) {
    return answer(extrinsic_request(method, name, arguments));
  }

  static std::string method_error(const std::string& method, const std::string& code,
                                  const std::string& description) {
    return extrinsic_response(
        method, "<ERROR CODE=\"" + code + "\" DESCRIPTION=\"" + description + "\"/>\n");
  }
};

TEST_F(MethodCalls, the_return_value_comes_before_the_out_parameters) {
  EXPECT_EQ(invoke("Set",
                   "<PARAMVALUE NAME=\"New\" PARAMTYPE=\"uint16\"><VALUE>7</VALUE>"
                   "</PARAMVALUE>"),
            extrinsic_response("Set",
                               "<RETURNVALUE PARAMTYPE=\"uint32\">\n"
                               "<VALUE>0</VALUE>\n"
                               "</RETURNVALUE>\n"
                               "<PARAMVALUE NAME=\"Old\" PARAMTYPE=\"uint16\">\n"
                               "<VALUE>5</VALUE>\n"
                               "</PARAMVALUE>\n"));
  EXPECT_EQ(value("Fan.Id=\"f\"", "Speed"), "7");
}

TEST_F(MethodCalls, parameters_may_come_without_a_type) {
  invoke("Set", "<PARAMVALUE NAME=\"new\"><VALUE>8</VALUE></PARAMVALUE>");
  EXPECT_EQ(value("Fan.Id=\"f\"", "Speed"), "8");
}

TEST_F(MethodCalls, arrays_references_and_nulls_come_back_as_they_went_in) {
  const std::string path =
      "<VALUE.REFERENCE>\n<INSTANCEPATH>\n<NAMESPACEPATH>\n<HOST>localhost</HOST>\n"
      "<LOCALNAMESPACEPATH>\n<NAMESPACE NAME=\"root\"/>\n<NAMESPACE NAME=\"cimv2\"/>\n"
      "</LOCALNAMESPACEPATH>\n</NAMESPACEPATH>\n<INSTANCENAME CLASSNAME=\"Fan\">\n"
      "<KEYBINDING NAME=\"Id\">\n<KEYVALUE VALUETYPE=\"string\">f</KEYVALUE>\n</KEYBINDING>\n"
      "</INSTANCENAME>\n</INSTANCEPATH>\n</VALUE.REFERENCE>\n";
  const std::string reference = "<VALUE.REFERENCE>" + std::string(name) + "</VALUE.REFERENCE>";
  EXPECT_EQ(
      invoke("Echo",
             "<PARAMVALUE NAME=\"A\" PARAMTYPE=\"string\"><VALUE.ARRAY><VALUE>x</VALUE>"
             "<VALUE></VALUE></VALUE.ARRAY></PARAMVALUE>"
             "<PARAMVALUE NAME=\"B\" PARAMTYPE=\"reference\">" +
                 reference + "</PARAMVALUE><PARAMVALUE NAME=\"C\"><VALUE.REFARRAY>" + reference +
                 reference +
                 "</VALUE.REFARRAY></PARAMVALUE><PARAMVALUE NAME=\"D\" PARAMTYPE=\"datetime\"/>"
                 "<PARAMVALUE NAME=\"E\"><VALUE>true</VALUE></PARAMVALUE>"),
      extrinsic_response("Echo",
                         "<RETURNVALUE PARAMTYPE=\"sint8\">\n"
                         "<VALUE>0</VALUE>\n"
                         "</RETURNVALUE>\n"
                         "<PARAMVALUE NAME=\"A\" PARAMTYPE=\"string\">\n"
                         "<VALUE.ARRAY>\n"
                         "<VALUE>x</VALUE>\n"
                         "<VALUE></VALUE>\n"
                         "</VALUE.ARRAY>\n"
                         "</PARAMVALUE>\n"
                         "<PARAMVALUE NAME=\"B\" PARAMTYPE=\"reference\">\n" +
                             path +
                             "</PARAMVALUE>\n"
                             "<PARAMVALUE NAME=\"C\" PARAMTYPE=\"reference\">\n"
                             "<VALUE.REFARRAY>\n" +
                             path + path +
                             "</VALUE.REFARRAY>\n"
                             "</PARAMVALUE>\n"
                             "<PARAMVALUE NAME=\"D\" PARAMTYPE=\"datetime\">\n"
                             "</PARAMVALUE>\n"
                             "<PARAMVALUE NAME=\"E\" PARAMTYPE=\"boolean\">\n"
                             "<VALUE>TRUE</VALUE>\n"
                             "</PARAMVALUE>\n"));
}

TEST_F(MethodCalls, an_embedded_instance_is_an_argument) {
  EXPECT_EQ(invoke("Keep",
                   "<PARAMVALUE NAME=\"Box\" PARAMTYPE=\"string\"><VALUE><![CDATA[\n"
                   "<INSTANCE CLASSNAME=\"Box\"><PROPERTY NAME=\"Label\" "
                   "TYPE= \"string\"><VALUE>in</VALUE></PROPERTY></INSTANCE>]]></VALUE>"
                   "</PARAMVALUE>"),
            extrinsic_response("Keep", ""));
  const auto fan = manager_.get_instance(path("Fan.Id=\"f\""));
  const auto& kept = std::get<EmbeddedInstance>((*fan)->find("In")->scalar());
  EXPECT_EQ(std::get<std::string>(kept->find("Label")->scalar()), "in");
}

TEST_F(MethodCalls, a_static_method_is_called_on_the_class) {
  EXPECT_EQ(answer("<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"1234\" "
                   "PROTOCOLVERSION=\"1.0\"><SIMPLEREQ><METHODCALL NAME=\"Greet\"><LOCALCLASSPATH>"
                   "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/>"
                   "</LOCALNAMESPACEPATH><CLASSNAME NAME =\"Fan\"/></LOCALCLASSPATH></METHODCALL>"
                   "</SIMPLEREQ></MESSAGE></CIM>"),
            extrinsic_response("Greet",
                               "<RETURNVALUE PARAMTYPE=\"string\">\n"
                               "<VALUE>a &amp; b</VALUE>\n"
                               "</RETURNVALUE>\n"));
}

TEST_F(MethodCalls, mistakes_are_answered_with_error_elements) {
  EXPECT_EQ(invoke("Fail", ""),
            method_error("Fail", "2", "method &quot;Fail&quot; fails on purpose"));
  EXPECT_EQ(invoke("Fly", ""),
            method_error("Fly", "17", "class &quot;Fan&quot; has no method &quot;Fly&quot;"));
  EXPECT_EQ(invoke("Set",
                   "<PARAMVALUE NAME=\"New\" PARAMTYPE=\"string\"><VALUE>7</VALUE>"
                   "</PARAMVALUE>"),
            method_error("Set", "13", "parameter &quot;New&quot;: it is uint16, not string"));
  EXPECT_EQ(invoke("Set", "<PARAMVALUE NAME=\"New\"><VALUE>70000</VALUE></PARAMVALUE>"),
            method_error("Set", "13", "parameter &quot;New&quot;: &quot;70000&quot; is no uint16"));
  EXPECT_EQ(invoke("Set", "<PARAMVALUE><VALUE>7</VALUE></PARAMVALUE>"),
            method_error("Set", "4", "PARAMVALUE has no NAME"));
  EXPECT_EQ(answer("<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"1234\" "
                   "PROTOCOLVERSION=\"1.0\"><SIMPLEREQ><METHODCALL NAME=\"Set\"/></SIMPLEREQ>"
                   "</MESSAGE></CIM>"),
            method_error("Set", "4", "METHODCALL names no object"));
}

}  // namespace
}  // namespace sandbox::cimxml
