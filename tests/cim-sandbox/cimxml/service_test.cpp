// The envelope: what is a request, what is answered by HTTP alone, and what by ERROR.
#include "cimxml/service.h"

#include "support/serviced_objects.h"

namespace sandbox::cimxml {
namespace {

using test::intrinsic_request;
using test::intrinsic_response;

class Envelope : public test::ServicedObjects {
 protected:
  Envelope() : ServicedObjects("class C { [Key] string K; };") {}

  std::string enveloped(const std::string& message) {
    return answer("<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">" + message + "</CIM>");
  }
};

TEST_F(Envelope, the_message_id_comes_back) {
  const std::string answer = enveloped(
      "<MESSAGE ID=\"a&lt;&quot;1\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
      "<IMETHODCALL NAME=\"EnumerateClassNames\"><LOCALNAMESPACEPATH>"
      "<NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH>"
      "</IMETHODCALL></SIMPLEREQ></MESSAGE>");
  EXPECT_NE(answer.find("<MESSAGE ID=\"a&lt;&quot;1\" PROTOCOLVERSION=\"1.0\">\n"),
            std::string::npos);
  EXPECT_NE(answer.find("<CLASSNAME NAME=\"C\"/>\n"), std::string::npos);
}

TEST_F(Envelope, a_namespace_may_be_one_element_or_several) {
  const std::string one = call("EnumerateClassNames", "");
  std::string request = intrinsic_request("EnumerateClassNames", "");
  const std::string single = "<NAMESPACE NAME=\"root/cimv2\"/>";
  request.replace(request.find(single), single.size(),
                  "<NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/>");
  EXPECT_EQ(answer(request), one);
}

TEST_F(Envelope, operations_that_the_sandbox_lacks_answer_not_supported) {
  EXPECT_EQ(
      call("DeleteClass", ""),
      error("DeleteClass", "7", "the sandbox does not support operation &quot;DeleteClass&quot;"));
}

TEST_F(Envelope, operation_names_may_be_in_any_case) {
  EXPECT_NE(call("enumerateclassnames", "").find("<CLASSNAME NAME=\"C\"/>"), std::string::npos);
}

TEST_F(Envelope, unknown_namespaces_answer_an_error) {
  std::string request = intrinsic_request("EnumerateClassNames", "");
  request.replace(request.find("root/cimv2"), 10, "root/other");
  EXPECT_EQ(answer(request),
            error("EnumerateClassNames", "3", "unknown namespace &quot;root/other&quot;"));
}

TEST_F(Envelope, text_between_elements_answers_failed) {
  // A device answers so when a qualifier's flavor stands in the content of its element.
  EXPECT_EQ(call("GetClass",
                 "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"C\"/>"
                 " OVERRIDABLE='TRUE'</IPARAMVALUE>"),
            error("GetClass", "1", "text where no text belongs: OVERRIDABLE='TRUE'"));
}

TEST_F(Envelope, what_is_not_well_formed_is_refused) {
  EXPECT_EQ(answer(""), "400 request-not-well-formed");
  EXPECT_EQ(answer("no xml"), "400 request-not-well-formed");
  EXPECT_EQ(call("GetClass", "<IPARAMVALUE NAME=\"X\" PROPAGATED=TRUE></IPARAMVALUE>"),
            "400 request-not-well-formed");
  const std::string whole = intrinsic_request("EnumerateClassNames", "");
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_EQ(answer(whole.substr(0, length)), "400 request-not-well-formed") << length;
  }
}

TEST_F(Envelope, what_is_no_request_is_refused) {
  EXPECT_EQ(answer("<HTML/>"), "400 request-not-valid");
  EXPECT_EQ(enveloped(""), "400 request-not-valid");
  EXPECT_EQ(enveloped("<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"/>"), "400 request-not-valid");
  EXPECT_EQ(enveloped("<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ/></MESSAGE>"),
            "400 request-not-valid");
  EXPECT_EQ(enveloped("<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ><IMETHODCALL/>"
                      "</SIMPLEREQ></MESSAGE>"),
            "400 request-not-valid");
}

TEST_F(Envelope, other_versions_and_many_requests_at_once_are_not_implemented) {
  EXPECT_EQ(answer("<CIM CIMVERSION=\"3.0\" DTDVERSION=\"2.0\"/>"), "501 unsupported-cim-version");
  EXPECT_EQ(answer("<CIM/>"), "501 unsupported-cim-version");
  EXPECT_EQ(enveloped("<MESSAGE ID=\"1\" PROTOCOLVERSION=\"2.0\"/>"),
            "501 unsupported-protocol-version");
  EXPECT_EQ(enveloped("<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><MULTIREQ/></MESSAGE>"),
            "501 multiple-requests-unsupported");
}

TEST_F(Envelope, a_call_without_namespace_answers_an_error) {
  EXPECT_EQ(enveloped("<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
                      "<IMETHODCALL NAME=\"GetClass\"/></SIMPLEREQ></MESSAGE>"),
            error("GetClass", "3", "IMETHODCALL names no namespace"));
}

}  // namespace
}  // namespace sandbox::cimxml
