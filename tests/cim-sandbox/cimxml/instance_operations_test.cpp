// Whole responses of the operations on instances.
#include "cimxml/instance_operations.h"

#include "support/serviced_objects.h"

namespace sandbox::cimxml {
namespace {

using test::class_name;
using test::flag;
using test::intrinsic_response;
using test::parameter;

constexpr auto item_name =
    "<INSTANCENAME CLASSNAME=\"Item\">"
    "<KEYBINDING NAME=\"Id\"><KEYVALUE VALUETYPE = \"string\">a</KEYVALUE></KEYBINDING>"
    "</INSTANCENAME>";

class InstanceOperations : public test::ServicedObjects {
 protected:
  InstanceOperations()
      : ServicedObjects(
            "class Box { string Label; sint8 Sizes[]; };\n"
            "class Top { [Key] string Id; string Note; };\n"
            "class Item : Top { uint64 Count; boolean On; real32 Ratio; datetime When;\n"
            "  char16 Letter; string Names[]; uint8 Empty[];\n"
            "  [EmbeddedInstance(\"Box\")] string In; Top REF Next; };\n"
            "class Deep { [Key] uint8 K; [EmbeddedObject] string Any;\n"
            "  [EmbeddedObject] string All[]; };\n"
            "class Mixed { [Key] uint32 Number; [Key] boolean Flag; [Key] Top REF About; };\n"
            "instance of Item as $A { Id = \"a\"; Note = \"1 < 2 & \\\"x\\\"\"; Count = 42;\n"
            "  On = true; Ratio = 0.1; When = \"20240101000000.000000+000\"; Letter = '<';\n"
            "  Names = {\"x\", null, \"\"}; Empty = {};\n"
            "  In = instance of Box { Label = \"<&>\"; Sizes = {1, -1}; }; Next = $T; };\n"
            "instance of Top as $T { Id = \"t\"; };\n"
            "instance of Mixed { Number = 5; Flag = true; About = $T; };\n"
            "instance of Deep { K = 1; Any = instance of Deep { K = 2;\n"
            "  Any = instance of Box { Label = \"inner\"; }; }; };") {}
};

constexpr auto item_properties =
    "<PROPERTY NAME=\"Id\" TYPE=\"string\" PROPAGATED=\"true\">\n"
    "<VALUE>a</VALUE>\n"
    "</PROPERTY>\n"
    "<PROPERTY NAME=\"Note\" TYPE=\"string\" PROPAGATED=\"true\">\n"
    "<VALUE>1 &lt; 2 &amp; \"x\"</VALUE>\n"
    "</PROPERTY>\n";
constexpr auto item_own_properties =
    "<PROPERTY NAME=\"Count\" TYPE=\"uint64\">\n"
    "<VALUE>42</VALUE>\n"
    "</PROPERTY>\n"
    "<PROPERTY NAME=\"On\" TYPE=\"boolean\">\n"
    "<VALUE>TRUE</VALUE>\n"
    "</PROPERTY>\n"
    "<PROPERTY NAME=\"Ratio\" TYPE=\"real32\">\n"
    "<VALUE>0.1</VALUE>\n"
    "</PROPERTY>\n"
    "<PROPERTY NAME=\"When\" TYPE=\"datetime\">\n"
    "<VALUE>20240101000000.000000+000</VALUE>\n"
    "</PROPERTY>\n"
    "<PROPERTY NAME=\"Letter\" TYPE=\"char16\">\n"
    "<VALUE>&lt;</VALUE>\n"
    "</PROPERTY>\n"
    "<PROPERTY.ARRAY NAME=\"Names\" TYPE=\"string\">\n"
    "<VALUE.ARRAY>\n"
    "<VALUE>x</VALUE>\n"
    "<VALUE.NULL/>\n"
    "<VALUE></VALUE>\n"
    "</VALUE.ARRAY>\n"
    "</PROPERTY.ARRAY>\n"
    "<PROPERTY.ARRAY NAME=\"Empty\" TYPE=\"uint8\">\n"
    "<VALUE.ARRAY>\n"
    "</VALUE.ARRAY>\n"
    "</PROPERTY.ARRAY>\n"
    "<PROPERTY NAME=\"In\" TYPE=\"string\" EmbeddedObject=\"instance\">\n"
    "<VALUE><![CDATA[<INSTANCE CLASSNAME=\"Box\">\n"
    "<PROPERTY NAME=\"Label\" TYPE=\"string\">\n"
    "<VALUE>&lt;&amp;&gt;</VALUE>\n"
    "</PROPERTY>\n"
    "<PROPERTY.ARRAY NAME=\"Sizes\" TYPE=\"sint8\">\n"
    "<VALUE.ARRAY>\n"
    "<VALUE>1</VALUE>\n"
    "<VALUE>-1</VALUE>\n"
    "</VALUE.ARRAY>\n"
    "</PROPERTY.ARRAY>\n"
    "</INSTANCE>\n"
    "]]></VALUE>\n"
    "</PROPERTY>\n"
    "<PROPERTY.REFERENCE NAME=\"Next\" REFERENCECLASS=\"Top\">\n"
    "<VALUE.REFERENCE>\n"
    "<INSTANCEPATH>\n"
    "<NAMESPACEPATH>\n"
    "<HOST>localhost</HOST>\n"
    "<LOCALNAMESPACEPATH>\n"
    "<NAMESPACE NAME=\"root\"/>\n"
    "<NAMESPACE NAME=\"cimv2\"/>\n"
    "</LOCALNAMESPACEPATH>\n"
    "</NAMESPACEPATH>\n"
    "<INSTANCENAME CLASSNAME=\"Top\">\n"
    "<KEYBINDING NAME=\"Id\">\n"
    "<KEYVALUE VALUETYPE=\"string\">t</KEYVALUE>\n"
    "</KEYBINDING>\n"
    "</INSTANCENAME>\n"
    "</INSTANCEPATH>\n"
    "</VALUE.REFERENCE>\n"
    "</PROPERTY.REFERENCE>\n";

std::string returned(const std::string& content) {
  return "<IRETURNVALUE>\n" + content + "</IRETURNVALUE>\n";
}

TEST_F(InstanceOperations, an_instance_comes_with_every_kind_of_value) {
  EXPECT_EQ(call("GetInstance", parameter("InstanceName", item_name) + flag("LocalOnly", "FALSE")),
            intrinsic_response("GetInstance", returned("<INSTANCE CLASSNAME=\"Item\">\n" +
                                                       std::string(item_properties) +
                                                       item_own_properties + "</INSTANCE>\n")));
}

TEST_F(InstanceOperations, without_a_flag_only_local_properties_come) {
  EXPECT_EQ(call("GetInstance", parameter("InstanceName", item_name)),
            intrinsic_response("GetInstance",
                               returned("<INSTANCE CLASSNAME=\"Item\">\n" +
                                        std::string(item_own_properties) + "</INSTANCE>\n")));
}

TEST_F(InstanceOperations, null_is_a_property_without_value) {
  EXPECT_EQ(call("EnumerateInstances", class_name("ClassName", "Top") + flag("LocalOnly", "FALSE") +
                                           flag("DeepInheritance", "FALSE")),
            intrinsic_response("EnumerateInstances",
                               returned("<VALUE.NAMEDINSTANCE>\n"
                                        "<INSTANCENAME CLASSNAME=\"Top\">\n"
                                        "<KEYBINDING NAME=\"Id\">\n"
                                        "<KEYVALUE VALUETYPE=\"string\">t</KEYVALUE>\n"
                                        "</KEYBINDING>\n"
                                        "</INSTANCENAME>\n"
                                        "<INSTANCE CLASSNAME=\"Top\">\n"
                                        "<PROPERTY NAME=\"Id\" TYPE=\"string\">\n"
                                        "<VALUE>t</VALUE>\n"
                                        "</PROPERTY>\n"
                                        "<PROPERTY NAME=\"Note\" TYPE=\"string\">\n"
                                        "</PROPERTY>\n"
                                        "</INSTANCE>\n"
                                        "</VALUE.NAMEDINSTANCE>\n"
                                        "<VALUE.NAMEDINSTANCE>\n"
                                        "<INSTANCENAME CLASSNAME=\"Item\">\n"
                                        "<KEYBINDING NAME=\"Id\">\n"
                                        "<KEYVALUE VALUETYPE=\"string\">a</KEYVALUE>\n"
                                        "</KEYBINDING>\n"
                                        "</INSTANCENAME>\n"
                                        "<INSTANCE CLASSNAME=\"Item\">\n" +
                                        std::string(item_properties) +
                                        "</INSTANCE>\n"
                                        "</VALUE.NAMEDINSTANCE>\n")));
}

TEST_F(InstanceOperations, origin_and_qualifiers_come_when_wished) {
  const std::string names = "<VALUE.ARRAY><VALUE>Id</VALUE></VALUE.ARRAY>";
  EXPECT_EQ(
      call("GetInstance", parameter("InstanceName", item_name) + flag("LocalOnly", "FALSE") +
                              flag("IncludeQualifiers", "TRUE") +
                              flag("IncludeClassOrigin", "TRUE") +
                              parameter("PropertyList", names)),
      intrinsic_response("GetInstance",
                         returned("<INSTANCE CLASSNAME=\"Item\">\n"
                                  "<PROPERTY NAME=\"Id\" TYPE=\"string\" CLASSORIGIN=\"Top\" "
                                  "PROPAGATED=\"true\">\n"
                                  "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\" PROPAGATED=\"true\" "
                                  "OVERRIDABLE=\"false\">\n"
                                  "<VALUE>TRUE</VALUE>\n"
                                  "</QUALIFIER>\n"
                                  "<VALUE>a</VALUE>\n"
                                  "</PROPERTY>\n"
                                  "</INSTANCE>\n")));
}

TEST_F(InstanceOperations, enumerated_names_have_their_keys_in_lower_case) {
  EXPECT_EQ(call("EnumerateInstanceNames", class_name("ClassName", "Mixed")),
            intrinsic_response("EnumerateInstanceNames",
                               returned("<INSTANCENAME CLASSNAME=\"Mixed\">\n"
                                        "<KEYBINDING NAME=\"number\">\n"
                                        "<KEYVALUE VALUETYPE=\"numeric\">5</KEYVALUE>\n"
                                        "</KEYBINDING>\n"
                                        "<KEYBINDING NAME=\"flag\">\n"
                                        "<KEYVALUE VALUETYPE=\"boolean\">TRUE</KEYVALUE>\n"
                                        "</KEYBINDING>\n"
                                        "<KEYBINDING NAME=\"about\">\n"
                                        "<VALUE.REFERENCE>\n"
                                        "<INSTANCEPATH>\n"
                                        "<NAMESPACEPATH>\n"
                                        "<HOST>localhost</HOST>\n"
                                        "<LOCALNAMESPACEPATH>\n"
                                        "<NAMESPACE NAME=\"root\"/>\n"
                                        "<NAMESPACE NAME=\"cimv2\"/>\n"
                                        "</LOCALNAMESPACEPATH>\n"
                                        "</NAMESPACEPATH>\n"
                                        "<INSTANCENAME CLASSNAME=\"Top\">\n"
                                        "<KEYBINDING NAME=\"Id\">\n"
                                        "<KEYVALUE VALUETYPE=\"string\">t</KEYVALUE>\n"
                                        "</KEYBINDING>\n"
                                        "</INSTANCENAME>\n"
                                        "</INSTANCEPATH>\n"
                                        "</VALUE.REFERENCE>\n"
                                        "</KEYBINDING>\n"
                                        "</INSTANCENAME>\n")));
}

TEST_F(InstanceOperations, an_instance_within_an_embedded_one_is_escaped) {
  const std::string answer =
      call("GetInstance", parameter("InstanceName",
                                    "<INSTANCENAME CLASSNAME=\"Deep\">"
                                    "<KEYVALUE VALUETYPE=\"numeric\">1</KEYVALUE></INSTANCENAME>"));
  EXPECT_NE(answer.find("<PROPERTY NAME=\"Any\" TYPE=\"string\" EmbeddedObject=\"object\">\n"
                        "<VALUE>&lt;INSTANCE CLASSNAME=\"Deep\"&gt;\n"),
            std::string::npos);
  EXPECT_NE(answer.find("&lt;VALUE&gt;&lt;![CDATA[&lt;INSTANCE CLASSNAME=\"Box\"&gt;\n"),
            std::string::npos);
}

TEST_F(InstanceOperations, names_may_come_with_any_path_and_any_blanks) {
  const std::string wanted = call("GetInstance", parameter("InstanceName", item_name));
  for (const std::string name :
       {"<INSTANCENAME CLASSNAME=\"item\"><KEYBINDING NAME=\"ID\"><KEYVALUE>a</KEYVALUE>"
        "</KEYBINDING></INSTANCENAME>",
        "<INSTANCENAME CLASSNAME=\"Item\"><KEYVALUE VALUETYPE = \"string\">a</KEYVALUE>"
        "</INSTANCENAME>",
        "\n  <INSTANCENAME CLASSNAME = \"Item\">\n <KEYBINDING NAME=\"Id\">\n  "
        "<KEYVALUE VALUETYPE=\"string\">a</KEYVALUE>\n </KEYBINDING>\n</INSTANCENAME>\n"}) {
    EXPECT_EQ(call("GetInstance", parameter("InstanceName", name)), wanted) << name;
  }
}

TEST_F(InstanceOperations, keys_that_are_references_are_found_by_what_they_name) {
  const auto with = [this](const std::string& reference) {
    return call("GetInstance",
                parameter("InstanceName",
                          "<INSTANCENAME CLASSNAME=\"Mixed\">"
                          "<KEYBINDING NAME=\"Number\"><KEYVALUE VALUETYPE=\"numeric\">5"
                          "</KEYVALUE></KEYBINDING>"
                          "<KEYBINDING NAME=\"Flag\"><KEYVALUE VALUETYPE=\"boolean\">true"
                          "</KEYVALUE></KEYBINDING>"
                          "<KEYBINDING NAME=\"About\"><VALUE.REFERENCE>" +
                              reference + "</VALUE.REFERENCE></KEYBINDING></INSTANCENAME>"));
  };
  const std::string name =
      "<INSTANCENAME CLASSNAME=\"Top\"><KEYBINDING NAME=\"Id\"><KEYVALUE>t</KEYVALUE>"
      "</KEYBINDING></INSTANCENAME>";
  const std::string wanted = with(name);
  EXPECT_NE(wanted.find("<INSTANCE CLASSNAME=\"Mixed\">"), std::string::npos);
  EXPECT_EQ(with("<LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root/cimv2\"/>"
                 "</LOCALNAMESPACEPATH>" +
                 name + "</LOCALINSTANCEPATH>"),
            wanted);
  EXPECT_EQ(with("<INSTANCEPATH><NAMESPACEPATH><HOST>any</HOST><LOCALNAMESPACEPATH>"
                 "<NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH>"
                 "</NAMESPACEPATH>" +
                 name + "</INSTANCEPATH>"),
            wanted);
}

TEST_F(InstanceOperations, an_instance_is_created_and_its_name_returned) {
  // As a device's client writes it: blanks after "TYPE=", an embedded instance in a CDATA section
  // that begins with a line break.
  const std::string instance =
      "<INSTANCE CLASSNAME=\"Item\"><PROPERTY NAME=\"Id\" TYPE=\"string\"><VALUE>new</VALUE>"
      "</PROPERTY><PROPERTY NAME=\"In\" TYPE=\"string\"><VALUE><![CDATA[\n"
      "<INSTANCE CLASSNAME=\"Box\"><PROPERTY NAME=\"Label\" TYPE= \"string\"><VALUE>inside</VALUE>"
      "</PROPERTY></INSTANCE>]]></VALUE></PROPERTY>"
      "<PROPERTY NAME=\"Note\" TYPE=\"string\"></PROPERTY>"
      "<PROPERTY.ARRAY NAME=\"Names\" TYPE=\"string\"><VALUE.ARRAY><VALUE>x</VALUE><VALUE.NULL/>"
      "</VALUE.ARRAY></PROPERTY.ARRAY><PROPERTY.ARRAY NAME=\"Empty\" TYPE=\"uint8\">"
      "</PROPERTY.ARRAY><PROPERTY.REFERENCE NAME=\"Next\"><VALUE.REFERENCE>"
      "<INSTANCENAME CLASSNAME=\"Top\"><KEYBINDING NAME=\"Id\"><KEYVALUE>t</KEYVALUE></KEYBINDING>"
      "</INSTANCENAME></VALUE.REFERENCE></PROPERTY.REFERENCE></INSTANCE>";
  EXPECT_EQ(call("CreateInstance", parameter("NewInstance", instance)),
            intrinsic_response("CreateInstance",
                               returned("<INSTANCENAME CLASSNAME=\"Item\">\n"
                                        "<KEYBINDING NAME=\"Id\">\n"
                                        "<KEYVALUE VALUETYPE=\"string\">new</KEYVALUE>\n"
                                        "</KEYBINDING>\n"
                                        "</INSTANCENAME>\n")));
  EXPECT_EQ(value("Item.Id=\"new\"", "Note"), "null");
  EXPECT_EQ(value("Item.Id=\"new\"", "Names"), "[x][]");
  EXPECT_EQ(value("Item.Id=\"new\"", "Next"), "root/cimv2:Top.Id=\"t\"");
  const auto created = manager_.get_instance(path("Item.Id=\"new\""));
  const auto& inside = std::get<EmbeddedInstance>((*created)->find("In")->scalar());
  EXPECT_EQ(std::get<std::string>(inside->find("Label")->scalar()), "inside");
}

TEST_F(InstanceOperations, creation_reports_mistakes) {
  const auto create = [this](const std::string& instance) {
    return call("CreateInstance", parameter("NewInstance", instance));
  };
  const auto with = [&create](const std::string& property) {
    return create(
        "<INSTANCE CLASSNAME=\"Item\"><PROPERTY NAME=\"Id\" TYPE=\"string\">"
        "<VALUE>n</VALUE></PROPERTY>" +
        property + "</INSTANCE>");
  };
  const auto error_of = [](const std::string& code, const std::string& description) {
    return error("CreateInstance", code, description);
  };
  EXPECT_EQ(call("CreateInstance", ""),
            error_of("4", "parameter &quot;NewInstance&quot; is missing"));
  EXPECT_EQ(create("<INSTANCE CLASSNAME=\"Nobody\"/>"),
            error_of("5", "unknown class &quot;Nobody&quot;"));
  EXPECT_EQ(create("<INSTANCE/>"), error_of("4", "INSTANCE has no CLASSNAME"));
  EXPECT_EQ(create("<CLASS NAME=\"Item\"/>"), error_of("4", "expected an INSTANCE, not a CLASS"));
  EXPECT_EQ(with("<PROPERTY NAME=\"Count\" TYPE=\"string\"><VALUE>1</VALUE></PROPERTY>"),
            error_of("13", "property &quot;Count&quot;: it is uint64, not string"));
  EXPECT_EQ(with("<PROPERTY NAME=\"Count\" TYPE=\"integer\"><VALUE>1</VALUE></PROPERTY>"),
            error_of("4", "&quot;integer&quot; is no CIM type"));
  EXPECT_EQ(with("<PROPERTY.ARRAY NAME=\"Count\" TYPE=\"uint64\"></PROPERTY.ARRAY>"),
            error_of("13", "property &quot;Count&quot;: it is uint64, not uint64[]"));
  EXPECT_EQ(with("<PROPERTY NAME=\"Colour\" TYPE=\"string\"></PROPERTY>"),
            error_of("12", "class &quot;Item&quot; has no property &quot;Colour&quot;"));
  EXPECT_EQ(with("<PROPERTY TYPE=\"string\"></PROPERTY>"), error_of("4", "PROPERTY has no NAME"));
  EXPECT_EQ(with("<METHOD NAME=\"M\"/>"), error_of("4", "INSTANCE holds a METHOD"));
  EXPECT_EQ(with("<PROPERTY NAME=\"Note\" TYPE=\"string\"><HOST>x</HOST></PROPERTY>"),
            error_of("4", "HOST is no value"));
  EXPECT_EQ(with("<PROPERTY NAME=\"In\" TYPE=\"string\"><VALUE>&lt;INSTANCE CLASSNAME=\"Nobody\"/"
                 "&gt;</VALUE></PROPERTY>"),
            error_of("5", "unknown class &quot;Nobody&quot;"));
  EXPECT_EQ(with("<PROPERTY.REFERENCE NAME=\"Next\"><VALUE.REFERENCE/></PROPERTY.REFERENCE>"),
            error_of("4", "VALUE.REFERENCE must hold one path"));
}

TEST_F(InstanceOperations, an_embedded_value_must_be_an_instance) {
  const std::string answer =
      call("CreateInstance",
           parameter("NewInstance",
                     "<INSTANCE CLASSNAME=\"Item\"><PROPERTY NAME=\"In\" TYPE=\"string\">"
                     "<VALUE>plain text</VALUE></PROPERTY></INSTANCE>"));
  EXPECT_NE(answer.find("<ERROR CODE=\"13\" DESCRIPTION=\"the embedded instance is no XML: "),
            std::string::npos);
}

TEST_F(InstanceOperations, embedding_has_a_deepest_level) {
  std::string inner = "<INSTANCE CLASSNAME=\"Box\"/>";
  for (int i = 0; i < 12; ++i) {
    Markup value;
    value.leaf("VALUE", {}, inner);
    inner = "<INSTANCE CLASSNAME=\"Deep\"><PROPERTY NAME=\"Any\" TYPE=\"string\">" + value.text() +
            "</PROPERTY></INSTANCE>";
  }
  EXPECT_EQ(call("CreateInstance", parameter("NewInstance", inner)),
            error("CreateInstance", "4", "instances are embedded too deeply"));
}

TEST_F(InstanceOperations, an_instance_is_modified_and_nothing_returned) {
  const std::string named = "<VALUE.NAMEDINSTANCE>" + std::string(item_name) +
                            "<INSTANCE CLASSNAME=\"Item\"><PROPERTY NAME=\"Count\" "
                            "TYPE=\"uint64\"><VALUE>43</VALUE></PROPERTY></INSTANCE>"
                            "</VALUE.NAMEDINSTANCE>";
  EXPECT_EQ(call("ModifyInstance",
                 flag("IncludeQualifiers", "FALSE") + parameter("ModifiedInstance", named)),
            intrinsic_response("ModifyInstance", ""));
  EXPECT_EQ(value("Item.Id=\"a\"", "Count"), "43");
  EXPECT_EQ(value("Item.Id=\"a\"", "On"), "TRUE");
  EXPECT_EQ(call("ModifyInstance", parameter("ModifiedInstance", item_name)),
            error("ModifyInstance", "4",
                  "parameter &quot;ModifiedInstance&quot; must hold INSTANCENAME and INSTANCE"));
}

TEST_F(InstanceOperations, an_instance_is_deleted_and_then_not_found) {
  EXPECT_EQ(call("DeleteInstance", parameter("InstanceName", item_name)),
            intrinsic_response("DeleteInstance", ""));
  EXPECT_EQ(call("DeleteInstance", parameter("InstanceName", item_name)),
            error("DeleteInstance", "6", "there is no instance root/cimv2:Item.Id=&quot;a&quot;"));
  EXPECT_EQ(call("GetInstance", parameter("InstanceName", item_name)),
            error("GetInstance", "6", "there is no instance root/cimv2:Item.Id=&quot;a&quot;"));
}

TEST_F(InstanceOperations, wrong_names_are_reported) {
  const auto get = [this](const std::string& name) {
    return call("GetInstance", parameter("InstanceName", name));
  };
  const auto error_of = [](const std::string& description) {
    return error("GetInstance", "4", "parameter &quot;InstanceName&quot;: " + description);
  };
  EXPECT_EQ(get("<INSTANCENAME/>"), error_of("INSTANCENAME has no CLASSNAME"));
  EXPECT_EQ(get("<INSTANCENAME CLASSNAME=\"Item\"><KEYBINDING><KEYVALUE/></KEYBINDING>"
                "</INSTANCENAME>"),
            error_of("KEYBINDING has no NAME"));
  EXPECT_EQ(get("<INSTANCENAME CLASSNAME=\"Item\"><KEYBINDING NAME=\"Id\"/></INSTANCENAME>"),
            error_of("KEYBINDING holds no KEYVALUE and no VALUE.REFERENCE"));
  EXPECT_EQ(get("<VALUE>x</VALUE>"), error_of("VALUE is no name of a class or an instance"));
  EXPECT_EQ(get("<LOCALINSTANCEPATH/>"), error_of("LOCALINSTANCEPATH is not complete"));
}

}  // namespace
}  // namespace sandbox::cimxml
