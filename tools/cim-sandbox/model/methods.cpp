// The invocation of extrinsic methods.
#include <algorithm>

#include "model/given_values.h"
#include "model/method_behavior.h"
#include "model/object_manager.h"

namespace sandbox {
namespace {

Error wrong(std::string text) { return {ErrorCode::InvalidParameter, std::move(text)}; }

std::optional<Error> check_required(const Method& method, const std::vector<Argument>& arguments) {
  for (const Parameter& parameter : method.parameters) {
    if (!parameter.is_in || !is_set(parameter.qualifiers, "Required")) continue;
    const bool is_given =
        std::any_of(arguments.begin(), arguments.end(), [&](const Argument& argument) {
          return argument.parameter == &parameter && !argument.value.null();
        });
    if (!is_given) return wrong("required parameter \"" + parameter.name + "\" is missing");
  }
  return std::nullopt;
}

Outcome<std::vector<Argument>> check_arguments(const Method& method,
                                               const std::vector<GivenValue>& given,
                                               const Repository& repository,
                                               std::string_view home) {
  std::vector<Argument> arguments;
  for (const GivenValue& each : given) {
    const Parameter* parameter = find_parameter(method, each.name);
    if (!parameter || !parameter->is_in) {
      return wrong("method \"" + method.name + "\" takes no parameter \"" + each.name + '"');
    }
    for (const Argument& earlier : arguments) {
      if (earlier.parameter == parameter) {
        return wrong("parameter \"" + each.name + "\" is given twice");
      }
    }
    Outcome<Value> value = check_given(expectation_of(*parameter), each, repository, home);
    if (!value) return value.error();
    arguments.push_back({parameter, std::move(*value)});
  }
  if (auto problem = check_required(method, arguments)) return *problem;
  return arguments;
}

}  // namespace

Outcome<MethodResult> ObjectManager::invoke_method(const ObjectPath& path,
                                                   std::string_view method_name,
                                                   const std::vector<GivenValue>& arguments) {
  const Outcome<const NameSpace*> home = find_name_space(path.name_space);
  if (!home) return home.error();
  const Class* of_class = (*home)->classes.find(path.class_name);
  if (!of_class) {
    return Error{ErrorCode::InvalidClass, "unknown class \"" + path.class_name + '"'};
  }
  const Method* method = of_class->find_method(method_name);
  if (!method) {
    return Error{ErrorCode::MethodNotFound, "class \"" + of_class->name + "\" has no method \"" +
                                                std::string(method_name) + '"'};
  }
  std::optional<Target> target;
  if (!path.keys.empty()) {
    Outcome<Target> found = find_target(path);
    if (!found) return found.error();
    target = std::move(*found);
  } else if (!is_set(method->qualifiers, "Static")) {
    return wrong("method \"" + method->name + "\" needs an instance");
  }
  const auto checked = check_arguments(*method, arguments, repository_, (*home)->name);
  if (!checked) return checked.error();

  std::optional<Instance> changed;
  if (target) changed = *target->instance;
  Outcome<Effect> effect = carry_out(*method, *checked, changed ? &*changed : nullptr);
  if (!effect) return effect.error();
  if (effect->changes_instance) replace_values(*target, std::move(changed->values));
  MethodResult result{method, std::move(effect->return_value), {}};
  for (Argument& out : effect->out) result.out.push_back({out.parameter, std::move(out.value)});
  return result;
}

}  // namespace sandbox
