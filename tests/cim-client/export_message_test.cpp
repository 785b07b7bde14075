// Indications and the answers to them.
#include "export_message.h"

#include <gtest/gtest.h>

#include "cim-client/answers.h"
#include "document.h"
#include "path_text.h"
#include "records.h"
#include "views.h"

namespace cli {
namespace {

std::string request(const std::string& parameter) {
  return answers::document(
      "<SIMPLEEXPREQ><EXPMETHODCALL NAME=\"ExportIndication\"><EXPPARAMVALUE "
      "NAME=\"NewIndication\">" +
      parameter + "</EXPPARAMVALUE></EXPMETHODCALL></SIMPLEEXPREQ>");
}

TEST(ExportMessage, the_indication_is_taken_out_of_the_request) {
  const std::string text = request(
      "<INSTANCE CLASSNAME=\"CIM_Alert\"><PROPERTY NAME=\"Message\" "
      "TYPE=\"string\"><VALUE>a &lt; b</VALUE></PROPERTY></INSTANCE>");
  const ExportOutcome outcome = read_export(text);
  EXPECT_TRUE(outcome.is_xml);
  EXPECT_EQ(outcome.message_id, "1234");
  ASSERT_TRUE(outcome.indication);
  EXPECT_EQ(class_of(*outcome.indication->instance), "CIM_Alert");
  EXPECT_STREQ(outcome.indication->instance->properties->value->text, "a < b");
  EXPECT_EQ(outcome.indication->document, text);
}

TEST(ExportMessage, reference_properties_keep_the_names_that_the_librarys_copy_lacks) {
  const ExportOutcome outcome = read_export(
      request("<INSTANCE CLASSNAME=\"CIM_Alert\"><PROPERTY.REFERENCE NAME=\"Element\" "
              "REFERENCECLASS=\"CIM_Fan\"><VALUE.REFERENCE><INSTANCENAME "
              "CLASSNAME=\"CIM_Fan\"/></VALUE.REFERENCE></PROPERTY.REFERENCE></INSTANCE>"));
  ASSERT_TRUE(outcome.indication);
  const auto properties = properties_of(*outcome.indication->instance);
  ASSERT_EQ(properties.size(), 1U);
  EXPECT_EQ(properties[0].name, "Element");
  EXPECT_EQ(properties[0].reference_class, "CIM_Fan");
}

TEST(ExportMessage, other_documents_are_no_indications) {
  for (const std::string& text : {request(""), request("<VALUE>x</VALUE>"),
                                  answers::document("<SIMPLERSP/>"), answers::document("")}) {
    const ExportOutcome outcome = read_export(text);
    EXPECT_TRUE(outcome.is_xml) << text;
    EXPECT_EQ(outcome.message_id, "1234") << text;
    EXPECT_FALSE(outcome.indication) << text;
  }
}

TEST(ExportMessage, what_is_no_xml_is_said_to_be_none) {
  for (const char* text : {"", "rubbish", "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\">"}) {
    const ExportOutcome outcome = read_export(text);
    EXPECT_FALSE(outcome.is_xml) << text;
    EXPECT_FALSE(outcome.indication) << text;
  }
}

TEST(ExportMessage, an_acceptance_is_an_empty_export_response) {
  EXPECT_EQ(acceptance("7"),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
            "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n"
            "<MESSAGE ID=\"7\" PROTOCOLVERSION=\"1.0\">\n"
            "<SIMPLEEXPRSP>\n"
            "<EXPMETHODRESPONSE NAME=\"ExportIndication\">\n"
            "<IRETURNVALUE>\n</IRETURNVALUE>\n"
            "</EXPMETHODRESPONSE>\n"
            "</SIMPLEEXPRSP>\n"
            "</MESSAGE>\n"
            "</CIM>\n");
}

TEST(ExportMessage, a_refusal_can_be_read_as_an_export_error) {
  const CimOwner document = parse_document(refusal("a\"<b", 4, "no <indication>"));
  ASSERT_NE(document, nullptr);
  EXPECT_STREQ(document->message->id, "a\"<b");
  const Error* error = document->message->simpleExpRsp->expMethodResponse->error;
  EXPECT_STREQ(error->code, "4");
  EXPECT_STREQ(error->description, "no <indication>");
}

}  // namespace
}  // namespace cli
