// ExecQuery.
#include "cimxml/query_operation.h"

#include "cimxml/found_instances.h"
#include "cimxml/parameters.h"

namespace sandbox::cimxml {

Outcome<Returns> exec_query(const OperationCall& call, Markup& out) {
  Parameters parameters(call.call, {"QueryLanguage", "Query"});
  const auto language = parameters.text("QueryLanguage");
  const auto query = parameters.text("Query");
  if (!language) parameters.fail("parameter \"QueryLanguage\" is missing");
  if (!query) parameters.fail("parameter \"Query\" is missing");
  if (parameters.problem()) return *parameters.problem();
  Outcome<QueryResult> result = call.manager.exec_query(call.name_space, *language, *query);
  if (!result) return result.error();
  Wishes wishes;
  wishes.properties = std::move(result->properties);
  write_objects_with_path(out, result->instances, View(std::move(wishes), nullptr));
  return Returns::Value;
}

}  // namespace sandbox::cimxml
