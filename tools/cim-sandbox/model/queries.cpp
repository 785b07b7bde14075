// The query operation.
#include "model/object_manager.h"
#include "query/evaluation.h"
#include "query/source.h"

namespace sandbox {

Outcome<QueryResult> ObjectManager::exec_query(std::string_view name_space,
                                               std::string_view language,
                                               std::string_view query) const {
  const Outcome<const NameSpace*> home = find_name_space(name_space);
  if (!home) return home.error();
  if (!same_name(language, "WQL")) {
    return Error{ErrorCode::QueryLanguageNotSupported,
                 "the query language is WQL, not \"" + std::string(language) + '"'};
  }
  Outcome<query::Query> parsed = query::parse(query);
  if (!parsed) return parsed.error();
  const Class* of_class = (*home)->classes.find(parsed->class_name);
  if (!of_class) {
    return Error{ErrorCode::InvalidClass, "unknown class \"" + parsed->class_name + '"'};
  }
  if (auto error = query::check(*parsed, *of_class)) return *error;
  const auto candidates = enumerate_instances(name_space, parsed->class_name);
  QueryResult result;
  for (const Instance* instance : *candidates) {
    if (parsed->condition && !query::meets(*instance, *parsed->condition, (*home)->classes)) {
      continue;
    }
    result.instances.push_back({path_of(*instance, (*home)->name), instance});
  }
  if (!parsed->properties.empty()) result.properties = std::move(parsed->properties);
  return result;
}

}  // namespace sandbox
