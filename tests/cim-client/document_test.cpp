// Requests made by hand, and answers judged.
#include "document.h"

#include <gtest/gtest.h>

#include "cim-client/answers.h"

namespace cli {
namespace {

AnswerKind judged(const std::string& message) {
  return kind_of(parse_document(answers::document(message)).get());
}

AnswerKind operation(const std::string& content) {
  return judged("<SIMPLERSP><IMETHODRESPONSE NAME=\"X\">" + content +
                "</IMETHODRESPONSE></SIMPLERSP>");
}

AnswerKind method(const std::string& content) {
  return judged("<SIMPLERSP><METHODRESPONSE NAME=\"X\">" + content +
                "</METHODRESPONSE></SIMPLERSP>");
}

TEST(Document, a_get_class_request_is_one_of_the_librarys) {
  EXPECT_EQ(get_class_request("root/cimv2", "CIM_Fan"),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"2.0\" "
            "DTDVERSION=\"2.0\"><MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
            "<IMETHODCALL NAME=\"GetClass\"><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root/cimv2\"/>"
            "</LOCALNAMESPACEPATH><IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"CIM_Fan\"/>"
            "</IPARAMVALUE></IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>");
}

TEST(Document, an_empty_result_is_told_from_a_filled_one) {
  EXPECT_EQ(operation("<IRETURNVALUE/>"), AnswerKind::Empty);
  EXPECT_EQ(operation("<IRETURNVALUE></IRETURNVALUE>"), AnswerKind::Empty);
  EXPECT_EQ(operation(""), AnswerKind::Empty);
  EXPECT_EQ(operation("<IRETURNVALUE><CLASSNAME NAME=\"X\"/></IRETURNVALUE>"), AnswerKind::Filled);
  EXPECT_EQ(operation("<IRETURNVALUE><OBJECTPATH><CLASSPATH/></OBJECTPATH></IRETURNVALUE>"),
            AnswerKind::Filled);
}

TEST(Document, methods_answer_in_an_element_of_their_own) {
  EXPECT_EQ(method(""), AnswerKind::Empty);
  EXPECT_EQ(method("<RETURNVALUE><VALUE>0</VALUE></RETURNVALUE>"), AnswerKind::Filled);
  EXPECT_EQ(method("<PARAMVALUE NAME=\"A\"/>"), AnswerKind::Filled);
  EXPECT_EQ(method("<ERROR CODE=\"1\"/>"), AnswerKind::Error);
}

TEST(Document, errors_are_errors) {
  EXPECT_EQ(operation("<ERROR CODE=\"6\" DESCRIPTION=\"x\"/>"), AnswerKind::Error);
}

TEST(Document, everything_else_is_something_else) {
  EXPECT_EQ(judged("<MULTIRSP><SIMPLERSP/></MULTIRSP>"), AnswerKind::Other);
  EXPECT_EQ(judged("<SIMPLERSP/>"), AnswerKind::Other);
  EXPECT_EQ(kind_of(nullptr), AnswerKind::Other);
  EXPECT_EQ(kind_of(parse_document("no XML at all").get()), AnswerKind::Other);
}

}  // namespace
}  // namespace cli
