// Whole responses of the operations that read classes.
#include "cimxml/class_operations.h"

#include "support/serviced_objects.h"

namespace sandbox::cimxml {
namespace {

using test::class_name;
using test::flag;
using test::intrinsic_response;
using test::parameter;

class ClassOperations : public test::ServicedObjects {
 protected:
  ClassOperations()
      : ServicedObjects(
            "Qualifier Text : string = null, Scope(any), Flavor(Translatable);\n"
            "Qualifier Own : boolean = false, Scope(any), Flavor(DisableOverride, Restricted);\n"
            "[Own, Text(\"a < b\")] class Base { [Key, Text(\"key\")] string Id;\n"
            "  uint16 Numbers[4] = {1, 2}; uint8 Reset(); };\n"
            "class Derived : Base { boolean Flag = true; Base REF Other;\n"
            "  [Text(\"m\")] sint32 Do([In, Text(\"p\")] string A, real64 B[], Base REF C,\n"
            "    Base REF D[3]); };") {}
};

TEST_F(ClassOperations, a_class_comes_with_all_that_its_declaration_says) {
  EXPECT_EQ(
      call("GetClass", class_name("ClassName", "Base") + flag("LocalOnly", "FALSE") +
                           flag("IncludeQualifiers", "TRUE") + flag("IncludeClassOrigin", "TRUE")),
      intrinsic_response("GetClass",
                         "<IRETURNVALUE>\n"
                         "<CLASS NAME=\"Base\">\n"
                         "<QUALIFIER NAME=\"Own\" TYPE=\"boolean\" OVERRIDABLE=\"false\" "
                         "TOSUBCLASS=\"false\">\n"
                         "<VALUE>TRUE</VALUE>\n"
                         "</QUALIFIER>\n"
                         "<QUALIFIER NAME=\"Text\" TYPE=\"string\" TRANSLATABLE=\"true\">\n"
                         "<VALUE>a &lt; b</VALUE>\n"
                         "</QUALIFIER>\n"
                         "<PROPERTY NAME=\"Id\" TYPE=\"string\" CLASSORIGIN=\"Base\">\n"
                         "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\" OVERRIDABLE=\"false\">\n"
                         "<VALUE>TRUE</VALUE>\n"
                         "</QUALIFIER>\n"
                         "<QUALIFIER NAME=\"Text\" TYPE=\"string\" TRANSLATABLE=\"true\">\n"
                         "<VALUE>key</VALUE>\n"
                         "</QUALIFIER>\n"
                         "</PROPERTY>\n"
                         "<PROPERTY.ARRAY NAME=\"Numbers\" TYPE=\"uint16\" ARRAYSIZE=\"4\" "
                         "CLASSORIGIN=\"Base\">\n"
                         "<VALUE.ARRAY>\n"
                         "<VALUE>1</VALUE>\n"
                         "<VALUE>2</VALUE>\n"
                         "</VALUE.ARRAY>\n"
                         "</PROPERTY.ARRAY>\n"
                         "<METHOD NAME=\"Reset\" TYPE=\"uint8\" CLASSORIGIN=\"Base\">\n"
                         "</METHOD>\n"
                         "</CLASS>\n"
                         "</IRETURNVALUE>\n"));
}

TEST_F(ClassOperations, what_is_inherited_is_marked) {
  EXPECT_EQ(
      call("GetClass", class_name("ClassName", "derived") + flag("LocalOnly", "FALSE") +
                           flag("IncludeQualifiers", "FALSE")),
      intrinsic_response("GetClass",
                         "<IRETURNVALUE>\n"
                         "<CLASS NAME=\"Derived\" SUPERCLASS=\"Base\">\n"
                         "<PROPERTY NAME=\"Id\" TYPE=\"string\" PROPAGATED=\"true\">\n"
                         "</PROPERTY>\n"
                         "<PROPERTY.ARRAY NAME=\"Numbers\" TYPE=\"uint16\" ARRAYSIZE=\"4\" "
                         "PROPAGATED=\"true\">\n"
                         "<VALUE.ARRAY>\n"
                         "<VALUE>1</VALUE>\n"
                         "<VALUE>2</VALUE>\n"
                         "</VALUE.ARRAY>\n"
                         "</PROPERTY.ARRAY>\n"
                         "<PROPERTY NAME=\"Flag\" TYPE=\"boolean\">\n"
                         "<VALUE>TRUE</VALUE>\n"
                         "</PROPERTY>\n"
                         "<PROPERTY.REFERENCE NAME=\"Other\" REFERENCECLASS=\"Base\">\n"
                         "</PROPERTY.REFERENCE>\n"
                         "<METHOD NAME=\"Reset\" TYPE=\"uint8\" PROPAGATED=\"true\">\n"
                         "</METHOD>\n"
                         "<METHOD NAME=\"Do\" TYPE=\"sint32\">\n"
                         "<PARAMETER NAME=\"A\" TYPE=\"string\">\n"
                         "</PARAMETER>\n"
                         "<PARAMETER.ARRAY NAME=\"B\" TYPE=\"real64\">\n"
                         "</PARAMETER.ARRAY>\n"
                         "<PARAMETER.REFERENCE NAME=\"C\" REFERENCECLASS=\"Base\">\n"
                         "</PARAMETER.REFERENCE>\n"
                         "<PARAMETER.REFARRAY NAME=\"D\" REFERENCECLASS=\"Base\" ARRAYSIZE=\"3\">\n"
                         "</PARAMETER.REFARRAY>\n"
                         "</METHOD>\n"
                         "</CLASS>\n"
                         "</IRETURNVALUE>\n"));
}

TEST_F(ClassOperations, without_flags_only_local_elements_come_and_with_qualifiers) {
  EXPECT_EQ(call("GetClass", class_name("ClassName", "Derived") +
                                 parameter("PropertyList",
                                           "<VALUE.ARRAY><VALUE>id</VALUE><VALUE>FLAG</VALUE>"
                                           "</VALUE.ARRAY>")),
            intrinsic_response("GetClass",
                               "<IRETURNVALUE>\n"
                               "<CLASS NAME=\"Derived\" SUPERCLASS=\"Base\">\n"
                               "<PROPERTY NAME=\"Flag\" TYPE=\"boolean\">\n"
                               "<VALUE>TRUE</VALUE>\n"
                               "</PROPERTY>\n"
                               "<METHOD NAME=\"Do\" TYPE=\"sint32\">\n"
                               "<QUALIFIER NAME=\"Text\" TYPE=\"string\" TRANSLATABLE=\"true\">\n"
                               "<VALUE>m</VALUE>\n"
                               "</QUALIFIER>\n"
                               "<PARAMETER NAME=\"A\" TYPE=\"string\">\n"
                               "<QUALIFIER NAME=\"In\" TYPE=\"boolean\" OVERRIDABLE=\"false\">\n"
                               "<VALUE>TRUE</VALUE>\n"
                               "</QUALIFIER>\n"
                               "<QUALIFIER NAME=\"Text\" TYPE=\"string\" TRANSLATABLE=\"true\">\n"
                               "<VALUE>p</VALUE>\n"
                               "</QUALIFIER>\n"
                               "</PARAMETER>\n"
                               "<PARAMETER.ARRAY NAME=\"B\" TYPE=\"real64\">\n"
                               "</PARAMETER.ARRAY>\n"
                               "<PARAMETER.REFERENCE NAME=\"C\" REFERENCECLASS=\"Base\">\n"
                               "</PARAMETER.REFERENCE>\n"
                               "<PARAMETER.REFARRAY NAME=\"D\" REFERENCECLASS=\"Base\" "
                               "ARRAYSIZE=\"3\">\n"
                               "</PARAMETER.REFARRAY>\n"
                               "</METHOD>\n"
                               "</CLASS>\n"
                               "</IRETURNVALUE>\n"));
}

TEST_F(ClassOperations, inherited_qualifiers_are_marked_and_not_local) {
  const std::string whole =
      call("GetClass", class_name("ClassName", "Derived") + flag("LocalOnly", "FALSE"));
  EXPECT_NE(whole.find("<CLASS NAME=\"Derived\" SUPERCLASS=\"Base\">\n"
                       "<QUALIFIER NAME=\"Text\" TYPE=\"string\" PROPAGATED=\"true\" "
                       "TRANSLATABLE=\"true\">\n"
                       "<VALUE>a &lt; b</VALUE>\n"
                       "</QUALIFIER>\n"
                       "<PROPERTY NAME=\"Id\""),
            std::string::npos);
}

TEST_F(ClassOperations, classes_are_enumerated_with_their_content) {
  EXPECT_EQ(
      call("EnumerateClasses", class_name("ClassName", "Base") + flag("DeepInheritance", "TRUE") +
                                   flag("LocalOnly", "TRUE") + flag("IncludeQualifiers", "FALSE")),
      intrinsic_response("EnumerateClasses",
                         "<IRETURNVALUE>\n"
                         "<CLASS NAME=\"Derived\" SUPERCLASS=\"Base\">\n"
                         "<PROPERTY NAME=\"Flag\" TYPE=\"boolean\">\n"
                         "<VALUE>TRUE</VALUE>\n"
                         "</PROPERTY>\n"
                         "<PROPERTY.REFERENCE NAME=\"Other\" REFERENCECLASS=\"Base\">\n"
                         "</PROPERTY.REFERENCE>\n"
                         "<METHOD NAME=\"Do\" TYPE=\"sint32\">\n"
                         "<PARAMETER NAME=\"A\" TYPE=\"string\">\n"
                         "</PARAMETER>\n"
                         "<PARAMETER.ARRAY NAME=\"B\" TYPE=\"real64\">\n"
                         "</PARAMETER.ARRAY>\n"
                         "<PARAMETER.REFERENCE NAME=\"C\" REFERENCECLASS=\"Base\">\n"
                         "</PARAMETER.REFERENCE>\n"
                         "<PARAMETER.REFARRAY NAME=\"D\" REFERENCECLASS=\"Base\" "
                         "ARRAYSIZE=\"3\">\n"
                         "</PARAMETER.REFARRAY>\n"
                         "</METHOD>\n"
                         "</CLASS>\n"
                         "</IRETURNVALUE>\n"));
}

TEST_F(ClassOperations, class_names_are_those_of_the_level_or_of_all) {
  EXPECT_EQ(call("EnumerateClassNames", ""),
            intrinsic_response("EnumerateClassNames",
                               "<IRETURNVALUE>\n<CLASSNAME NAME=\"Base\"/>\n</IRETURNVALUE>\n"));
  EXPECT_EQ(call("EnumerateClassNames", flag("DeepInheritance", "true")),
            intrinsic_response("EnumerateClassNames",
                               "<IRETURNVALUE>\n<CLASSNAME NAME=\"Base\"/>\n"
                               "<CLASSNAME NAME=\"Derived\"/>\n</IRETURNVALUE>\n"));
  EXPECT_EQ(call("EnumerateClassNames", class_name("ClassName", "Derived")),
            intrinsic_response("EnumerateClassNames", "<IRETURNVALUE>\n</IRETURNVALUE>\n"));
}

TEST_F(ClassOperations, mistakes_are_answered_with_error_elements) {
  EXPECT_EQ(call("GetClass", class_name("ClassName", "Nobody")),
            error("GetClass", "6", "unknown class &quot;Nobody&quot;"));
  EXPECT_EQ(call("GetClass", ""),
            error("GetClass", "4", "parameter &quot;ClassName&quot; is missing"));
  EXPECT_EQ(call("GetClass", class_name("ClassName", "Base") + flag("LocalOnly", "maybe")),
            error("GetClass", "4", "parameter &quot;LocalOnly&quot; must be TRUE or FALSE"));
  EXPECT_EQ(call("GetClass", class_name("ClassName", "Base") + flag("Depth", "TRUE")),
            error("GetClass", "4", "unknown parameter &quot;Depth&quot;"));
  EXPECT_EQ(call("GetClass", class_name("ClassName", "Base") + class_name("classname", "Base")),
            error("GetClass", "4", "parameter &quot;classname&quot; is given twice"));
  EXPECT_EQ(call("GetClass", flag("ClassName", "Base")),
            error("GetClass", "4", "parameter &quot;ClassName&quot; must be a CLASSNAME"));
  EXPECT_EQ(call("EnumerateClasses", class_name("ClassName", "Nobody")),
            error("EnumerateClasses", "5", "unknown class &quot;Nobody&quot;"));
  EXPECT_EQ(call("EnumerateClassNames", class_name("ClassName", "Nobody")),
            error("EnumerateClassNames", "5", "unknown class &quot;Nobody&quot;"));
}

}  // namespace
}  // namespace sandbox::cimxml
