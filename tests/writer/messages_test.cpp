// The bytes of messages, calls and answers.
#include <gtest/gtest.h>

#include "cim_client.h"
#include "support/written.h"

namespace {

using support::text;
using support::written;

// ---- Envelope ----

TEST(WriteCim, document_has_no_line_break_anywhere) {
  Message message{.id = text("1234"), .protocolVersion = text("1.0")};
  CIM root{.message = &message, .cimVersion = text("2.0"), .dtdVersion = text("2.0")};
  EXPECT_EQ(written(Gen_CIM, &root),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
            "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"></MESSAGE></CIM>");
}

TEST(WriteCim, message_comes_before_declaration) {
  Message message{};
  Declaration declaration{};
  CIM root{.message = &message, .declaration = &declaration};
  EXPECT_EQ(written(Gen_CIM, &root),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"\" DTDVERSION=\"\">"
            "<MESSAGE ID=\"\" PROTOCOLVERSION=\"\"></MESSAGE><DECLARATION></DECLARATION></CIM>");
}

TEST(WriteCim, versions_of_null_have_empty_quotes) {
  CIM root{};
  EXPECT_EQ(written(Gen_CIM, &root),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"\" DTDVERSION=\"\">"
            "</CIM>");
}

TEST(WriteMessage, attributes_of_null_have_empty_quotes) {
  Message message{};
  EXPECT_EQ(written(Gen_Message, &message), "<MESSAGE ID=\"\" PROTOCOLVERSION=\"\"></MESSAGE>");
}

TEST(WriteMessage, with_a_response_only) {
  SimpleRsp response{};
  Message message{.id = text("1"), .protocolVersion = text("1.0"), .simpleRsp = &response};
  EXPECT_EQ(written(Gen_Message, &message),
            "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLERSP></SIMPLERSP></MESSAGE>");
}

TEST(WriteMessage, writes_requests_and_responses_in_their_order) {
  SimpleReq request{};
  MultiReq requests{};
  SimpleRsp response{};
  MultiRsp responses{};
  Message message{.id = text("1"),
                  .protocolVersion = text("1.0"),
                  .simpleReq = &request,
                  .multiReq = &requests,
                  .simpleRsp = &response,
                  .multiRsp = &responses};
  EXPECT_EQ(written(Gen_Message, &message),
            "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ></SIMPLEREQ>"
            "<MULTIREQ></MULTIREQ><SIMPLERSP></SIMPLERSP><MULTIRSP></MULTIRSP></MESSAGE>");
}

TEST(WriteMessage, leaves_export_messages_out) {
  SimpleExpReq request{};
  MultiExpReq requests{};
  SimpleExpRsp response{};
  MultiExpRsp responses{};
  Message message{.id = text("1"),
                  .protocolVersion = text("1.0"),
                  .simpleExpReq = &request,
                  .multiExpReq = &requests,
                  .simpleExpRsp = &response,
                  .multiExpRsp = &responses};
  EXPECT_EQ(written(Gen_Message, &message), "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"></MESSAGE>");
}

TEST(WriteSimpleReq, operation_comes_before_method) {
  IMethodCall operation{.name = text("GetClass")};
  MethodCall method{.name = text("SetSpeed")};
  SimpleReq second{};
  SimpleReq first{.iMethodCall = &operation, .methodCall = &method, .next = &second};
  EXPECT_EQ(written(Gen_SimpleReq, &first),
            "<SIMPLEREQ><IMETHODCALL NAME=\"GetClass\"></IMETHODCALL>"
            "<METHODCALL NAME=\"SetSpeed\"></METHODCALL></SIMPLEREQ><SIMPLEREQ></SIMPLEREQ>");
}

TEST(WriteMultiReq, holds_its_requests) {
  SimpleReq second{};
  SimpleReq first{.next = &second};
  MultiReq requests{.simpleReqs = &first};
  EXPECT_EQ(written(Gen_MultiReq, &requests),
            "<MULTIREQ><SIMPLEREQ></SIMPLEREQ><SIMPLEREQ></SIMPLEREQ></MULTIREQ>");
}

TEST(WriteSimpleRsp, method_comes_before_operation_and_acknowledgement_is_left_out) {
  MethodResponse method{.name = text("SetSpeed")};
  IMethodResponse operation{.name = text("GetClass")};
  SimpleReqAck acknowledgement{};
  SimpleRsp second{};
  SimpleRsp first{.methodResponse = &method,
                  .iMethodResponse = &operation,
                  .simpleReqAck = &acknowledgement,
                  .next = &second};
  EXPECT_EQ(written(Gen_SimpleRsp, &first),
            "<SIMPLERSP><METHODRESPONSE NAME=\"SetSpeed\"></METHODRESPONSE>"
            "<IMETHODRESPONSE NAME=\"GetClass\"></IMETHODRESPONSE></SIMPLERSP>"
            "<SIMPLERSP></SIMPLERSP>");
}

TEST(WriteMultiRsp, holds_its_responses) {
  SimpleRsp second{};
  SimpleRsp first{.next = &second};
  MultiRsp responses{.simpleRsps = &first};
  EXPECT_EQ(written(Gen_MultiRsp, &responses),
            "<MULTIRSP><SIMPLERSP></SIMPLERSP><SIMPLERSP></SIMPLERSP></MULTIRSP>");
}

// ---- Operations ----

TEST(WriteIMethodCall, namespace_then_parameters_then_destination) {
  LocalNamespacePath path{};
  IParamValue parameter{.name = text("ClassName")};
  ResponseDestination destination{};
  IMethodCall call{.localNamespacePath = &path,
                   .iParamValues = &parameter,
                   .responseDestination = &destination,
                   .name = text("GetClass")};
  EXPECT_EQ(written(Gen_IMethodCall, &call),
            "<IMETHODCALL NAME=\"GetClass\"><LOCALNAMESPACEPATH></LOCALNAMESPACEPATH>"
            "<IPARAMVALUE NAME=\"ClassName\"></IPARAMVALUE>"
            "<RESPONSEDESTINATION></ResponseDestination></IMETHODCALL>");
}

TEST(WriteIMethodCall, without_a_name_has_nothing_after_the_equals_sign) {
  IMethodCall call{};
  EXPECT_EQ(written(Gen_IMethodCall, &call), "<IMETHODCALL NAME=></IMETHODCALL>");
}

TEST(WriteIParamValue, writes_every_alternative_in_its_order) {
  Value value{.text = text("v")};
  ValueArray array{};
  ValueReference reference{};
  ClassName fan{.name = text("CIM_Fan")};
  InstanceName name{.className = &fan};
  QualifierDecl declaration{.name = text("Key"), .isArray = 2};
  Class definition{.name = text("CIM_Fan")};
  Instance instance{.className = &fan};
  NamedInstance named{};
  IParamValue parameter{.name = text("p"),
                        .value = &value,
                        .valueArray = &array,
                        .valueReference = &reference,
                        .className = &fan,
                        .instanceName = &name,
                        .qualifierDecl = &declaration,
                        .class_ = &definition,
                        .instance = &instance,
                        .namedInstance = &named};
  EXPECT_EQ(written(Gen_IParamValue, &parameter),
            "<IPARAMVALUE NAME=\"p\"><VALUE>v</VALUE><VALUE.ARRAY></VALUE.ARRAY>"
            "<VALUE.REFERENCE></VALUE.REFERENCE><CLASSNAME NAME=\"CIM_Fan\"/>"
            "<INSTANCENAME CLASSNAME=\"CIM_Fan\"></INSTANCENAME>"
            "<QUALIFIER.DECLARATION NAME=\"Key\"></QUALIFIER.DECLARATION>"
            "<CLASS NAME=\"CIM_Fan\"></CLASS><INSTANCE CLASSNAME=\"CIM_Fan\"></INSTANCE>"
            "<VALUE.NAMEDINSTANCE></VALUE.NAMEDINSTANCE></IPARAMVALUE>");
}

TEST(WriteIParamValue, two_parameters_keep_their_order) {
  Value value{.text = text("FALSE")};
  IParamValue second{.name = text("LocalOnly"), .value = &value};
  IParamValue first{.next = &second};
  EXPECT_EQ(written(Gen_IParamValue, &first),
            "<IPARAMVALUE NAME=></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"LocalOnly\"><VALUE>FALSE</VALUE></IPARAMVALUE>");
}

TEST(WriteIMethodResponse, error_comes_before_return_value) {
  Error error{.code = text("6"), .description = text("not found")};
  IReturnValue result{};
  IMethodResponse response{.name = text("GetClass"), .error = &error, .iReturnValue = &result};
  EXPECT_EQ(written(Gen_IMethodResponse, &response),
            "<IMETHODRESPONSE NAME=\"GetClass\"><ERROR CODE=\"6\" DESCRIPTION=\"not found\">"
            "</ERROR><IRETURNVALUE></IRETURNVALUE></IMETHODRESPONSE>");
}

TEST(WriteIMethodResponse, without_a_name_has_nothing_after_the_equals_sign) {
  IMethodResponse response{};
  EXPECT_EQ(written(Gen_IMethodResponse, &response), "<IMETHODRESPONSE NAME=></IMETHODRESPONSE>");
}

TEST(WriteIReturnValue, class_names_come_out_bare) {
  ClassName second{.name = text("CIM_Sensor")};
  ClassName first{.name = text("CIM_Fan"), .next = &second};
  IReturnValue result{.className = &first};
  EXPECT_EQ(written(Gen_IReturnValue, &result),
            "<IRETURNVALUE>\"CIM_Fan\"\"CIM_Sensor\"</IRETURNVALUE>");
}

TEST(WriteIReturnValue, writes_all_thirteen_in_their_order) {
  ClassName fan{.name = text("CIM_Fan")};
  InstanceName name{.className = &fan};
  Value value{.text = text("v")};
  ObjectWithPath with_path{};
  ObjectWithLocalPath with_local_path{};
  Object object{};
  ObjectPath path{};
  QualifierDecl declaration{.name = text("Key"), .isArray = 2};
  ValueArray array{};
  ValueReference reference{};
  Class definition{.name = text("CIM_Fan")};
  Instance instance{.className = &fan};
  NamedInstance named{};
  IReturnValue result{.className = &fan,
                      .instanceName = &name,
                      .value = &value,
                      .objectWithPath = &with_path,
                      .objectWithLocalPath = &with_local_path,
                      .object = &object,
                      .objectPath = &path,
                      .qualifierDecl = &declaration,
                      .valueArray = &array,
                      .valueReference = &reference,
                      .class_ = &definition,
                      .instance = &instance,
                      .namedInstance = &named};
  EXPECT_EQ(written(Gen_IReturnValue, &result),
            "<IRETURNVALUE>\"CIM_Fan\"<INSTANCENAME CLASSNAME=\"CIM_Fan\"></INSTANCENAME>"
            "<VALUE>v</VALUE><VALUE.OBJECTWITHPATH></VALUE.OBJECTWITHPATH>"
            "<VALUE.OBJECTWITHLOCALPATH></VALUE.OBJECTWITHLOCALPATH>"
            "<VALUE.OBJECT></VALUE.OBJECT><VALUE.OBJECTPATH></VALUE.OBJECTPATH>"
            "<QUALIFIER.DECLARATION NAME=\"Key\"></QUALIFIER.DECLARATION>"
            "<VALUE.ARRAY></VALUE.ARRAY><VALUE.REFERENCE></VALUE.REFERENCE>"
            "<CLASS NAME=\"CIM_Fan\"></CLASS><INSTANCE CLASSNAME=\"CIM_Fan\"></INSTANCE>"
            "<VALUE.NAMEDINSTANCE></VALUE.NAMEDINSTANCE></IRETURNVALUE>");
}

// ---- Methods ----

TEST(WriteMethodCall, class_then_instance_then_parameters_then_destination) {
  LocalClassPath class_path{};
  LocalInstancePath instance_path{};
  ParamValue parameter{.name = text("Speed")};
  ResponseDestination destination{};
  MethodCall call{.name = text("SetSpeed"),
                  .localClassPath = &class_path,
                  .localInstancePath = &instance_path,
                  .paramValues = &parameter,
                  .responseDestination = &destination};
  EXPECT_EQ(written(Gen_MethodCall, &call),
            "<METHODCALL NAME=\"SetSpeed\"><LOCALCLASSPATH></LOCALCLASSPATH>"
            "<LOCALINSTANCEPATH></LOCALINSTANCEPATH><PARAMVALUE NAME=\"Speed\"></PARAMVALUE>"
            "<RESPONSEDESTINATION></ResponseDestination></METHODCALL>");
}

TEST(WriteMethodCall, without_a_name_has_nothing_after_the_equals_sign) {
  MethodCall call{};
  EXPECT_EQ(written(Gen_MethodCall, &call), "<METHODCALL NAME=></METHODCALL>");
}

TEST(WriteParamValue, array_comes_before_reference) {
  Value value{.text = text("v")};
  ValueReference reference{};
  ValueArray array{};
  ValueRefArray references{};
  ParamValue parameter{.name = text("p"),
                       .paramType = text("uint32"),
                       .value = &value,
                       .valueReference = &reference,
                       .valueArray = &array,
                       .valueRefArray = &references};
  EXPECT_EQ(written(Gen_ParamValue, &parameter),
            "<PARAMVALUE NAME=\"p\" PARAMTYPE=\"uint32\"><VALUE>v</VALUE>"
            "<VALUE.ARRAY></VALUE.ARRAY><VALUE.REFERENCE></VALUE.REFERENCE>"
            "<VALUE.REFARRAY></VALUE.REFARRAY></PARAMVALUE>");
}

TEST(WriteParamValue, without_a_type_has_no_attribute_for_it) {
  ParamValue second{};
  ParamValue first{.name = text("p"), .next = &second};
  EXPECT_EQ(written(Gen_ParamValue, &first),
            "<PARAMVALUE NAME=\"p\"></PARAMVALUE><PARAMVALUE NAME=></PARAMVALUE>");
}

TEST(WriteMethodResponse, error_then_return_value_then_parameters) {
  Error error{.code = text("1"), .description = text("failed")};
  ReturnValue result{};
  ParamValue parameter{.name = text("Speed")};
  MethodResponse response{
      .name = text("SetSpeed"), .error = &error, .returnValue = &result, .paramValues = &parameter};
  EXPECT_EQ(written(Gen_MethodResponse, &response),
            "<METHODRESPONSE NAME=\"SetSpeed\"><ERROR CODE=\"1\" DESCRIPTION=\"failed\"></ERROR>"
            "<RETURNVALUE></RETURNVALUE><PARAMVALUE NAME=\"Speed\"></PARAMVALUE>"
            "</METHODRESPONSE>");
}

TEST(WriteMethodResponse, without_a_name_has_nothing_after_the_equals_sign) {
  MethodResponse response{};
  EXPECT_EQ(written(Gen_MethodResponse, &response), "<METHODRESPONSE NAME=></METHODRESPONSE>");
}

TEST(WriteReturnValue, value_comes_before_reference) {
  Value value{.text = text("0")};
  ValueReference reference{};
  ReturnValue result{.value = &value, .valueReference = &reference, .paramType = text("uint32")};
  EXPECT_EQ(written(Gen_ReturnValue, &result),
            "<RETURNVALUE PARAMTYPE=\"uint32\"><VALUE>0</VALUE>"
            "<VALUE.REFERENCE></VALUE.REFERENCE></RETURNVALUE>");
}

TEST(WriteReturnValue, without_anything) {
  ReturnValue result{};
  EXPECT_EQ(written(Gen_ReturnValue, &result), "<RETURNVALUE></RETURNVALUE>");
}

TEST(WriteError, holds_its_instances) {
  Instance second{};
  Instance first{.next = &second};
  Error error{.instance = &first, .code = text("6"), .description = text("a \"b\" <c>")};
  EXPECT_EQ(written(Gen_Error, &error),
            "<ERROR CODE=\"6\" DESCRIPTION=\"a \"b\" <c>\"><INSTANCE CLASSNAME=></INSTANCE>"
            "<INSTANCE CLASSNAME=></INSTANCE></ERROR>");
}

TEST(WriteError, attributes_of_null_have_empty_quotes) {
  Error error{};
  EXPECT_EQ(written(Gen_Error, &error), "<ERROR CODE=\"\" DESCRIPTION=\"\"></ERROR>");
}

}  // namespace
