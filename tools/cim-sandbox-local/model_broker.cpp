// Answering each call of the broker from the model.
#include "model_broker.h"

#include <cstdio>
#include <filesystem>
#include <optional>
#include <utility>

#include "model/view.h"
#include "model_values.h"
#include "mof/reader.h"

namespace sandbox_local {
namespace {

using sandbox::FoundInstance;
using sandbox::ObjectPath;

template <class Into>
Into failure(const sandbox::Error& error) {
  Into answer;
  answer.code = static_cast<int>(error.code);
  answer.message = error.description;
  return answer;
}

// A failed call gives no value, as the broker's own.
MethodAnswer refused(const sandbox::Error& error) {
  auto answer = failure<MethodAnswer>(error);
  answer.returned = {code::null, state_not_found, {}};
  return answer;
}

std::optional<std::string> optional_text(const char* text) {
  return text ? std::optional<std::string>(text) : std::nullopt;
}

ElementsAnswer elements(std::vector<Datum> content) {
  ElementsAnswer answer;
  answer.elements = std::move(content);
  return answer;
}

// One element per found instance: the instance, or its path alone.
enum class Wanted { Instances, Paths };

ElementsAnswer found_elements(const std::vector<FoundInstance>& found, Wanted wanted) {
  std::vector<Datum> content;
  content.reserve(found.size());
  for (const FoundInstance& one : found)
    content.push_back(wanted == Wanted::Paths ? reference(path_of(one.path))
                                              : instance(instance_of(one.path, *one.instance)));
  return elements(std::move(content));
}

ElementsAnswer found_elements(const sandbox::Outcome<std::vector<FoundInstance>>& found,
                              Wanted wanted) {
  return found ? found_elements(*found, wanted) : failure<ElementsAnswer>(found.error());
}

bool is_number_or_boolean(sandbox::Type type) {
  return type != sandbox::Type::String && type != sandbox::Type::DateTime &&
         type != sandbox::Type::Char16 && type != sandbox::Type::Reference;
}

sandbox::AssociatorFilter associator_filter(const Filter& filter) {
  return {optional_text(filter.association_class), optional_text(filter.result_class),
          optional_text(filter.role), optional_text(filter.result_role)};
}

sandbox::ReferenceFilter reference_filter(const Filter& filter) {
  return {optional_text(filter.result_class), optional_text(filter.role)};
}

// Reads one model file; what is wrong with it is printed.
bool read(sandbox::mof::Reader& reader, const std::filesystem::path& file) {
  const auto problem = reader.read_file(file);
  if (problem)
    std::fprintf(stderr, "cim-sandbox-local: %s\n", sandbox::mof::to_text(*problem).c_str());
  return !problem;
}

}  // namespace

ModelBroker::ModelBroker(std::string_view files) : manager_(repository_) {
  sandbox::mof::Reader reader(repository_, "root/cimv2");
  is_read_ = true;
  while (!files.empty() && is_read_) {
    const auto end = files.find(':');
    is_read_ = read(reader, files.substr(0, end));
    files = end == std::string_view::npos ? std::string_view() : files.substr(end + 1);
  }
  if (!is_read_) return;
  const auto problem = reader.finish();
  if (problem)
    std::fprintf(stderr, "cim-sandbox-local: %s\n", sandbox::mof::to_text(*problem).c_str());
  is_read_ = !problem;
}

bool ModelBroker::connect(const char*, const char*) { return is_read_; }

// Texts name no number and no boolean: brokers compare keys with their types.
sandbox::Outcome<ObjectPath> ModelBroker::address(const Path& path) const {
  const auto of_class = manager_.get_class(path.name_space, path.class_name);
  if (!of_class) return model_path(path);  // for the operation to complain of
  for (const Member& key : path.keys) {
    const sandbox::Property* property = (*of_class)->find_property(key.name);
    if (property && key.datum.type == code::string && is_number_or_boolean(property->type.type))
      return sandbox::Error{sandbox::ErrorCode::NotFound,
                            "the key " + property->name + " is no text"};
  }
  return model_path(path);
}

ClassAnswer ModelBroker::get_class(const Path& path) {
  const auto found = manager_.get_class(path.name_space, path.class_name);
  if (!found) return failure<ClassAnswer>(found.error());
  ClassAnswer answer;
  answer.found = std::make_unique<ClassObject>(class_of(**found));
  return answer;
}

ElementsAnswer ModelBroker::class_names(const Path& path, bool deep) {
  std::optional<std::string> top;
  if (!path.class_name.empty()) top = path.class_name;
  const auto found = manager_.enumerate_classes(path.name_space, top, deep);
  if (!found) return failure<ElementsAnswer>(found.error());
  std::vector<Datum> content;
  for (const sandbox::Class* one : *found)
    content.push_back(reference(Path(path.name_space, one->name)));
  return elements(std::move(content));
}

InstanceAnswer ModelBroker::get_instance(const Path& path) {
  const auto target = address(path);
  if (!target) return failure<InstanceAnswer>(target.error());
  const auto found = manager_.get_instance(*target);
  if (!found) return failure<InstanceAnswer>(found.error());
  InstanceAnswer answer;
  answer.instance = std::make_unique<InstanceObject>(
      instance_of(sandbox::path_of(**found, path.name_space), **found));
  return answer;
}

PathAnswer ModelBroker::create_instance(const Path& path, const InstanceObject& instance) {
  const auto created =
      manager_.create_instance(path.name_space, GivenValues(manager_).instance(instance));
  if (!created) return failure<PathAnswer>(created.error());
  PathAnswer answer;
  answer.path = std::make_unique<Path>(path_of(*created));
  return answer;
}

Answer ModelBroker::set_instance(const Path& path, const InstanceObject& instance) {
  const auto target = address(path);
  if (!target) return failure<Answer>(target.error());
  const auto done =
      manager_.modify_instance(*target, GivenValues(manager_).instance(instance), std::nullopt);
  return done ? Answer{} : failure<Answer>(done.error());
}

Answer ModelBroker::delete_instance(const Path& path) {
  const auto target = address(path);
  if (!target) return failure<Answer>(target.error());
  const auto done = manager_.delete_instance(*target);
  return done ? Answer{} : failure<Answer>(done.error());
}

ElementsAnswer ModelBroker::exec_query(const Path& path, const char* query, const char* language) {
  const auto found = manager_.exec_query(path.name_space, language, query);
  if (!found) return failure<ElementsAnswer>(found.error());
  return found_elements(found->instances, Wanted::Instances);
}

ElementsAnswer ModelBroker::instance_names(const Path& path) {
  const auto found = manager_.enumerate_instances(path.name_space, path.class_name);
  if (!found) return failure<ElementsAnswer>(found.error());
  std::vector<Datum> content;
  for (const sandbox::Instance* one : *found)
    content.push_back(reference(path_of(sandbox::path_of(*one, path.name_space))));
  return elements(std::move(content));
}

ElementsAnswer ModelBroker::instances(const Path& path, bool deep) {
  const auto found = manager_.enumerate_instances(path.name_space, path.class_name);
  if (!found) return failure<ElementsAnswer>(found.error());
  const auto asked_for = manager_.get_class(path.name_space, path.class_name);
  sandbox::Wishes wishes;
  wishes.deep = deep;
  const sandbox::View view(wishes, asked_for ? *asked_for : nullptr);
  std::vector<Datum> content;
  for (const sandbox::Instance* one : *found)
    content.push_back(instance(instance_of(sandbox::path_of(*one, path.name_space), *one,
                                           view.positions(*one->of_class))));
  return elements(std::move(content));
}

ElementsAnswer ModelBroker::associators(const Path& path, const Filter& filter) {
  const auto target = address(path);
  if (!target) return failure<ElementsAnswer>(target.error());
  return found_elements(manager_.associators(*target, associator_filter(filter)),
                        Wanted::Instances);
}

ElementsAnswer ModelBroker::associator_names(const Path& path, const Filter& filter) {
  const auto target = address(path);
  if (!target) return failure<ElementsAnswer>(target.error());
  return found_elements(manager_.associators(*target, associator_filter(filter)), Wanted::Paths);
}

ElementsAnswer ModelBroker::references(const Path& path, const Filter& filter) {
  const auto target = address(path);
  if (!target) return failure<ElementsAnswer>(target.error());
  return found_elements(manager_.references(*target, reference_filter(filter)), Wanted::Instances);
}

ElementsAnswer ModelBroker::reference_names(const Path& path, const Filter& filter) {
  const auto target = address(path);
  if (!target) return failure<ElementsAnswer>(target.error());
  return found_elements(manager_.references(*target, reference_filter(filter)), Wanted::Paths);
}

// A string comes as bare characters, which stay the broker's until the next call.
CIMCData ModelBroker::returned_data(const Datum& datum) {
  if (!datum.inside) return datum.data();
  if (datum.type != code::string) return {datum.type, state_null, {}};
  returned_text_ = static_cast<const Text&>(*datum.inside).text;
  CIMCValue value{};
  value.chars = returned_text_.data();
  return {code::chars, state_good, value};
}

MethodAnswer ModelBroker::invoke_method(const Path& path, const char* method, const Arguments& in) {
  const auto target = address(path);
  if (!target) return refused(target.error());
  std::vector<sandbox::GivenValue> arguments;
  for (const Member& argument : in.members)
    arguments.push_back(GivenValues(manager_).value(argument));
  const auto result = manager_.invoke_method(*target, method ? method : "", arguments);
  if (!result) return refused(result.error());
  MethodAnswer answer;
  answer.returned = returned_data(datum_of(result->return_value, result->method->type));
  for (const sandbox::OutArgument& out : result->out)
    answer.out.push_back({out.parameter->name, datum_of(out.value, out.parameter->type)});
  return answer;
}

}  // namespace sandbox_local
