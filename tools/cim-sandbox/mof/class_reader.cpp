// From the syntax of a class to the class.
#include "mof/class_reader.h"

namespace sandbox::mof {
namespace {

using MaybeProblem = std::optional<Problem>;

class ClassReader {
 public:
  ClassReader(const ClassSyntax& syntax, const QualifierTable& qualifiers)
      : syntax_(syntax), qualifiers_(qualifiers) {}

  MaybeProblem read_into(ClassTable& classes) {
    Class declared;
    declared.name = syntax_.name.value;
    if (syntax_.superclass) declared.superclass_name = syntax_.superclass->value;
    if (auto problem = take(syntax_.qualifiers, declared.qualifiers)) return problem;
    for (const FeatureSyntax& feature : syntax_.features) {
      if (auto problem = add_feature(feature, declared)) return problem;
    }
    const auto error = classes.add(std::move(declared));
    if (!error) return std::nullopt;
    return Problem{place_of(error->element), error->text};
  }

 private:
  MaybeProblem take(const std::vector<QualifierSyntax>& uses,
                    std::vector<Qualifier>& qualifiers) const {
    auto used = qualifiers_.used(uses);
    if (auto* problem = std::get_if<Problem>(&used)) return std::move(*problem);
    qualifiers = std::move(std::get<std::vector<Qualifier>>(used));
    return std::nullopt;
  }

  MaybeProblem add_feature(const FeatureSyntax& feature, Class& declared) const {
    if (const auto* method = std::get_if<MethodSyntax>(&feature)) {
      return add_method(*method, declared);
    }
    return add_property(std::get<ElementSyntax>(feature), declared);
  }

  MaybeProblem add_property(const ElementSyntax& element, Class& declared) const {
    Property property;
    property.name = element.name.value;
    property.type = element.type;
    if (auto problem = take(element.qualifiers, property.qualifiers)) return problem;
    if (element.initial) {
      auto value = value_of(*element.initial, element.type, {});
      if (auto* problem = std::get_if<Problem>(&value)) return std::move(*problem);
      property.initial = std::move(std::get<Value>(value));
    }
    declared.properties.push_back(std::move(property));
    return std::nullopt;
  }

  MaybeProblem add_method(const MethodSyntax& syntax, Class& declared) const {
    Method method;
    method.name = syntax.head.name.value;
    method.type = syntax.head.type;
    if (auto problem = take(syntax.head.qualifiers, method.qualifiers)) return problem;
    for (const ElementSyntax& element : syntax.parameters) {
      Parameter parameter;
      parameter.name = element.name.value;
      parameter.type = element.type;
      if (auto problem = take(element.qualifiers, parameter.qualifiers)) return problem;
      method.parameters.push_back(std::move(parameter));
    }
    declared.methods.push_back(std::move(method));
    return std::nullopt;
  }

  // The last declaration of that name: when two are the same, the second one is at fault.
  Place place_of(const std::string& element) const {
    Place place = syntax_.name.place;
    if (syntax_.superclass && syntax_.superclass->value == element) {
      return syntax_.superclass->place;
    }
    for (const FeatureSyntax& feature : syntax_.features) {
      const auto* method = std::get_if<MethodSyntax>(&feature);
      const Name& name = method ? method->head.name : std::get<ElementSyntax>(feature).name;
      if (same_name(name.value, element)) place = name.place;
    }
    return place;
  }

  const ClassSyntax& syntax_;
  const QualifierTable& qualifiers_;
};

}  // namespace

std::optional<Problem> declare_class(const ClassSyntax& syntax, const QualifierTable& qualifiers,
                                     ClassTable& classes) {
  return ClassReader(syntax, qualifiers).read_into(classes);
}

}  // namespace sandbox::mof
