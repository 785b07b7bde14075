// The fifteen operations, which choose a back end.  Their local routes: local_routes_test.cpp.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "operations/every_operation.h"

namespace {

using operations_test::every_operation;
using operations_test::Handle;
using operations_test::http_answer;
using operations_test::http_refusal;
using operations_test::ObjectManager;
using operations_test::Operation;
using operations_test::OwnedError;
using operations_test::text_of;

// What one call came to: the request, the result, then the Error.
std::string sent_and_got(std::string (*call)(Handle*, Error**), const std::string& http) {
  ObjectManager object_manager(http);
  Error* error = nullptr;
  const std::string result = call(object_manager.handle(), &error);
  const OwnedError owned(error);
  return object_manager.message() + "\n" + result + "\n" + text_of(error);
}

// True when nothing arrives before a request of the test's own.
bool sends_nothing(std::string (*call)(Handle*, Error**), std::int32_t interface) {
  ObjectManager object_manager("HTTP/1.1 501 Not Implemented\r\n\r\n");
  object_manager.handle()->interface = interface;
  Error* error = nullptr;
  call(object_manager.handle(), &error);
  const OwnedError owned(error);
  const auto marker = operations_test::class_name("Marker");
  CIMC_XML_EnumerateInstanceNames(object_manager.handle(), marker.get(), nullptr);
  return object_manager.message().find("<CLASSNAME NAME=\"Marker\"/>") != std::string::npos;
}

class EntryPoint : public testing::TestWithParam<Operation> {};

TEST_P(EntryPoint, on_a_cim_xml_handle_passes_every_argument_and_result) {
  for (const std::string& http :
       {http_answer(GetParam().answer), http_answer(GetParam().error_answer), http_refusal(),
        std::string("HTTP/1.1 200 OK\r\n\r\n")})
    EXPECT_EQ(sent_and_got(GetParam().entry_point, http), sent_and_got(GetParam().call, http));
}

TEST_P(EntryPoint, on_a_null_handle_gives_nothing) {
  Error* error = nullptr;
  EXPECT_EQ(GetParam().entry_point(nullptr, &error), GetParam().nothing);
  EXPECT_EQ(error, nullptr);
}

std::string name_of(const testing::TestParamInfo<Operation>& operation) {
  return operation.param.name;
}

INSTANTIATE_TEST_SUITE_P(Every, EntryPoint, testing::ValuesIn(every_operation()), name_of);

// ---- Other back ends ----

// All but GetClass, which goes to CIM-XML in any case.
std::vector<Operation> routed_operations() {
  std::vector<Operation> operations = every_operation();
  std::erase_if(operations,
                [](const Operation& operation) { return operation.name == "GetClass"; });
  return operations;
}

class RoutedEntryPoint : public testing::TestWithParam<Operation> {};

TEST_P(RoutedEntryPoint, on_a_handle_of_an_unknown_back_end_sends_nothing) {
  for (const std::int32_t interface : {2, -1, 256, INT32_MAX, INT32_MIN})
    EXPECT_TRUE(sends_nothing(GetParam().entry_point, interface)) << interface;
}

INSTANTIATE_TEST_SUITE_P(EveryRouted, RoutedEntryPoint, testing::ValuesIn(routed_operations()),
                         name_of);

// A handle of no known back end.
Handle handle_of(std::int32_t interface) {
  static char host[] = "127.0.0.1";
  static char name_space[] = "root/cimv2";
  static char user[] = "user";
  static char password[] = "secret";
  return {.host = host,
          .port = support::unused_port(),
          .namespace_ = name_space,
          .timeout = 0,
          .user = user,
          .password = password,
          .interface = interface};
}

TEST(UnknownBackEnd, gives_null_from_operations_that_return_records) {
  Handle handle = handle_of(2);
  Error* error = nullptr;
  for (const Operation& operation : routed_operations()) {
    if (operation.nothing != "null") continue;
    EXPECT_EQ(operation.entry_point(&handle, &error), "null") << operation;
  }
  EXPECT_EQ(error, nullptr);
}

TEST(UnknownBackEnd, gives_minus_1_from_invoke_method) {
  Handle handle = handle_of(2);
  ParamValue* out = nullptr;
  Error* error = nullptr;
  EXPECT_EQ(invokeMethod(&handle, nullptr, "SetSpeed", nullptr, &out, &error), -1);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(error, nullptr);
}

TEST(UnknownBackEnd, gives_the_argument_of_modify_instance_back) {
  Handle handle = handle_of(2);
  NamedInstance modified{};
  Error* error = nullptr;
  EXPECT_EQ(ModifyInstance(&handle, &modified, 0, nullptr, &error),
            reinterpret_cast<std::intptr_t>(&modified));
  EXPECT_EQ(ModifyInstance(&handle, nullptr, 0, nullptr, &error), 0);
  EXPECT_EQ(error, nullptr);
}

TEST(UnknownBackEnd, gives_the_argument_of_delete_instance_back) {
  Handle handle = handle_of(-1);
  InstanceName name{};
  Error* error = nullptr;
  EXPECT_EQ(DeleteInstance(&handle, &name, &error), reinterpret_cast<std::intptr_t>(&name));
  EXPECT_EQ(DeleteInstance(&handle, nullptr, &error), 0);
  EXPECT_EQ(error, nullptr);
}

TEST(NullHandle, gives_0_from_modify_and_delete_instance_and_not_the_argument) {
  NamedInstance modified{};
  InstanceName name{};
  EXPECT_EQ(ModifyInstance(nullptr, &modified, 0, nullptr, nullptr), 0);
  EXPECT_EQ(DeleteInstance(nullptr, &name, nullptr), 0);
}

// ---- Operations on classes have no local route ----

TEST(LocalBroker, get_class_goes_to_cim_xml_whatever_the_back_end) {
  for (const std::int32_t interface : {1, 2, -1}) {
    ObjectManager object_manager(http_answer(every_operation().front().answer));
    object_manager.handle()->interface = interface;
    const operations_test::OwnedClass found(
        CIM_GetClass(object_manager.handle(), nullptr, 2, 2, 2, nullptr, nullptr));
    EXPECT_EQ(object_manager.request(),
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
              "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
              "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
              "<IMETHODCALL NAME=\"GetClass\">"
              "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root/cimv2\"/></LOCALNAMESPACEPATH>"
              "</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>");
    ASSERT_NE(found, nullptr);
    EXPECT_STREQ(found->name, "CIM_Fan");
  }
}

TEST(LocalBroker, enumerating_classes_and_their_names_gives_null) {
  Handle handle = handle_of(1);
  const auto name = operations_test::class_name("CIM_Fan");
  Error* error = nullptr;
  EXPECT_EQ(CIM_EnumerateClasses(&handle, name.get(), 1, 1, 1, 1, &error), nullptr);
  EXPECT_EQ(EnumerateClassNames(&handle, name.get(), 1, &error), nullptr);
  EXPECT_EQ(error, nullptr);
}

}  // namespace
