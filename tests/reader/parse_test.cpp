// Reading whole documents: errors, methods, requests and indications, and where a document begins.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "reader/reading.h"
#include "support/captured_output.h"

namespace {

using reading::answer_of;
using reading::length;
using reading::read;
using reading::returned;
using reading::Tree;

class Parse : public testing::Test {
 protected:
  void SetUp() override { reading::start_over(); }
  void TearDown() override { reading::start_over(); }
};

TEST_F(Parse, an_error) {
  const Tree tree =
      read(answer_of("GetInstance", R"(<ERROR CODE="6" DESCRIPTION="Not &lt;found&gt;"/>
)"));
  const IMethodResponse* response = tree->message->simpleRsp->iMethodResponse;
  EXPECT_STREQ(response->error->code, "6");
  EXPECT_STREQ(response->error->description, "Not <found>");
  EXPECT_FALSE(response->error->instance);
  EXPECT_FALSE(response->iReturnValue);
}

TEST_F(Parse, an_error_with_instances) {
  const Tree tree = read(answer_of("GetInstance", R"(<ERROR CODE="1">
<INSTANCE CLASSNAME="CIM_Error"/>
<INSTANCE CLASSNAME="CIM_Cause"/>
</ERROR>
)"));
  const Error* error = tree->message->simpleRsp->iMethodResponse->error;
  EXPECT_FALSE(error->description);
  EXPECT_STREQ(error->instance->className->name, "CIM_Error");
  EXPECT_STREQ(error->instance->next->className->name, "CIM_Cause");
}

TEST_F(Parse, the_answer_of_a_method) {
  const Tree tree = read(R"(<?xml version="1.0" encoding="utf-8" ?>
<CIM CIMVERSION="2.0" DTDVERSION="2.0">
<MESSAGE ID="1234" PROTOCOLVERSION="1.0">
<SIMPLERSP>
<METHODRESPONSE NAME="SetSpeed">
<RETURNVALUE PARAMTYPE="uint32">
<VALUE>0</VALUE>
</RETURNVALUE>
<PARAMVALUE NAME="Old" PARAMTYPE="uint64">
<VALUE>1200</VALUE>
</PARAMVALUE>
<PARAMVALUE NAME="Steps" PARAMTYPE="uint8">
<VALUE.ARRAY>
<VALUE>1</VALUE>
<VALUE>2</VALUE>
</VALUE.ARRAY>
</PARAMVALUE>
<PARAMVALUE NAME="Job" PARAMTYPE="reference">
<VALUE.REFERENCE>
<INSTANCENAME CLASSNAME="CIM_Job"/>
</VALUE.REFERENCE>
</PARAMVALUE>
<PARAMVALUE NAME="Fans">
<VALUE.REFARRAY>
<VALUE.REFERENCE>
<CLASSNAME NAME="A"/>
</VALUE.REFERENCE>
<VALUE.REFERENCE>
<CLASSNAME NAME="B"/>
</VALUE.REFERENCE>
</VALUE.REFARRAY>
</PARAMVALUE>
</METHODRESPONSE>
</SIMPLERSP>
</MESSAGE>
</CIM>
)");
  const MethodResponse* response = tree->message->simpleRsp->methodResponse;
  EXPECT_STREQ(response->name, "SetSpeed");
  EXPECT_STREQ(response->returnValue->paramType, "uint32");
  EXPECT_STREQ(response->returnValue->value->text, "0");
  const ParamValue* parameter = response->paramValues;
  EXPECT_EQ(length(parameter), 4);
  EXPECT_STREQ(parameter->name, "Old");
  EXPECT_STREQ(parameter->paramType, "uint64");
  EXPECT_STREQ(parameter->value->text, "1200");
  parameter = parameter->next;
  EXPECT_STREQ(parameter->valueArray->values->next->text, "2");
  parameter = parameter->next;
  EXPECT_STREQ(parameter->valueReference->instanceName->className->name, "CIM_Job");
  parameter = parameter->next;
  EXPECT_FALSE(parameter->paramType);
  const ValueReference* reference = parameter->valueRefArray->valueReferences;
  EXPECT_STREQ(reference->className->name, "A");
  EXPECT_STREQ(reference->next->className->name, "B");
}

TEST_F(Parse, an_indication_behind_http_headers) {
  const Tree tree = read(
      "POST / HTTP/1.1\r\nContent-Type: application/xml; charset=\"utf-8\"\r\n"
      "CIMExport: MethodRequest\r\n\r\n"
      R"(<?xml version="1.0" encoding="utf-8" ?>
<CIM CIMVERSION="2.0" DTDVERSION="2.0">
<MESSAGE ID="42" PROTOCOLVERSION="1.0">
<SIMPLEEXPREQ>
<EXPMETHODCALL NAME="ExportIndication">
<EXPPARAMVALUE NAME="NewIndication">
<INSTANCE CLASSNAME="CIM_AlertIndication">
<PROPERTY NAME="AlertType" TYPE="uint16">
<VALUE>5</VALUE>
</PROPERTY>
</INSTANCE>
</EXPPARAMVALUE>
</EXPMETHODCALL>
</SIMPLEEXPREQ>
</MESSAGE>
</CIM>
)");
  const ExpMethodCall* call = tree->message->simpleExpReq->expMethodCall;
  EXPECT_STREQ(call->name, "ExportIndication");
  EXPECT_STREQ(call->expParamValues->name, "NewIndication");
  EXPECT_STREQ(call->expParamValues->instance->className->name, "CIM_AlertIndication");
  EXPECT_STREQ(call->expParamValues->instance->properties->value->text, "5");
}

TEST_F(Parse, several_requests_and_answers) {
  const Tree tree = read(reading::document(
      R"(<MESSAGE><MULTIREQ><SIMPLEREQ><METHODCALL NAME="a"/></SIMPLEREQ><SIMPLEREQ/></MULTIREQ>)"
      R"(<MULTIRSP><SIMPLERSP><SIMPLEREQACK INSTANCEID="i"/></SIMPLERSP><SIMPLERSP/></MULTIRSP>)"
      "</MESSAGE>"));
  EXPECT_STREQ(tree->message->multiReq->simpleReqs->methodCall->name, "a");
  EXPECT_EQ(length(tree->message->multiReq->simpleReqs), 2);
  EXPECT_STREQ(tree->message->multiRsp->simpleRsps->simpleReqAck->instanceId, "i");
  EXPECT_EQ(length(tree->message->multiRsp->simpleRsps), 2);
}

// What parameters hold is borrowed: whoever reads requests releases it.
TEST_F(Parse, a_request) {
  const Tree tree = read(reading::document(
      R"(<MESSAGE ID="1"><SIMPLEREQ><IMETHODCALL NAME="GetClass"><LOCALNAMESPACEPATH>)"
      R"(<NAMESPACE NAME="root/cimv2"/></LOCALNAMESPACEPATH>)"
      R"(<IPARAMVALUE NAME="ClassName"><CLASSNAME NAME="CIM_Fan"/></IPARAMVALUE>)"
      R"(<IPARAMVALUE NAME="LocalOnly"><VALUE>TRUE</VALUE></IPARAMVALUE>)"
      "</IMETHODCALL></SIMPLEREQ></MESSAGE>"));
  const IMethodCall* call = tree->message->simpleReq->iMethodCall;
  EXPECT_STREQ(call->name, "GetClass");
  EXPECT_STREQ(call->localNamespacePath->namespaces->name, "root/cimv2");
  IParamValue* parameter = call->iParamValues;
  EXPECT_STREQ(parameter->name, "ClassName");
  EXPECT_STREQ(parameter->className->name, "CIM_Fan");
  EXPECT_STREQ(parameter->next->value->text, "TRUE");
  Free_ClassName(parameter->className);
  Free_Value(parameter->next->value);
}

TEST_F(Parse, a_declaration_is_not_linked_to_the_root) {
  const Tree tree = read(reading::document(
      R"(<DECLARATION><DECLGROUP.WITHNAME><VALUE.NAMEDOBJECT><CLASS NAME="A"/></VALUE.NAMEDOBJECT>)"
      "</DECLGROUP.WITHNAME></DECLARATION>"));
  EXPECT_FALSE(tree->declaration);
  const auto* declaration = static_cast<const Declaration*>(map[1].address);
  EXPECT_STREQ(declaration->declGroupWithName->namedObjects->class_->name, "A");
}

TEST_F(Parse, of_two_single_children_the_last_counts) {
  const Tree tree =
      read(reading::document(R"(<MESSAGE ID="1"><SIMPLERSP><METHODRESPONSE NAME="a"/></SIMPLERSP>)"
                             R"(</MESSAGE><MESSAGE ID="2"/>)"));
  EXPECT_STREQ(tree->message->id, "2");
  EXPECT_FALSE(tree->message->simpleRsp);
}

// ---- Where a document begins ----

TEST_F(Parse, a_document_begins_at_the_xml_declaration) {
  const Tree tree = read(
      "HTTP/1.1 200 OK\r\nX: <CIM \r\n\r\n<?xml version=\"1.0\"?><CIM A=\"\"><MESSAGE/></CIM>");
  EXPECT_TRUE(tree);
}

TEST_F(Parse, without_a_declaration_it_begins_at_the_root_with_an_attribute) {
  const Tree tree =
      read("HTTP/1.1 200 OK\r\n\r\n<CIM CIMVERSION=\"2.0\"><MESSAGE ID=\"7\"/></CIM>");
  EXPECT_STREQ(tree->message->id, "7");
}

TEST_F(Parse, a_root_without_a_blank_after_its_name_is_not_found) {
  support::CapturedOutput output(stdout);
  EXPECT_FALSE(parseXML("<CIM><MESSAGE/></CIM>"));
  EXPECT_FALSE(parseXML("<CIM\nCIMVERSION=\"2.0\"><MESSAGE/></CIM>"));
  EXPECT_EQ(output.text(), "");
}

TEST_F(Parse, a_root_without_attributes_is_found_behind_a_declaration) {
  EXPECT_TRUE(read("<?xml version=\"1.0\"?><CIM><MESSAGE/></CIM>"));
}

TEST_F(Parse, a_text_without_a_document_gives_null_silently) {
  support::CapturedOutput output(stdout);
  EXPECT_FALSE(parseXML(""));
  EXPECT_FALSE(parseXML(nullptr));
  EXPECT_FALSE(parseXML("HTTP/1.1 401 Unauthorized\r\n\r\n"));
  EXPECT_EQ(output.text(), "");
}

TEST_F(Parse, what_is_not_well_formed_is_reported_and_gives_null) {
  support::CapturedOutput output(stdout);
  EXPECT_FALSE(parseXML("<?xml version=\"1.0\"?>\n<CIM>\n<MESSAGE></CIM>"));
  const std::string text = output.text();
  EXPECT_EQ(text.rfind("\n Invalid XML... line 3, column ", 0), 0U) << text;
}

TEST_F(Parse, a_truncated_document_gives_null_and_leaves_nothing) {
  support::CapturedOutput output(stdout);
  const std::string whole = answer_of("X", "<IRETURNVALUE>\n<VALUE>1</VALUE>\n</IRETURNVALUE>\n");
  const std::size_t end = whole.rfind('>');
  for (std::size_t size = whole.find("<?xml") + 5; size <= end; ++size) {
    EXPECT_FALSE(parseXML(whole.substr(0, size).c_str())) << size;
    EXPECT_EQ(top, -1);
  }
  EXPECT_TRUE(read(whole.substr(0, end + 1)));
}

TEST_F(Parse, the_result_does_not_depend_on_the_text_any_more) {
  std::string text = answer_of("X", "<IRETURNVALUE>\n<VALUE>abc</VALUE>\n</IRETURNVALUE>\n");
  const Tree tree = read(text);
  text.assign(text.size(), 'x');
  EXPECT_STREQ(returned(tree).value->text, "abc");
}

}  // namespace
