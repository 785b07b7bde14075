// The fifteen operations over HTTP, each by its two names.
#include <memory>

#include "cim_client.h"
#include "operations/every_operation.h"
#include "support/allocations.h"
#include "torture/functions.h"

namespace torture {
namespace {

using operations_test::Operation;

// The name of the entry point that chooses the back end.
std::string entry_point_name(const std::string& operation) {
  if (operation == "GetClass" || operation == "EnumerateClasses" || operation == "CreateInstance")
    return "CIM_" + operation;
  return operation;
}

// An object manager is started when it is asked for the first time.
Function over_http(const std::string& name, const Operation& operation,
                   decltype(Operation::call) call) {
  const auto object_manager = std::make_shared<std::unique_ptr<operations_test::ObjectManager>>();
  return {.name = name,
          .call =
              [&operation, call, object_manager] {
                if (!*object_manager) {
                  const support::UncountedAllocations uncounted;
                  *object_manager = std::make_unique<operations_test::ObjectManager>(
                      operations_test::http_answer(operation.answer));
                }
                Error* error = nullptr;
                const std::string result = call((*object_manager)->handle(), &error);
                const support::UncountedAllocations uncounted;
                parseXML("");  // releases what the reader could not link
                return result + ", " +
                       operations_test::text_of(operations_test::OwnedError(error).get());
              },
          .may_fail_as = gives({operation.nothing + ", null"}),
          .vital = 1};
}

}  // namespace

std::vector<Function> operation_functions() {
  std::vector<Function> functions;
  for (const Operation& operation : operations_test::every_operation()) {
    functions.push_back(over_http("CIMC_XML_" + operation.name, operation, operation.call));
    functions.push_back(
        over_http(entry_point_name(operation.name), operation, operation.entry_point));
  }
  return functions;
}

}  // namespace torture
