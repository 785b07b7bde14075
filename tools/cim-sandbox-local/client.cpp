// The environment and client tables, and the factory by which a client library finds them.
#include <cstdlib>
#include <optional>
#include <utility>

#include "broker.h"
#include "handed_out.h"
#include "ledger.h"
#include "tables.h"

namespace sandbox_local {
namespace {

constexpr CIMCFlags deep_inheritance = 2;
constexpr int failed = 1;  // CIM status codes
constexpr int not_supported = 7;

extern CIMCEnvFT environment_table;
extern CIMCClientFT client_table;

struct EnvironmentObject final : Object, CIMCEnv {
  EnvironmentObject() {
    hdl = nullptr;  // for the loader
    ft = &environment_table;
    options = 0;
  }
};

struct ClientObject final : Object, CIMCClient {
  ClientObject() {
    hdl = this;
    ft = &client_table;
  }
};

template <class Describe>
void note(Describe describe_call) {
  Ledger::of_process().note(describe_call);
}

std::string quoted(const char* text) {
  return text ? std::string("\"") + text + "\"" : std::string("null");
}

// ---- Environment ----

void* release_environment(CIMCEnv* env) {
  Ledger& ledger = Ledger::of_process();
  if (!ledger.is_live(env, "release (environment)")) return nullptr;
  note([&] { return std::string("release environment"); });
  void* library = env->hdl;
  ledger.died(env);
  delete static_cast<EnvironmentObject*>(env);
  return library;
}

CIMCClient* connect(CIMCEnv*, const char* host, const char* scheme, const char* port,
                    const char* user, const char* password, CIMCStatus* status) {
  note([&] {
    return std::string("connect " + quoted(host) + " " + quoted(scheme) + " " + quoted(port) + " " +
                       quoted(user) + " " + quoted(password));
  });
  if (!broker_of_process().connect(user, password)) {
    set_status(status, failed);
    return nullptr;
  }
  set_status(status, 0);
  auto client = std::make_unique<ClientObject>();
  Ledger::of_process().born(static_cast<CIMCClient*>(client.get()), "client");
  return client.release();
}

CIMCClient* connect2(CIMCEnv* env, const char* host, const char* scheme, const char* port,
                     const char* user, const char* password, int, const char*, const char*,
                     const char*, CIMCStatus* status) {
  return connect(env, host, scheme, port, user, password, status);
}

// A new object of the environment; null when the broker refuses.
template <class Handle, class Made>
Handle* make(std::unique_ptr<Made> object, CIMCStatus* status) {
  const bool refused = broker_of_process().refuses(Behind<Handle>::kind);
  set_status(status, refused ? failed : 0);
  return refused ? nullptr : give<Handle>(std::move(object));
}

CIMCInstance* new_instance(CIMCEnv*, const CIMCObjectPath* path, CIMCStatus* status) {
  note([&] { return std::string("newInstance " + describe(self(path))); });
  return make<CIMCInstance>(std::make_unique<InstanceObject>(self(path)), status);
}

CIMCObjectPath* new_object_path(CIMCEnv*, const char* name_space, const char* class_name,
                                CIMCStatus* status) {
  note([&] {
    return std::string("newObjectPath " + quoted(name_space) + " " + quoted(class_name));
  });
  return make<CIMCObjectPath>(
      std::make_unique<Path>(name_space ? name_space : "", class_name ? class_name : ""), status);
}

CIMCArgs* new_args(CIMCEnv*, CIMCStatus* status) {
  return make<CIMCArgs>(std::make_unique<Arguments>(), status);
}

CIMCString* new_string(CIMCEnv*, const char* text, CIMCStatus* status) {
  return make<CIMCString>(std::make_unique<Text>(text ? text : ""), status);
}

CIMCArray* new_array(CIMCEnv*, CIMCCount size, CIMCType element, CIMCStatus* status) {
  note([&] {
    return std::string("newArray " + std::to_string(size) + " " + std::to_string(element));
  });
  return make<CIMCArray>(std::make_unique<ArrayObject>(size, element), status);
}

CIMCDateTime* new_time(std::string text, CIMCStatus* status) {
  return make<CIMCDateTime>(std::make_unique<Time>(std::move(text)), status);
}
CIMCDateTime* new_date_time(CIMCEnv*, CIMCStatus* status) {
  return new_time("19700101000000.000000+000", status);
}
CIMCDateTime* new_date_time_from_binary(CIMCEnv*, std::uint64_t, CIMCBoolean interval,
                                        CIMCStatus* status) {
  return new_time(interval ? "00000000000000.000000:000" : "19700101000000.000000+000", status);
}
CIMCDateTime* new_date_time_from_chars(CIMCEnv*, const char* text, CIMCStatus* status) {
  return new_time(text ? text : "", status);
}

// ---- Operations ----

void report(const Answer& answer, CIMCStatus* status) {
  if (answer.message) {
    set_status(status, answer.code, *answer.message);
  } else {
    set_status(status, answer.code);
  }
}

CIMCStatus status_of(const Answer& answer) {
  CIMCStatus status;
  report(answer, &status);
  return status;
}

// Makes what an answer holds the client's; null for nothing.
template <class Handle, class Made>
Handle* give_answer(const Answer& answer, std::unique_ptr<Made> object, CIMCStatus* status) {
  report(answer, status);
  return object ? give<Handle>(std::move(object)) : nullptr;
}

CIMCEnumeration* enumeration(ElementsAnswer answer, CIMCStatus* status) {
  std::unique_ptr<Enumeration> elements;
  if (answer.elements) elements = std::make_unique<Enumeration>(std::move(*answer.elements));
  return give_answer<CIMCEnumeration>(answer, std::move(elements), status);
}

CIMCStatus release_client(CIMCClient* client) {
  Ledger& ledger = Ledger::of_process();
  if (!ledger.is_live(client, "release (client)")) return {failed, nullptr};
  note([&] { return std::string("release client"); });
  ledger.died(client);
  delete static_cast<ClientObject*>(client);
  return {0, nullptr};
}

CIMCClient* clone_client(CIMCClient*, CIMCStatus* status) {
  set_status(status, not_supported);
  return nullptr;
}

std::string call_of(const char* name, CIMCObjectPath* path) {
  return std::string(name) + " " + describe(self(path));
}

CIMCClass* get_class(CIMCClient*, CIMCObjectPath* path, CIMCFlags flags, char**,
                     CIMCStatus* status) {
  note([&] { return std::string(call_of("getClass", path) + " flags " + std::to_string(flags)); });
  ClassAnswer answer = broker_of_process().get_class(self(path));
  return give_answer<CIMCClass>(answer, std::move(answer.found), status);
}

CIMCEnumeration* enum_class_names(CIMCClient*, CIMCObjectPath* path, CIMCFlags flags,
                                  CIMCStatus* status) {
  note([&] { return std::string(call_of("enumClassNames", path)); });
  return enumeration(broker_of_process().class_names(self(path), flags & deep_inheritance), status);
}

CIMCEnumeration* enum_classes(CIMCClient*, CIMCObjectPath*, CIMCFlags, CIMCStatus* status) {
  set_status(status, not_supported);
  return nullptr;
}

CIMCInstance* get_instance(CIMCClient*, CIMCObjectPath* path, CIMCFlags flags, char**,
                           CIMCStatus* status) {
  note([&] {
    return std::string(call_of("getInstance", path) + " flags " + std::to_string(flags));
  });
  InstanceAnswer answer = broker_of_process().get_instance(self(path));
  return give_answer<CIMCInstance>(answer, std::move(answer.instance), status);
}

CIMCObjectPath* create_instance(CIMCClient*, CIMCObjectPath* path, CIMCInstance* instance,
                                CIMCStatus* status) {
  note([&] { return std::string(call_of("createInstance", path)); });
  PathAnswer answer = broker_of_process().create_instance(self(path), self(instance));
  return give_answer<CIMCObjectPath>(answer, std::move(answer.path), status);
}

CIMCStatus set_instance(CIMCClient*, CIMCObjectPath* path, CIMCInstance* instance, CIMCFlags flags,
                        char**) {
  note([&] {
    return std::string(call_of("setInstance", path) + " flags " + std::to_string(flags));
  });
  return status_of(broker_of_process().set_instance(self(path), self(instance)));
}

CIMCStatus delete_instance(CIMCClient*, CIMCObjectPath* path) {
  note([&] { return std::string(call_of("deleteInstance", path)); });
  return status_of(broker_of_process().delete_instance(self(path)));
}

CIMCEnumeration* exec_query(CIMCClient*, CIMCObjectPath* path, const char* query,
                            const char* language, CIMCStatus* status) {
  note([&] {
    return std::string(call_of("execQuery", path) + " " + quoted(query) + " " + quoted(language));
  });
  return enumeration(broker_of_process().exec_query(self(path), query, language), status);
}

CIMCEnumeration* enum_instance_names(CIMCClient*, CIMCObjectPath* path, CIMCStatus* status) {
  note([&] { return std::string(call_of("enumInstanceNames", path)); });
  return enumeration(broker_of_process().instance_names(self(path)), status);
}

CIMCEnumeration* enum_instances(CIMCClient*, CIMCObjectPath* path, CIMCFlags flags, char**,
                                CIMCStatus* status) {
  note([&] {
    return std::string(call_of("enumInstances", path) + " flags " + std::to_string(flags));
  });
  return enumeration(broker_of_process().instances(self(path), flags & deep_inheritance), status);
}

std::string filtered(const char* name, CIMCObjectPath* path, const Filter& filter) {
  return call_of(name, path) + " " + quoted(filter.association_class) + " " +
         quoted(filter.result_class) + " " + quoted(filter.role) + " " + quoted(filter.result_role);
}

CIMCEnumeration* associators(CIMCClient*, CIMCObjectPath* path, const char* association_class,
                             const char* result_class, const char* role, const char* result_role,
                             CIMCFlags, char**, CIMCStatus* status) {
  const Filter filter = {association_class, result_class, role, result_role};
  note([&] { return std::string(filtered("associators", path, filter)); });
  return enumeration(broker_of_process().associators(self(path), filter), status);
}

CIMCEnumeration* associator_names(CIMCClient*, CIMCObjectPath* path, const char* association_class,
                                  const char* result_class, const char* role,
                                  const char* result_role, CIMCStatus* status) {
  const Filter filter = {association_class, result_class, role, result_role};
  note([&] { return std::string(filtered("associatorNames", path, filter)); });
  return enumeration(broker_of_process().associator_names(self(path), filter), status);
}

CIMCEnumeration* references(CIMCClient*, CIMCObjectPath* path, const char* result_class,
                            const char* role, CIMCFlags, char**, CIMCStatus* status) {
  const Filter filter = {nullptr, result_class, role, nullptr};
  note([&] { return std::string(filtered("references", path, filter)); });
  return enumeration(broker_of_process().references(self(path), filter), status);
}

CIMCEnumeration* reference_names(CIMCClient*, CIMCObjectPath* path, const char* result_class,
                                 const char* role, CIMCStatus* status) {
  const Filter filter = {nullptr, result_class, role, nullptr};
  note([&] { return std::string(filtered("referenceNames", path, filter)); });
  return enumeration(broker_of_process().reference_names(self(path), filter), status);
}

CIMCData invoke_method(CIMCClient*, CIMCObjectPath* path, const char* method, CIMCArgs* in,
                       CIMCArgs* out, CIMCStatus* status) {
  note([&] { return std::string(call_of("invokeMethod", path) + " " + quoted(method)); });
  MethodAnswer answer = broker_of_process().invoke_method(self(path), method, self(in));
  self(out).members = std::move(answer.out);
  report(answer, status);
  return answer.returned;
}

CIMCStatus set_property(CIMCClient*, CIMCObjectPath*, const char*, CIMCValue*, CIMCType) {
  return {not_supported, nullptr};
}

CIMCData get_property(CIMCClient*, CIMCObjectPath*, const char*, CIMCStatus* status) {
  set_status(status, not_supported);
  return {code::null, state_not_found, {}};
}

// The last three slots are not there in the field.
CIMCEnvFT environment_table = {"SfcbLocal",
                               release_environment,
                               connect,
                               connect2,
                               new_instance,
                               new_object_path,
                               new_args,
                               new_string,
                               new_array,
                               new_date_time,
                               new_date_time_from_binary,
                               new_date_time_from_chars,
                               nullptr,
                               nullptr,
                               nullptr};

CIMCClientFT client_table = {1,
                             release_client,
                             clone_client,
                             get_class,
                             enum_class_names,
                             enum_classes,
                             get_instance,
                             create_instance,
                             set_instance,
                             delete_instance,
                             exec_query,
                             enum_instance_names,
                             enum_instances,
                             associators,
                             associator_names,
                             references,
                             reference_names,
                             invoke_method,
                             set_property,
                             get_property};

}  // namespace
}  // namespace sandbox_local

#define SANDBOX_LOCAL_API __attribute__((visibility("default")))

extern "C" {

// The words by which a client switches the broker's trace on.
SANDBOX_LOCAL_API int _sfcb_trace_mask = 0;
SANDBOX_LOCAL_API int _sfcb_debug = 0;

SANDBOX_LOCAL_API sandbox_local::CIMCEnv* _Create_SfcbLocal_Env(const char* id,
                                                                unsigned int options, int* rc,
                                                                char** msg);

// Leaves rc and msg alone, as the broker's own factory does.
sandbox_local::CIMCEnv* _Create_SfcbLocal_Env(const char* id, unsigned int options, int* /*rc*/,
                                              char** /*msg*/) {
  using namespace sandbox_local;
  note([&] { return std::string("environment " + quoted(id) + " " + std::to_string(options)); });
  auto environment = std::make_unique<EnvironmentObject>();
  Ledger::of_process().born(static_cast<CIMCEnv*>(environment.get()), "environment");
  return environment.release();
}

}  // extern "C"
