// From the syntax of instances to the instances.
#include "mof/instance_reader.h"

namespace sandbox::mof {
namespace {

// Aliases that need aliases that need aliases: associations of associations, in the main.
constexpr int deepest_alias = 64;

Checked<const Class*> class_for(const Name& name, const NameSpace& home) {
  const Class* of_class = home.classes.find(name.value);
  if (!of_class) return Problem{name.place, "unknown class \"" + name.value + '"'};
  if (of_class->is_abstract) {
    return Problem{name.place, "class \"" + of_class->name + "\" is abstract: it has no instances"};
  }
  return of_class;
}

std::string missing_key(const Instance& instance) {
  for (const std::size_t position : instance.of_class->keys) {
    if (instance.values[position].null()) return instance.of_class->properties[position].name;
  }
  return {};
}

}  // namespace

std::optional<Problem> InstanceReader::gather(InstanceSyntax syntax, NameSpace& home) {
  entries_.push_back({std::move(syntax), &home, State::Waiting, {}});
  const std::optional<Name>& alias = entries_.back().syntax.alias;
  if (alias && !aliases_.emplace(alias->value, &entries_.back()).second) {
    return Problem{alias->place, "alias \"" + alias->value + "\" is already in use"};
  }
  return std::nullopt;
}

std::optional<Problem> InstanceReader::build() {
  for (Entry& entry : entries_) {
    if (auto problem = build(entry, 0)) return problem;
  }
  for (Entry& entry : entries_) {
    if (auto problem = store(entry)) return problem;
  }
  entries_.clear();
  aliases_.clear();
  return std::nullopt;
}

std::optional<Problem> InstanceReader::build(Entry& entry, int depth) {
  if (entry.state == State::Built) return std::nullopt;
  const Name& name = entry.syntax.class_name;
  if (entry.state == State::InWork) {
    return Problem{name.place, "this instance needs itself, through its aliases"};
  }
  if (depth > deepest_alias) {
    return Problem{name.place, "aliases depend on each other too deeply"};
  }
  entry.state = State::InWork;
  Checked<Instance> built = instance_of(entry.syntax, *entry.home, depth);
  if (auto* problem = std::get_if<Problem>(&built)) return std::move(*problem);
  entry.instance = std::move(std::get<Instance>(built));
  entry.state = State::Built;
  return std::nullopt;
}

Checked<Instance> InstanceReader::instance_of(const InstanceSyntax& syntax, NameSpace& home,
                                              int depth) {
  const Checked<const Class*> of_class = class_for(syntax.class_name, home);
  if (const auto* problem = std::get_if<Problem>(&of_class)) return *problem;
  Instance instance = new_instance(*std::get<const Class*>(of_class));
  std::vector<std::string_view> assigned;
  for (const AssignmentSyntax& assignment : syntax.assignments) {
    for (const std::string_view earlier : assigned) {
      if (!same_name(earlier, assignment.name.value)) continue;
      return Problem{assignment.name.place,
                     "property \"" + assignment.name.value + "\" is given twice"};
    }
    assigned.push_back(assignment.name.value);
    if (auto problem = assign(assignment, instance, home, depth)) return *problem;
  }
  return instance;
}

std::optional<Problem> InstanceReader::assign(const AssignmentSyntax& assignment,
                                              Instance& instance, NameSpace& home, int depth) {
  const Property* property = instance.of_class->find_property(assignment.name.value);
  if (!property) {
    return Problem{assignment.name.place, "class \"" + instance.of_class->name +
                                              "\" has no property \"" + assignment.name.value +
                                              '"'};
  }
  const auto read_object = [&](const Literal& literal) {
    return object_for(literal, *property, home, depth);
  };
  Checked<Value> value = value_of(assignment.value, property->type, read_object);
  if (std::holds_alternative<Value>(value) && property->type.type == Type::Reference) {
    value = checked_references(std::get<Value>(value), *property, assignment.value.place, home);
  }
  if (auto* problem = std::get_if<Problem>(&value)) return std::move(*problem);
  instance.set(property->name, std::move(std::get<Value>(value)));
  return std::nullopt;
}

Checked<InstanceReader::Entry*> InstanceReader::aliased(const std::string& alias,
                                                        const Place& place) {
  const auto found = aliases_.find(alias);
  if (found == aliases_.end()) return Problem{place, "unknown alias \"" + alias + '"'};
  return found->second;
}

Checked<Scalar> InstanceReader::object_for(const Literal& literal, const Property& property,
                                           NameSpace& home, int depth) {
  const bool is_reference = property.type.type == Type::Reference;
  if (!is_reference && !property.is_embedded) {
    return Problem{literal.place, "expected " + std::string(name_of(property.type.type))};
  }
  Instance instance;
  const NameSpace* lives_in = &home;
  if (const auto* alias = std::get_if<Alias>(&literal.value)) {
    const Checked<Entry*> found = aliased(alias->name, literal.place);
    if (const auto* problem = std::get_if<Problem>(&found)) return *problem;
    Entry& entry = *std::get<Entry*>(found);
    if (auto problem = build(entry, depth + 1)) return *problem;
    instance = entry.instance;
    lives_in = entry.home;
  } else {
    if (is_reference) return Problem{literal.place, "expected an alias or the path of an instance"};
    const auto& inner = std::get<std::shared_ptr<InstanceSyntax>>(literal.value);
    Checked<Instance> built = instance_of(*inner, home, depth + 1);
    if (auto* problem = std::get_if<Problem>(&built)) return std::move(*problem);
    instance = std::move(std::get<Instance>(built));
  }
  if (is_reference) {
    if (const std::string key = missing_key(instance); !key.empty()) {
      return Problem{literal.place, "the instance of this alias lacks its key \"" + key + '"'};
    }
    return Scalar(std::make_shared<const ObjectPath>(path_of(instance, lives_in->name)));
  }
  if (!property.embedded_class.empty() && !instance.of_class->is_a(property.embedded_class)) {
    return Problem{literal.place, "expected an instance of \"" + property.embedded_class +
                                      "\", not of \"" + instance.of_class->name + '"'};
  }
  return Scalar(std::make_shared<const Instance>(std::move(instance)));
}

Checked<Value> InstanceReader::checked_references(const Value& value, const Property& property,
                                                  const Place& place, const NameSpace& home) const {
  if (value.null() || value.is_array()) return value;
  Outcome<ObjectPath> target =
      repository_.identify(*std::get<Reference>(value.scalar()), home.name);
  if (!target) return Problem{place, target.error().description};
  const NameSpace* lives_in = std::as_const(repository_).find(target->name_space);
  const Class* of_class = lives_in->classes.find(target->class_name);
  if (!of_class->is_a(property.type.reference_class)) {
    return Problem{place, "expected " + describe(property.type) + ", not to " + of_class->name};
  }
  return Value(Scalar(std::make_shared<const ObjectPath>(std::move(*target))));
}

std::optional<Problem> InstanceReader::store(Entry& entry) {
  const Name& name = entry.syntax.class_name;
  const Class& of_class = *entry.instance.of_class;
  if (of_class.keys.empty()) {
    if (entry.syntax.alias) return std::nullopt;  // it serves as an embedded instance
    return Problem{name.place, "class \"" + of_class.name +
                                   "\" has no key: its instances can only be embedded"};
  }
  if (const std::string key = missing_key(entry.instance); !key.empty()) {
    return Problem{name.place,
                   "expected a value for key \"" + key + "\" of class \"" + of_class.name + '"'};
  }
  const std::string path = to_text(path_of(entry.instance, ""));
  if (entry.home->instances.add(std::move(entry.instance))) return std::nullopt;
  return Problem{name.place, "instance " + path + " is already declared"};
}

}  // namespace sandbox::mof
