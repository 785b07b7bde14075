// What the operations hand to the local broker, whose functions this program stands in for.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "cim_client.h"

namespace {

// One call of a local operation: its arguments but for the place of the result, in order.
struct Call {
  std::string name;
  std::vector<std::uintptr_t> arguments;

  bool operator==(const Call&) const = default;
};

std::uintptr_t word(std::uint32_t number) { return number; }
std::uintptr_t word(std::nullptr_t) { return 0; }
std::uintptr_t word(const void* pointer) { return reinterpret_cast<std::uintptr_t>(pointer); }

template <class... Arguments>
Call call(const char* name, Arguments... arguments) {
  return {name, {word(arguments)...}};
}

std::vector<Call> calls;

// What the stand-ins give back.
template <class R>
R result_record{};

// Records a call and gives the result, which must not be there yet.
template <class R>
int give(R** result_out, Call made) {
  calls.push_back(std::move(made));
  EXPECT_EQ(*result_out, nullptr);
  *result_out = &result_record<R>;
  return -1;  // nobody asks
}

int give(Call made, int result) {
  calls.push_back(std::move(made));
  return result;
}

}  // namespace

// ---- Stand-ins ----

int CIMC_EnumInstances(NamedInstance** out, const char* name, const char* host, const char* user,
                       const char* password, uint32_t deep, Error** error, const char* space) {
  return give(out, call("EnumInstances", name, host, user, password, deep, error, space));
}

int CIMC_EnumInstanceNames(InstanceName** out, const char* name, const char* host, const char* user,
                           const char* password, Error** error, const char* space) {
  return give(out, call("EnumInstanceNames", name, host, user, password, error, space));
}

int CIMC_GetInstance(Instance** out, const InstanceName* name, const char* host, const char* user,
                     const char* password, Error** error, const char* space) {
  return give(out, call("GetInstance", name, host, user, password, error, space));
}

int CIMC_Associators(ObjectWithPath** out, const InstanceName* name, const char* association,
                     const char* result_class, const char* role, const char* result_role,
                     const char* host, const char* user, const char* password, Error** error,
                     const char* space) {
  return give(out, call("Associators", name, association, result_class, role, result_role, host,
                        user, password, error, space));
}

int CIMC_AssociatorNames(ObjectPath** out, const InstanceName* name, const char* class_name,
                         const char* association, const char* result_class, const char* role,
                         const char* result_role, const char* host, const char* user,
                         const char* password, Error** error, const char* space) {
  return give(out, call("AssociatorNames", name, class_name, association, result_class, role,
                        result_role, host, user, password, error, space));
}

int CIMC_References(ObjectWithPath** out, const ObjectName* object, const ClassName* result_class,
                    const char* role, uint32_t qualifiers, uint32_t origin, char** properties,
                    const char* space, const char* user, const char* password, Error** error) {
  return give(out, call("References", object, result_class, role, qualifiers, origin, properties,
                        space, user, password, error));
}

int CIMC_ReferenceNames(ObjectPath** out, const ObjectName* object, const ClassName* result_class,
                        const char* role, const char* space, const char* user, const char* password,
                        Error** error) {
  return give(out,
              call("ReferenceNames", object, result_class, role, space, user, password, error));
}

int CIMC_CreateInstance(InstanceName** out, const Instance* instance, const char* space,
                        const char* user, const char* password, Error** error) {
  return give(out, call("CreateInstance", instance, space, user, password, error));
}

int CIMC_ModifyInstance(const NamedInstance* modified, const void* ignored, const char* space,
                        const char* user, const char* password, Error** error) {
  return give(call("ModifyInstance", modified, ignored, space, user, password, error), -17);
}

int CIMC_DeleteInstance(const InstanceName* name, const char* space, const char* user,
                        const char* password, Error** error) {
  return give(call("DeleteInstance", name, space, user, password, error), -18);
}

int CIMC_InvokeMethod(const InstanceName* name, const char* method, const char* space,
                      const ParamValue* in, ParamValue** out, const char* user,
                      const char* password, Error** error) {
  return give(call("InvokeMethod", name, method, space, in, out, user, password, error), 19);
}

int CIMC_ExecQuery(ObjectWithPath** out, const char* space, const char* query, const char* language,
                   Error** error) {
  return give(out, call("ExecQuery", space, query, language, error));
}

// ---- Tests ----

namespace {

class LocalRoute : public testing::Test {
 protected:
  LocalRoute() { calls.clear(); }

  using Calls = std::vector<Call>;

  char host_[8] = "host";
  char space_[8] = "root";
  char user_[8] = "user";
  char password_[8] = "secret";
  struct client_Configuration handle_ {
    .host = host_, .port = 5988, .namespace_ = space_, .timeout = 0, .user = user_,
    .password = password_, .interface = 1
  };

  char class_text_[8] = "CIM_Fan";
  char association_text_[12] = "CIM_Cooling";
  ClassName class_{.name = class_text_};
  ClassName association_{.name = association_text_};
  ClassName nameless_{};
  InstanceName instance_name_{.className = &class_};
  ObjectName object_{.className = &association_, .instanceName = &instance_name_};
  ObjectName class_object_{.className = &class_};
  char* property_list_[1] = {nullptr};
  Error* error_ = nullptr;
};

TEST_F(LocalRoute, of_enumerate_instances) {
  EXPECT_EQ(EnumerateInstances(&handle_, &class_, 0, 1, 0, 0, property_list_, &error_),
            &result_record<NamedInstance>);
  EXPECT_EQ(calls, Calls{call("EnumInstances", class_text_, host_, user_, password_, 1u, &error_,
                              space_)});
}

TEST_F(LocalRoute, of_enumerate_instances_needs_a_class_name) {
  EXPECT_EQ(EnumerateInstances(&handle_, nullptr, 0, 1, 0, 0, nullptr, &error_), nullptr);
  EXPECT_EQ(EnumerateInstances(&handle_, &nameless_, 0, 1, 0, 0, nullptr, &error_), nullptr);
  EXPECT_EQ(calls, Calls{});
}

TEST_F(LocalRoute, of_enumerate_instance_names) {
  EXPECT_EQ(EnumerateInstanceNames(&handle_, &class_, &error_), &result_record<InstanceName>);
  EXPECT_EQ(calls, Calls{call("EnumInstanceNames", class_text_, host_, user_, password_, &error_,
                              space_)});
}

TEST_F(LocalRoute, of_enumerate_instance_names_needs_a_class_name) {
  EXPECT_EQ(EnumerateInstanceNames(&handle_, nullptr, &error_), nullptr);
  EXPECT_EQ(EnumerateInstanceNames(&handle_, &nameless_, &error_), nullptr);
  EXPECT_EQ(calls, Calls{});
}

TEST_F(LocalRoute, of_get_instance) {
  EXPECT_EQ(GetInstance(&handle_, &instance_name_, 0, 1, 0, property_list_, &error_),
            &result_record<Instance>);
  EXPECT_EQ(calls,
            Calls{call("GetInstance", &instance_name_, host_, user_, password_, &error_, space_)});
}

TEST_F(LocalRoute, of_associators) {
  char role[] = "a";
  char result_role[] = "b";
  EXPECT_EQ(Associators(&handle_, &object_, &association_, &class_, role, result_role, 0, 1,
                        property_list_, &error_),
            &result_record<ObjectWithPath>);
  EXPECT_EQ(calls, Calls{call("Associators", &instance_name_, association_text_, class_text_, role,
                              result_role, host_, user_, password_, &error_, space_)});
}

TEST_F(LocalRoute, of_associators_passes_null_classes_as_null) {
  Associators(&handle_, &object_, nullptr, &nameless_, nullptr, nullptr, 0, 1, nullptr, &error_);
  EXPECT_EQ(calls, Calls{call("Associators", &instance_name_, nullptr, nullptr, nullptr, nullptr,
                              host_, user_, password_, &error_, space_)});
}

TEST_F(LocalRoute, of_associators_needs_an_instance_name) {
  EXPECT_EQ(
      Associators(&handle_, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 1, nullptr, &error_),
      nullptr);
  EXPECT_EQ(Associators(&handle_, &class_object_, nullptr, nullptr, nullptr, nullptr, 0, 1, nullptr,
                        &error_),
            nullptr);
  EXPECT_EQ(calls, Calls{});
}

TEST_F(LocalRoute, of_associator_names_passes_the_class_of_the_instance_name) {
  char role[] = "a";
  char result_role[] = "b";
  EXPECT_EQ(AssociatorNames(&handle_, &object_, &association_, &class_, role, result_role, &error_),
            &result_record<ObjectPath>);
  EXPECT_EQ(calls,
            Calls{call("AssociatorNames", &instance_name_, class_text_, association_text_,
                       class_text_, role, result_role, host_, user_, password_, &error_, space_)});
}

TEST_F(LocalRoute, of_associator_names_without_an_instance_name_goes_nowhere) {
  EXPECT_EQ(AssociatorNames(&handle_, nullptr, nullptr, nullptr, nullptr, nullptr, &error_),
            nullptr);
  EXPECT_EQ(AssociatorNames(&handle_, &class_object_, nullptr, nullptr, nullptr, nullptr, &error_),
            nullptr);
  EXPECT_EQ(calls, Calls{});
}

TEST_F(LocalRoute, of_references) {
  char role[] = "a";
  EXPECT_EQ(References(&handle_, &object_, &association_, role, 0, 1, property_list_, &error_),
            &result_record<ObjectWithPath>);
  EXPECT_EQ(calls, Calls{call("References", &object_, &association_, role, 0u, 1u, property_list_,
                              space_, user_, password_, &error_)});
}

TEST_F(LocalRoute, of_references_needs_an_instance_name) {
  EXPECT_EQ(References(&handle_, nullptr, nullptr, nullptr, 0, 1, nullptr, &error_), nullptr);
  EXPECT_EQ(References(&handle_, &class_object_, nullptr, nullptr, 0, 1, nullptr, &error_),
            nullptr);
  EXPECT_EQ(calls, Calls{});
}

TEST_F(LocalRoute, of_reference_names) {
  char role[] = "a";
  EXPECT_EQ(ReferenceNames(&handle_, &object_, &association_, role, &error_),
            &result_record<ObjectPath>);
  EXPECT_EQ(calls, Calls{call("ReferenceNames", &object_, &association_, role, space_, user_,
                              password_, &error_)});
}

TEST_F(LocalRoute, of_create_instance) {
  Instance instance{};
  EXPECT_EQ(CIM_CreateInstance(&handle_, &instance, &error_), &result_record<InstanceName>);
  EXPECT_EQ(calls, Calls{call("CreateInstance", &instance, space_, user_, password_, &error_)});
}

TEST_F(LocalRoute, of_modify_instance) {
  NamedInstance modified{};
  EXPECT_EQ(ModifyInstance(&handle_, &modified, 1, property_list_, &error_), -17);
  EXPECT_EQ(calls,
            Calls{call("ModifyInstance", &modified, nullptr, space_, user_, password_, &error_)});
}

TEST_F(LocalRoute, of_delete_instance) {
  EXPECT_EQ(DeleteInstance(&handle_, &instance_name_, &error_), -18);
  EXPECT_EQ(calls,
            Calls{call("DeleteInstance", &instance_name_, space_, user_, password_, &error_)});
}

TEST_F(LocalRoute, of_invoke_method) {
  char method[] = "SetSpeed";
  ParamValue in{};
  ParamValue* out = nullptr;
  EXPECT_EQ(invokeMethod(&handle_, &instance_name_, method, &in, &out, &error_), 19);
  EXPECT_EQ(calls, Calls{call("InvokeMethod", &instance_name_, method, space_, &in, &out, user_,
                              password_, &error_)});
}

TEST_F(LocalRoute, of_exec_query_changes_the_places_of_its_strings) {
  char language[] = "WQL";
  char query[] = "SELECT";
  EXPECT_EQ(ExecQuery(&handle_, language, query, &error_), &result_record<ObjectWithPath>);
  EXPECT_EQ(calls, Calls{call("ExecQuery", space_, query, language, &error_)});
}

// Neither on a null handle nor on one of another back end.
TEST_F(LocalRoute, is_taken_on_a_handle_of_the_local_broker_only) {
  handle_.interface = 2;
  for (auto* handle : {static_cast<struct client_Configuration*>(nullptr), &handle_}) {
    EXPECT_EQ(EnumerateInstances(handle, &class_, 0, 1, 0, 0, nullptr, &error_), nullptr);
    EXPECT_EQ(EnumerateInstanceNames(handle, &class_, &error_), nullptr);
    EXPECT_EQ(GetInstance(handle, &instance_name_, 0, 1, 0, nullptr, &error_), nullptr);
    EXPECT_EQ(
        Associators(handle, &object_, nullptr, nullptr, nullptr, nullptr, 0, 1, nullptr, &error_),
        nullptr);
    EXPECT_EQ(AssociatorNames(handle, &object_, nullptr, nullptr, nullptr, nullptr, &error_),
              nullptr);
    EXPECT_EQ(References(handle, &object_, nullptr, nullptr, 0, 1, nullptr, &error_), nullptr);
    EXPECT_EQ(ReferenceNames(handle, &object_, nullptr, nullptr, &error_), nullptr);
    EXPECT_EQ(CIM_CreateInstance(handle, nullptr, &error_), nullptr);
    EXPECT_EQ(ModifyInstance(handle, nullptr, 1, nullptr, &error_), 0);
    EXPECT_EQ(DeleteInstance(handle, nullptr, &error_), 0);
    EXPECT_EQ(invokeMethod(handle, nullptr, "SetSpeed", nullptr, nullptr, &error_), -1);
    EXPECT_EQ(ExecQuery(handle, "WQL", "SELECT", &error_), nullptr);
  }
  EXPECT_EQ(calls, Calls{});
}

TEST_F(LocalRoute, is_not_there_for_enumerations_of_classes) {
  EXPECT_EQ(CIM_EnumerateClasses(&handle_, &class_, 1, 1, 1, 1, &error_), nullptr);
  EXPECT_EQ(EnumerateClassNames(&handle_, &class_, 1, &error_), nullptr);
  EXPECT_EQ(calls, Calls{});
}

}  // namespace
