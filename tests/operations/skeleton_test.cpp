// Free_IParamValue_New() and Free_Header().
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "operations/records.h"
#include "support/allocations.h"

namespace operations_test {
namespace {

template <class R>
R* make() {
  return static_cast<R*>(std::calloc(1, sizeof(R)));
}

// Expects that the test leaves as many blocks as it found.
class Skeleton : public testing::Test {
 protected:
  // The reader keeps some memory from its first document on.
  static void SetUpTestSuite() {
    Free_CIM(parseXML("<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\"><MESSAGE ID=\"1\"/></CIM>"));
  }

  void TearDown() override { EXPECT_EQ(support::living_blocks(), before_); }

 private:
  const long before_ = support::living_blocks();
};

using FreeIParamValueNew = Skeleton;
using FreeHeader = Skeleton;

// ---- Free_IParamValue_New ----

TEST_F(FreeIParamValueNew, null_gives_0) { EXPECT_EQ(Free_IParamValue_New(nullptr), 0); }

TEST_F(FreeIParamValueNew, releases_nodes_names_and_values_and_nothing_else) {
  const auto name = class_name("CIM_Fan");
  const auto instance = instance_name("CIM_Fan", "left");
  ValueArray array{};
  auto* first = make<IParamValue>();
  first->name = strdup("ClassName");
  first->className = name.get();
  first->instanceName = instance.get();
  first->valueArray = &array;
  auto* second = first->next = make<IParamValue>();
  second->name = strdup("LocalOnly");
  second->value = make<Value>();
  second->value->text = strdup("TRUE");
  second->next = make<IParamValue>();  // without name and value
  EXPECT_EQ(Free_IParamValue_New(first), 0);
  EXPECT_STREQ(name->name, "CIM_Fan");
  EXPECT_STREQ(instance->keyBindings->keyValue->text, "left");
}

TEST_F(FreeIParamValueNew, leaves_what_hangs_on_a_value) {
  Value next{};
  const auto embedded = instance("CIM_Fan", "100");
  auto* parameter = make<IParamValue>();
  parameter->value = make<Value>();
  parameter->value->next = &next;
  parameter->value->instance = embedded.get();
  EXPECT_EQ(Free_IParamValue_New(parameter), 0);
  EXPECT_STREQ(embedded->className->name, "CIM_Fan");
}

// ---- Free_Header ----

CIM* make_root() {
  auto* root = make<CIM>();
  root->cimVersion = strdup("2.0");
  root->dtdVersion = strdup("2.0");
  root->message = make<Message>();
  root->message->id = strdup("1234");
  root->message->protocolVersion = strdup("1.0");
  return root;
}

LocalNamespacePath* make_namespace_path() {
  auto* path = make<LocalNamespacePath>();
  path->namespaces = make<Namespace>();
  path->namespaces->name = strdup("root");
  path->namespaces->next = make<Namespace>();
  return path;
}

TEST_F(FreeHeader, null_gives_null) { EXPECT_EQ(Free_Header(nullptr), nullptr); }

TEST_F(FreeHeader, an_empty_root_is_released) { EXPECT_EQ(Free_Header(make<CIM>()), nullptr); }

TEST_F(FreeHeader, an_empty_message_is_released) {
  CIM* root = make_root();
  EXPECT_EQ(Free_Header(root), nullptr);
}

TEST_F(FreeHeader, leaves_what_an_operation_returned_and_its_error) {
  const auto names = class_name("CIM_Fan");
  const OwnedError error(make<Error>());
  error->code = strdup("6");
  CIM* root = make_root();
  auto* response = root->message->simpleRsp = make<SimpleRsp>();
  response->iMethodResponse = make<IMethodResponse>();
  response->iMethodResponse->name = strdup("EnumerateClassNames");
  response->iMethodResponse->error = error.get();
  response->iMethodResponse->iReturnValue = make<IReturnValue>();
  response->iMethodResponse->iReturnValue->className = names.get();
  EXPECT_EQ(Free_Header(root), nullptr);
  EXPECT_STREQ(names->name, "CIM_Fan");
  EXPECT_STREQ(error->code, "6");
}

TEST_F(FreeHeader, leaves_what_a_method_returned_and_its_error) {
  const auto out = param_value("Reached", "90");
  const OwnedError error(make<Error>());
  Value value{};
  char type[] = "uint32";
  CIM* root = make_root();
  auto* response = root->message->simpleRsp = make<SimpleRsp>();
  response->methodResponse = make<MethodResponse>();
  response->methodResponse->name = strdup("SetSpeed");
  response->methodResponse->error = error.get();
  response->methodResponse->paramValues = out.get();
  response->methodResponse->returnValue = make<ReturnValue>();
  response->methodResponse->returnValue->value = &value;
  response->methodResponse->returnValue->paramType = type;
  EXPECT_EQ(Free_Header(root), nullptr);
  EXPECT_STREQ(out->name, "Reached");
}

TEST_F(FreeHeader, releases_a_request_but_for_its_parameters) {
  auto* parameters = make<IParamValue>();
  parameters->name = strdup("LocalOnly");
  ResponseDestination destination{};
  CIM* root = make_root();
  auto* request = root->message->simpleReq = make<SimpleReq>();
  request->iMethodCall = make<IMethodCall>();
  request->iMethodCall->name = strdup("GetClass");
  request->iMethodCall->localNamespacePath = make_namespace_path();
  request->iMethodCall->iParamValues = parameters;
  request->iMethodCall->responseDestination = &destination;
  EXPECT_EQ(Free_Header(root), nullptr);
  EXPECT_STREQ(parameters->name, "LocalOnly");
  Free_IParamValue_New(parameters);
}

TEST_F(FreeHeader, releases_a_method_call_but_for_its_instance_and_parameters) {
  const auto name = instance_name("CIM_Fan", "left");
  const auto in = param_value("Wanted", "100");
  CIM* root = make_root();
  auto* request = root->message->simpleReq = make<SimpleReq>();
  request->methodCall = make<MethodCall>();
  request->methodCall->name = strdup("SetSpeed");
  request->methodCall->localInstancePath = make<LocalInstancePath>();
  request->methodCall->localInstancePath->localNamespacePath = make_namespace_path();
  request->methodCall->localInstancePath->instanceName = name.get();
  request->methodCall->paramValues = in.get();
  EXPECT_EQ(Free_Header(root), nullptr);
  EXPECT_STREQ(name->className->name, "CIM_Fan");
  EXPECT_STREQ(in->name, "Wanted");
}

TEST_F(FreeHeader, releases_a_method_call_but_for_its_class) {
  const auto name = class_name("CIM_Fan");
  CIM* root = make_root();
  auto* request = root->message->simpleReq = make<SimpleReq>();
  request->methodCall = make<MethodCall>();
  request->methodCall->localClassPath = make<LocalClassPath>();
  request->methodCall->localClassPath->localNamespacePath = make_namespace_path();
  request->methodCall->localClassPath->className = name.get();
  EXPECT_EQ(Free_Header(root), nullptr);
  EXPECT_STREQ(name->name, "CIM_Fan");
}

TEST_F(FreeHeader, leaves_messages_of_other_shapes) {
  MultiRsp responses{};
  MultiReq requests{};
  SimpleExpReq indication{};
  Declaration declaration{};
  CIM* root = make_root();
  root->declaration = &declaration;
  root->message->multiRsp = &responses;
  root->message->multiReq = &requests;
  root->message->simpleExpReq = &indication;
  EXPECT_EQ(Free_Header(root), nullptr);
}

TEST_F(FreeHeader, a_parsed_answer_goes_but_for_what_was_taken_out_of_it) {
  CIM* root = parseXML(
      "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
      "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLERSP>"
      "<IMETHODRESPONSE NAME=\"EnumerateClassNames\"><IRETURNVALUE><CLASSNAME NAME=\"CIM_Fan\"/>"
      "<CLASSNAME NAME=\"CIM_Pump\"/></IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE>"
      "</CIM>");
  ASSERT_NE(root, nullptr);
  const OwnedClassName taken(root->message->simpleRsp->iMethodResponse->iReturnValue->className);
  EXPECT_EQ(Free_Header(root), nullptr);
  EXPECT_STREQ(taken->name, "CIM_Fan");
  EXPECT_STREQ(taken->next->name, "CIM_Pump");
}

TEST_F(FreeHeader, the_released_tree_is_not_handed_out_again) {
  CIM* root = parseXML("<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\"><MESSAGE ID=\"1\"/></CIM>");
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(returnAddress, root);
  Free_Header(root);
  EXPECT_EQ(returnAddress, nullptr);
}

TEST_F(FreeHeader, another_tree_stays_the_last_one_read) {
  CIM* root = parseXML("<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\"><MESSAGE ID=\"1\"/></CIM>");
  ASSERT_NE(root, nullptr);
  Free_Header(make_root());
  EXPECT_EQ(returnAddress, root);
  Free_CIM(root);
}

}  // namespace
}  // namespace operations_test
