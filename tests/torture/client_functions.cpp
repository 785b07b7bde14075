// The functions of handles, of the exchange, and the small ones that hardly allocate.
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <memory>

#include "cim_client.h"
#include "operations/object_manager.h"
#include "support/allocations.h"
#include "torture/functions.h"

namespace torture {
namespace {

using operations_test::Handle;
using support::UncountedAllocations;

struct Releases {
  void operator()(Handle* handle) const { Free_client_Configuration(handle); }
};
using OwnedHandle = std::unique_ptr<Handle, Releases>;

Handle* new_handle() { return client_Configuration("127.0.0.1", 1, "root/cimv2", 0, "u", "p"); }

OwnedHandle made_handle() {
  const UncountedAllocations uncounted;
  return OwnedHandle(new_handle());
}

// A function that does not allocate.
Function plain(const char* name, std::function<Outcome()> call) {
  return {.name = name, .call = std::move(call), .may_fail_as = never_fails(), .allocates = false};
}

void add_handle_functions(std::vector<Function>& functions) {
  functions.push_back({.name = "client_Configuration",
                       .call = [] { return OwnedHandle(new_handle()) ? "a handle" : "null"; },
                       .may_fail_as = gives({"null"})});
  functions.push_back(plain("Free_client_Configuration", [] {
    return std::to_string(Free_client_Configuration(made_handle().release()));
  }));
  functions.push_back({.name = "CIMC_SetNamespace",
                       .call =
                           [] {
                             const OwnedHandle handle = made_handle();
                             const int result = CIMC_SetNamespace(handle.get(), "root");
                             return std::to_string(result) + handle->namespace_;
                           },
                       .may_fail_as = gives({"-1root/cimv2"})});
  functions.push_back(plain("CIMC_GetNamespace", [] {
    std::array<char, 20> text{};
    return std::to_string(CIMC_GetNamespace(made_handle().get(), text.data(), text.size())) +
           text.data();
  }));
  functions.push_back(plain("CIMC_GetUserNameFromHandle", [] {
    std::array<char, 20> text{};
    return std::to_string(
               CIMC_GetUserNameFromHandle(made_handle().get(), text.data(), text.size())) +
           text.data();
  }));
  functions.push_back(plain("CIMC_GetPassWordFromHandle", [] {
    std::array<char, 20> text{};
    return std::to_string(CIMC_GetPassWordFromHandle(made_handle().get(), text.data())) +
           text.data();
  }));
  // Opening the marker file takes memory; one that cannot be opened is none.
  functions.push_back({.name = "checkForBinary",
                       .call = [] { return std::to_string(checkForBinary()); },
                       .may_fail_as = gives({"-1"})});
  functions.push_back({.name = "get_cimc_interface",
                       .call = [] { return std::to_string(get_cimc_interface()); },
                       .may_fail_as = gives({"0"})});
}

void add_exchange_functions(std::vector<Function>& functions) {
  functions.push_back(plain("Encode64", [] {
    std::array<char, 20> text{};
    Encode64(text.data(), "abc", text.size());
    return Outcome(text.data());
  }));
  functions.push_back(plain("Decode64", [] {
    std::array<char, 20> text{};
    return std::to_string(Decode64(text.data(), "YWJj", text.size())) + text.data();
  }));
  functions.push_back(plain("CIMC_CreateStdHttpHeaders", [] {
    std::array<char, 512> text{};
    CIMC_CreateStdHttpHeaders("h", 1, text.data(), text.size(), "u", "p");
    return Outcome(text.data());
  }));
  const auto server = std::make_shared<support::ScriptedServer>(
      support::answer(operations_test::http_answer("<?xml version=\"1.0\"?><CIM/>")));
  functions.push_back(plain("CIMC_TcpConnect", [server] {
    const int descriptor = CIMC_TcpConnect("127.0.0.1", server->port());
    Outcome outcome = descriptor >= 0 ? "connected" : "failed";
    close(descriptor);
    return outcome;
  }));
  functions.push_back({.name = "CIMSendRequest",
                       .call =
                           [server] {
                             char* body = nullptr;
                             const int result = CIMSendRequest("<?xml?>", &body, "127.0.0.1",
                                                               server->port(), "u", "p", 0);
                             Outcome outcome =
                                 std::to_string(result) + " " + (body ? body : "null");
                             std::free(body);
                             return outcome;
                           },
                       .may_fail_as = gives({"-1 null"})});
}

void add_small_functions(std::vector<Function>& functions) {
  functions.push_back({.name = "CIMC_CreateClassName",
                       .call =
                           [] {
                             ClassName* name = CIMC_CreateClassName("CIM_Fan");
                             Outcome outcome = name ? name->name : "null";
                             Free_ClassName(name);
                             return outcome;
                           },
                       .may_fail_as = gives({"null"})});
  functions.push_back({.name = "CIMC_CreateObjectName",
                       .call =
                           [] {
                             ObjectName* name = CIMC_CreateObjectName("CIM_Fan", nullptr);
                             Outcome outcome = name ? name->className->name : "null";
                             Free_ObjectName(name);
                             return outcome;
                           },
                       .may_fail_as = gives({"null"})});
  functions.push_back(plain("CIMC_ConvertDateTimeToString", [] {
    std::array<char, 64> text{};
    const CIMDateTime time{.year = 2024, .month = 2, .day = 3};
    return std::to_string(CIMC_ConvertDateTimeToString(&time, text.data())) + text.data();
  }));
  functions.push_back(plain("CIMC_ConvertIntervalToString", [] {
    std::array<char, 64> text{};
    const CIMInterval time{.days = 3};
    return std::to_string(CIMC_ConvertIntervalToString(&time, text.data())) + text.data();
  }));
  functions.push_back(plain("EmptyPrintf", [] { return std::to_string(EmptyPrintf("x")); }));
}

}  // namespace

std::vector<Function> client_functions() {
  std::vector<Function> functions;
  add_handle_functions(functions);
  add_exchange_functions(functions);
  add_small_functions(functions);
  return functions;
}

}  // namespace torture
