// The outcomes of operations through the C++ header, against an object manager that plays a script.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "cim_client.hpp"
#include "operations/object_manager.h"

namespace {

using namespace cim_client;  // NOLINT(google-build-using-namespace): as programs do
using operations_test::http_answer;
using operations_test::http_refusal;
using operations_test::method_answer;
using operations_test::operation_answer;
using support::ScriptedServer;

const char* const names_of_two_fans =
    "<IRETURNVALUE>\n"
    "<INSTANCENAME CLASSNAME=\"CIM_Fan\"><KEYBINDING NAME=\"DeviceID\">"
    "<KEYVALUE VALUETYPE=\"string\">fan1</KEYVALUE></KEYBINDING></INSTANCENAME>\n"
    "<INSTANCENAME CLASSNAME=\"CIM_Fan\"><KEYBINDING NAME=\"DeviceID\">"
    "<KEYVALUE VALUETYPE=\"string\">fan2</KEYVALUE></KEYBINDING></INSTANCENAME>\n"
    "</IRETURNVALUE>\n";

std::string answer(const std::string& operation, const std::string& content) {
  return http_answer(operation_answer(operation, content));
}

std::string error_answer(const std::string& operation) {
  return answer(operation, "<ERROR CODE=\"6\" DESCRIPTION=\"No such instance\"/>\n");
}

// An object manager that gives every request the same answer, and a client of it.
template <class Kind = Client>
struct Scene {
  explicit Scene(const std::string& http)
      : server(support::answer(http)),
        client(server.host(), server.port(), "root/cimv2", "user", "secret") {}
  ScriptedServer server;
  Kind client;
};

Owner<InstanceName> fan() {
  Owner<KeyBinding> keys;
  EXPECT_TRUE(add_key(keys, "DeviceID", "fan1"));
  return make_instance_name("CIM_Fan", std::move(keys));
}

Owner<NamedInstance> changed_fan() {
  Owner<Property> properties;
  EXPECT_TRUE(add_property(properties, "Speed", std::uint64_t{1}));
  return make_named_instance(fan(), make_instance("CIM_Fan", std::move(properties)));
}

TEST(Results, with_values_are_ranges_over_them) {
  const Scene<> scene(answer("EnumerateInstanceNames", names_of_two_fans));
  const Result<InstanceName> fans = scene.client.enumerate_instance_names("CIM_Fan");
  EXPECT_EQ(fans.outcome(), Outcome::Values);
  EXPECT_TRUE(fans);
  EXPECT_EQ(fans.error(), nullptr);
  std::vector<std::string> ids;
  for (const InstanceName& name : fans)
    ids.push_back(get<std::string>(name, "DeviceID").value_or("?"));
  EXPECT_EQ(ids, (std::vector<std::string>{"fan1", "fan2"}));
}

TEST(Results, can_be_kept_as_owners) {
  const Scene<> scene(answer("EnumerateInstanceNames", names_of_two_fans));
  const Owner<InstanceName> fans = scene.client.enumerate_instance_names("CIM_Fan").values();
  EXPECT_EQ(nodes(fans.get()).size(), 2U);
}

TEST(Results, of_one_record_lead_to_it) {
  const Scene<> scene(
      answer("GetInstance",
             "<IRETURNVALUE>\n<INSTANCE CLASSNAME=\"CIM_Fan\"><PROPERTY NAME=\"Speed\" "
             "TYPE=\"uint64\"><VALUE>2000</VALUE></PROPERTY></INSTANCE>\n</IRETURNVALUE>\n"));
  const Owner<InstanceName> name = fan();
  const Result<Instance> result = scene.client.get_instance(*name);
  ASSERT_TRUE(result);
  EXPECT_EQ(get<std::uint64_t>(*result, "Speed"), std::uint64_t{2000});
  EXPECT_EQ(class_of(*result), "CIM_Fan");
}

TEST(Results, that_are_empty_are_nothing) {
  const Scene<> scene(answer("EnumerateInstanceNames", "<IRETURNVALUE/>\n"));
  const Result<InstanceName> fans = scene.client.enumerate_instance_names("CIM_Fan");
  EXPECT_EQ(fans.outcome(), Outcome::Nothing);
  EXPECT_FALSE(fans);
  EXPECT_EQ(fans.begin(), fans.end());
}

TEST(Results, that_did_not_come_are_nothing) {
  const Client client("127.0.0.1", support::unused_port(), "root/cimv2", "user", "secret");
  EXPECT_EQ(client.enumerate_instances("CIM_Fan").outcome(), Outcome::Nothing);
}

TEST(Results, with_an_error_of_the_object_manager_have_failed) {
  const Scene<> scene(error_answer("EnumerateInstances"));
  const Result<NamedInstance> fans = scene.client.enumerate_instances("CIM_Fan");
  EXPECT_EQ(fans.outcome(), Outcome::Failed);
  EXPECT_EQ(status(fans.error()), Status::NotFound);
  EXPECT_EQ(description(fans.error()), "No such instance");
}

TEST(Results, of_a_refused_user_are_unauthorised) {
  const Scene<> scene(http_refusal());
  const Result<Class> fan_class = scene.client.get_class("CIM_Fan");
  EXPECT_EQ(fan_class.outcome(), Outcome::Unauthorised);
  EXPECT_EQ(status(fan_class.error()), Status::Unauthorised);
  EXPECT_EQ(description(fan_class.error()), "Unauthorized User");
}

TEST(Errors, have_a_number_when_they_have_one) {
  EXPECT_EQ(status(nullptr), Status::None);
  char code[] = "x6";
  const Error unreadable{nullptr, code, nullptr};
  EXPECT_EQ(static_cast<int>(status(&unreadable)), -1);
  EXPECT_EQ(description(&unreadable), "");
}

TEST(Names, keep_the_list_behind_them_also_when_no_answer_comes) {
  const Client client("127.0.0.1", support::unused_port(), "root/cimv2", "user", "secret");
  Owner<InstanceName> names = fan();
  append(names, fan());
  InstanceName* const second = names->next;
  EXPECT_FALSE(client.get_instance(*names));
  EXPECT_EQ(names->next, second);
}

TEST(Names, are_sent_without_the_list_behind_them) {
  Scene<> scene(answer("DeleteInstance", ""));
  Owner<InstanceName> names = fan();
  append(names, fan());
  EXPECT_TRUE(scene.client.delete_instance(*names));
  const std::string sent = scene.server.received().at(0);
  EXPECT_NE(sent.find("fan1"), std::string::npos);
  EXPECT_EQ(sent.find("fan1"), sent.rfind("fan1"));
}

TEST(Changes, without_an_error_are_done) {
  const Scene<> scene(answer("ModifyInstance", ""));
  const Owner<NamedInstance> fan = changed_fan();
  const Change change = scene.client.modify_instance(*fan);
  EXPECT_TRUE(change);
  EXPECT_EQ(change.outcome(), Outcome::Nothing);
}

TEST(Changes, that_nobody_answered_look_done) {
  const Client client("127.0.0.1", support::unused_port(), "root/cimv2", "user", "secret");
  const Owner<NamedInstance> fan = changed_fan();
  EXPECT_TRUE(client.modify_instance(*fan));
}

TEST(Changes, with_an_error_have_failed) {
  const Scene<> scene(error_answer("ModifyInstance"));
  const Owner<NamedInstance> fan = changed_fan();
  const Change change = scene.client.modify_instance(*fan);
  EXPECT_FALSE(change);
  EXPECT_EQ(change.outcome(), Outcome::Failed);
  EXPECT_EQ(status(change.error()), Status::NotFound);
}

TEST(Changes, of_a_refused_user_are_unauthorised) {
  const Scene<> scene(http_refusal());
  const Owner<InstanceName> name = fan();
  const Change change = scene.client.delete_instance(*name);
  EXPECT_FALSE(change);
  EXPECT_EQ(change.outcome(), Outcome::Unauthorised);
}

TEST(Methods, give_their_return_value_and_parameters) {
  Scene<> scene(http_answer(method_answer(
      "RequestStateChange",
      "<RETURNVALUE PARAMTYPE=\"uint32\"><VALUE>4096</VALUE></RETURNVALUE>\n"
      "<PARAMVALUE NAME=\"Percent\" PARAMTYPE=\"uint16\"><VALUE>50</VALUE></PARAMVALUE>\n")));
  Owner<ParamValue> inputs;
  ASSERT_TRUE(add_parameter(inputs, "RequestedState", std::uint16_t{2}));
  const Owner<InstanceName> name = fan();
  const MethodResult result = scene.client.invoke(*name, "RequestStateChange", inputs.get());
  EXPECT_EQ(result.outcome(), Outcome::Values);
  EXPECT_EQ(result.return_value(), 4096);
  EXPECT_EQ(get<int>(result, "Percent"), 50);
  EXPECT_NE(scene.server.received().at(0).find("RequestedState"), std::string::npos);
}

TEST(Methods, that_fail_have_an_error) {
  const Scene<> scene(
      http_answer(method_answer("Reset", "<ERROR CODE=\"17\" DESCRIPTION=\"No such method\"/>\n")));
  const Owner<InstanceName> name = fan();
  const MethodResult result = scene.client.invoke(*name, "Reset");
  EXPECT_EQ(result.outcome(), Outcome::Failed);
  EXPECT_EQ(status(result.error()), Status::MethodNotFound);
}

TEST(Methods, that_nobody_answered_or_whose_user_was_refused_give_nothing) {
  const Owner<InstanceName> name = fan();
  const Client alone("127.0.0.1", support::unused_port(), "root/cimv2", "user", "secret");
  EXPECT_EQ(alone.invoke(*name, "Reset").outcome(), Outcome::Nothing);
  const Scene<> scene(http_refusal());
  EXPECT_EQ(scene.client.invoke(*name, "Reset").outcome(), Outcome::Nothing);
}

TEST(Associations, send_the_object_and_its_restrictions) {
  Scene<> scene(answer("AssociatorNames", "<IRETURNVALUE/>\n"));
  AssociationOptions options;
  options.association_class = "CIM_SystemDevice";
  options.result_class = "CIM_ComputerSystem";
  options.role = "PartComponent";
  const Owner<InstanceName> name = fan();
  EXPECT_EQ(scene.client.associator_names(*name, options).outcome(), Outcome::Nothing);
  const std::string sent = scene.server.received().at(0);
  for (const char* part : {"fan1", "CIM_SystemDevice", "CIM_ComputerSystem", "PartComponent"})
    EXPECT_NE(sent.find(part), std::string::npos) << part;
  EXPECT_EQ(sent.find("ResultRole"), std::string::npos);
}

TEST(Clients, without_a_handle_give_nothing) {
  const Client client{Handle()};
  const Owner<InstanceName> name = fan();
  EXPECT_EQ(client.get_class("CIM_Fan").outcome(), Outcome::Nothing);
  EXPECT_FALSE(client.delete_instance(*name));
  EXPECT_EQ(client.invoke(*name, "Reset").outcome(), Outcome::Nothing);
}

TEST(SharedClients, let_threads_run_operations_at_the_same_time) {
  const Scene<SharedClient> scene(answer("EnumerateInstanceNames", names_of_two_fans));
  std::atomic<int> complete{0};
  std::vector<std::thread> threads;
  threads.reserve(8);
  for (int i = 0; i < 8; ++i)
    threads.emplace_back([&] {
      for (int round = 0; round < 10; ++round) {
        const Result<InstanceName> fans = scene.client.enumerate_instance_names("CIM_Fan");
        if (nodes(fans.values().get()).size() == 2) ++complete;
      }
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(complete, 80);
}

TEST(SharedClients, wait_for_whoever_holds_the_lock) {
  const SharedClient client("127.0.0.1", support::unused_port(), "root/cimv2", "user", "secret");
  std::atomic<bool> is_over{false};
  std::thread thread;
  {
    const ReaderLock lock;
    thread = std::thread([&] {
      const Result<Class> result = client.get_class("CIM_Fan");
      is_over = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(is_over);
  }
  thread.join();
  EXPECT_TRUE(is_over);
}

}  // namespace
