// Whole documents: a request of many parts, and what happens without memory for one.
#include "writer/document.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "cim_client.h"
#include "support/allocations.h"
#include "support/written.h"

namespace {

using support::FailingAllocation;
using support::text;
using support::written;

// ModifyInstance of a fan with every kind of property.
struct Request {
  ClassName fan{.name = text("CIM_Fan")};
  KeyValue id{.text = text("fan1"), .valueType = text("string")};
  KeyBinding key{.keyValue = &id, .name = text("DeviceID")};
  InstanceName name{.keyBindings = &key, .className = &fan};

  Value true_value{.text = text("TRUE")};
  QualifierFlavor flavor{.overridable = 1, .toInstance = 1};
  Qualifier key_qualifier{.value = &true_value,
                          .name = text("Key"),
                          .type = text("boolean"),
                          .propagated = 1,
                          .qualifierFlavor = &flavor};
  Value id_value{.text = text("fan1")};
  Value speed_value{.text = text("4200")};
  Property empty{.name = text("Caption"), .type = text("string")};
  Property speed{.value = &speed_value,
                 .name = text("Speed"),
                 .type = text("uint64"),
                 .classOrigin = text("CIM_Fan"),
                 .propagated = 0,
                 .next = &empty};
  Property id_property{.qualifiers = &key_qualifier,
                       .value = &id_value,
                       .name = text("DeviceID"),
                       .type = text("string"),
                       .classOrigin = text("CIM_LogicalDevice"),
                       .propagated = 1,
                       .next = &speed};
  Value second_status{.text = text("3")};
  Value first_status{.text = text("2"), .next = &second_status};
  ValueArray statuses{.values = &first_status};
  PropertyArray status{.valueArray = &statuses,
                       .name = text("OperationalStatus"),
                       .type = text("uint16"),
                       .arraySize = 2,
                       .propagated = 1};
  Namespace cimv2{.name = text("cimv2")};
  Namespace root_namespace{.name = text("root"), .next = &cimv2};
  LocalNamespacePath path{.namespaces = &root_namespace};
  LocalInstancePath local_path{.localNamespacePath = &path, .instanceName = &name};
  ValueReference cooled{.localInstancePath = &local_path};
  PropertyReference cools{.valueReference = &cooled,
                          .name = text("Cools"),
                          .referenceClass = text("CIM_Chassis"),
                          .propagated = 1};
  Instance instance{.className = &fan,
                    .properties = &id_property,
                    .propertyArrays = &status,
                    .propertyReferences = &cools};
  NamedInstance named{.instanceName = &name, .instance = &instance};

  Value false_value{.text = text("FALSE")};
  IParamValue include{.name = text("IncludeQualifiers"), .value = &false_value};
  IParamValue modified{.name = text("ModifiedInstance"), .namedInstance = &named, .next = &include};
  IMethodCall call{
      .localNamespacePath = &path, .iParamValues = &modified, .name = text("ModifyInstance")};
  SimpleReq request{.iMethodCall = &call};
  Message message{.id = text("1234"), .protocolVersion = text("1.0"), .simpleReq = &request};
  CIM root{.message = &message, .cimVersion = text("2.0"), .dtdVersion = text("2.0")};
};

constexpr char request_xml[] =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
    "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\">"
    "<SIMPLEREQ><IMETHODCALL NAME=\"ModifyInstance\"><LOCALNAMESPACEPATH>"
    "<NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH>"
    "<IPARAMVALUE NAME=\"ModifiedInstance\"><VALUE.NAMEDINSTANCE>"
    "<INSTANCENAME CLASSNAME=\"CIM_Fan\"><KEYBINDING NAME=\"DeviceID\">"
    "<KEYVALUE VALUETYPE = \"string\">fan1</KEYVALUE></KEYBINDING></INSTANCENAME>"
    "<INSTANCE CLASSNAME=\"CIM_Fan\">"
    "<PROPERTY NAME=\"DeviceID\" TYPE=\"string\" CLASSORIGIN=\"CIM_LogicalDevice\""
    " PROPAGATED=TRUE><QUALIFIER NAME=\"Key\" TYPE=\"boolean\" PROPAGATED=TRUE>"
    "<VALUE>TRUE</VALUE> QUALIFIERFLAVOR'TRUE' OVERRIDABLE='TRUE' TOSUBCLASS='FALSE'"
    " TOINSTANCE='TRUE' TRANSLATABLE='FALSE'</QUALIFIER><VALUE>fan1</VALUE></PROPERTY>"
    "<PROPERTY NAME=\"Speed\" TYPE=\"uint64\" CLASSORIGIN=\"CIM_Fan\"><VALUE>4200</VALUE>"
    "</PROPERTY><PROPERTY NAME=\"Caption\" TYPE=\"string\"></PROPERTY>"
    "<PROPERTY.ARRAY NAME=\"OperationalStatus\" TYPE=\"uint16\" ARRAYSIZE=2 PROPAGATED 'TRUE'>"
    "<VALUE.ARRAY><VALUE>2</VALUE><VALUE>3</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>"
    "<PROPERTY.REFERENCE NAME=\"Cools\" REFERENCECLASS=\"CIM_Chassis\" PROPAGATED 'TRUE'>"
    "<VALUE.REFERENCE><LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
    "<NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH><INSTANCENAME CLASSNAME=\"CIM_Fan\">"
    "<KEYBINDING NAME=\"DeviceID\"><KEYVALUE VALUETYPE = \"string\">fan1</KEYVALUE></KEYBINDING>"
    "</INSTANCENAME></LOCALINSTANCEPATH></VALUE.REFERENCE></PROPERTY.REFERENCE>"
    "</INSTANCE></VALUE.NAMEDINSTANCE></IPARAMVALUE>"
    "<IPARAMVALUE NAME=\"IncludeQualifiers\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
    "</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>";

TEST(Document, a_request_is_one_line) {
  Request request;
  EXPECT_EQ(written(Gen_CIM, &request.root), request_xml);
}

TEST(Document, is_the_same_for_callers_inside) {
  Request request;
  char* document = cim::write_document(request.root);
  EXPECT_STREQ(document, request_xml);
  std::free(document);
}

TEST(Document, an_exchange_of_methods_is_one_line) {
  ClassName fan{.name = text("CIM_Fan")};
  LocalClassPath path{.className = &fan};
  Value speed{.text = text("9000")};
  ParamValue parameter{.name = text("Speed"), .paramType = text("uint64"), .value = &speed};
  MethodCall call{.name = text("SetSpeed"), .localClassPath = &path, .paramValues = &parameter};
  SimpleReq request{.methodCall = &call};
  MultiReq requests{.simpleReqs = &request};
  Message message{.id = text("7"), .protocolVersion = text("1.0"), .multiReq = &requests};
  CIM root{.message = &message, .cimVersion = text("2.0"), .dtdVersion = text("2.0")};
  EXPECT_EQ(written(Gen_CIM, &root),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
            "<MESSAGE ID=\"7\" PROTOCOLVERSION=\"1.0\"><MULTIREQ><SIMPLEREQ>"
            "<METHODCALL NAME=\"SetSpeed\"><LOCALCLASSPATH><CLASSNAME NAME =\"CIM_Fan\"/>"
            "</LOCALCLASSPATH><PARAMVALUE NAME=\"Speed\" PARAMTYPE=\"uint64\"><VALUE>9000</VALUE>"
            "</PARAMVALUE></METHODCALL></SIMPLEREQ></MULTIREQ></MESSAGE></CIM>");
}

// ---- Memory that runs out ----

// What dies is begun anew, unless the environment says otherwise: under an emulator it cannot be.
void begin_anew() {
  if (!std::getenv("GTEST_DEATH_TEST_STYLE")) GTEST_FLAG_SET(death_test_style, "threadsafe");
}

TEST(DocumentDeathTest, without_memory_to_begin_with_the_process_exits_with_0) {
  begin_anew();
  Request request;
  EXPECT_EXIT(
      {
        FailingAllocation first(0);
        char* output = nullptr;
        Gen_CIM(&request.root, &output);
        std::_Exit(9);
      },
      testing::ExitedWithCode(0), "^$");
}

TEST(DocumentDeathTest, without_memory_to_go_on_with_an_output_the_process_exits_with_0) {
  begin_anew();
  Request request;
  EXPECT_EXIT(
      {
        char* output = strdup("before");
        FailingAllocation first(0);
        Gen_CIM(&request.root, &output);
        std::_Exit(9);
      },
      testing::ExitedWithCode(0), "^$");
}

TEST(DocumentDeathTest, ends_the_process_for_callers_inside_too) {
  begin_anew();
  Request request;
  EXPECT_EXIT(
      {
        FailingAllocation first(0);
        std::free(cim::write_document(request.root));
        std::_Exit(9);
      },
      testing::ExitedWithCode(0), "^$");
}

TEST(Document, a_later_failure_ends_the_text_where_it_is) {
  std::string content(100000, 'x');
  Request request;
  request.id_value.text = content.data();
  char* output = nullptr;
  {
    FailingAllocation second(1);
    Gen_CIM(&request.root, &output);
  }
  const std::string whole = request_xml;
  EXPECT_EQ(output, whole.substr(0, whole.find("fan1</VALUE>")));
  std::free(output);
}

TEST(Document, a_later_failure_gives_callers_inside_nothing) {
  std::string content(100000, 'x');
  Request request;
  request.id_value.text = content.data();
  char* document = nullptr;
  {
    FailingAllocation second(1);
    document = cim::write_document(request.root);
  }
  EXPECT_EQ(document, nullptr);
}

}  // namespace
