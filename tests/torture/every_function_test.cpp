// Every exported function while memory runs out, at each of its allocations once.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "support/allocations.h"
#include "support/captured_output.h"
#include "torture/functions.h"

namespace torture {
namespace {

const std::vector<Function>& every_function() {
  static const std::vector<Function> all = [] {
    std::vector<Function> functions;
    for (auto part : {record_functions, reader_functions, client_functions, operation_functions})
      std::ranges::move(part(), std::back_inserter(functions));
    return functions;
  }();
  return all;
}

// The functions that the library exports, from the checked-in list of names.
std::multiset<std::string> exported_functions() {
  std::multiset<std::string> names;
  std::ifstream list(EXPORTED_NAMES);
  for (std::string name, kind; list >> name >> kind;)
    if (kind == "function") names.insert(name);
  return names;
}

// The back end of a local broker: clientapi_memory_test starves its operations, and what they
// consist of.
const std::multiset<std::string> of_the_local_broker = {
    "AddToAssociatorList",
    "AddToAssociatorNameList",
    "AddToEnumInstanceNameList",
    "CDATASectionHandler",
    "CIMC_AddKeyValues",
    "CIMC_AssociatorNames",
    "CIMC_Associators",
    "CIMC_CreateCDataArgument",
    "CIMC_CreateInstance",
    "CIMC_CreatePropertyArguments",
    "CIMC_CreatePropertyArrayArguments",
    "CIMC_CreateValueRefArguments",
    "CIMC_DeleteInstance",
    "CIMC_EnumInstanceNames",
    "CIMC_EnumInstances",
    "CIMC_ExecQuery",
    "CIMC_GetClass",
    "CIMC_GetInstance",
    "CIMC_Handle_Invoke_ReturnValues",
    "CIMC_InvokeMethod",
    "CIMC_ModifyInstance",
    "CIMC_ReferenceNames",
    "CIMC_References",
    "CIMC_getDataType",
    "GetInstanceProperties",
    "GetKeyBindingValues",
    "GetKeysFromObjectPath",
    "_add_property_array_to_req",
    "add_args_to_invoke_req",
    "add_args_to_invoke_response",
    "add_prop_array_to_create_inst_req",
    "add_prop_ref_to_create_inst_req",
    "add_prop_to_create_inst_req",
    "add_properties_to_req",
    "add_value_to_mi_req",
    "assign_invoke_ret_values",
    "cimc_debug",
    "cimc_getCMPIType",
    "create_inst_req_add_props",
    "getCIMCEnv",
    "getPropertyArrayData",
    "log_err_msgs",
    "manage_associator_names",
    "manage_enumerate_instance",
    "manage_object_with_path",
    "manage_references",
    "manage_references_names",
    "mapAssociatorNames",
    "mapCreateinstance",
    "mapEnumInstanceNames",
    "mapGetClass",
    "mapGetInstance",
    "mapInstance",
    "mapInvokeReturnValue",
    "mapObjectWithPath",
    "mapReferenceNames",
    "mapReferences",
    "mapToValueReferenceList",
    "map_to_object_with_path",
    "setSFCBTrace",
    "util_GetInstanceValues",
    "value2Chars",
};

TEST(EveryFunction, is_in_the_tables_once) {
  std::multiset<std::string> names = of_the_local_broker;
  for (const Function& function : every_function()) names.insert(function.name);
  EXPECT_GT(names.size(), 300U);
  EXPECT_EQ(names, exported_functions());
}

using Torture = testing::TestWithParam<Function>;

// Calls the function while its output goes nowhere.  `outcome` has room: nothing stays allocated.
bool call_failing(const Function& function, std::size_t successes, Outcome& outcome) {
  const support::CapturedOutput output(stdout), errors(stderr);
  const support::FailingAllocation failing(successes);
  outcome.assign(function.call());
  return failing.has_failed();
}

// Fails, whole or in part, leaves nothing behind, and works the next time.
TEST_P(Torture, an_allocation_that_fails_does_no_harm) {
  const Function& function = GetParam();
  Outcome complete, outcome;
  for (Outcome* text : {&complete, &outcome}) text->reserve(1U << 20U);
  call_failing(function, SIZE_MAX, outcome);  // what is made once and kept has been made
  call_failing(function, SIZE_MAX, complete);
  const long before = support::living_blocks();
  std::size_t successes = function.vital;
  for (bool has_failed = true; has_failed; ++successes) {
    ASSERT_LT(successes, 100000U);
    has_failed = call_failing(function, successes, outcome);
    ASSERT_EQ(support::living_blocks(), before) << successes;
    ASSERT_TRUE(outcome == complete || (has_failed && function.may_fail_as(outcome, complete)))
        << successes << ": " << outcome << "\ninstead of " << complete;
  }
  const std::size_t allocations = successes - 1;
  EXPECT_EQ(allocations > 0, function.allocates) << allocations;
}

INSTANTIATE_TEST_SUITE_P(EveryFunction, Torture, testing::ValuesIn(every_function()),
                         [](const auto& function) { return function.param.name; });

}  // namespace

// For GoogleTest's messages.
void PrintTo(const Function& function, std::ostream* out) { *out << function.name; }

}  // namespace torture
