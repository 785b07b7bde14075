// Types, references and embedded instances of given values.
#include "model/given_values.h"

#include "model/fitting.h"

namespace sandbox {
namespace {

Error mismatch(const Expectation& expectation, const std::string& what) {
  return {ErrorCode::TypeMismatch, expectation.name + ": " + what};
}

Outcome<Scalar> check_reference(const Expectation& expectation, const ObjectPath& path,
                                const Repository& repository, std::string_view home) {
  Outcome<ObjectPath> target = repository.identify_reference(path, home);
  if (!target)
    return Error{target.error().code, expectation.name + ": " + target.error().description};
  const NameSpace* lives_in = repository.find(target->name_space);
  const Class* of_class = lives_in ? lives_in->classes.find(target->class_name) : nullptr;
  const std::string& wanted = expectation.type.reference_class;
  if (of_class && !wanted.empty() && !of_class->is_a(wanted)) {
    return mismatch(expectation, "class \"" + of_class->name + "\" is no \"" + wanted + '"');
  }
  return Scalar(std::make_shared<const ObjectPath>(std::move(*target)));
}

Outcome<Scalar> check_scalar(const Expectation& expectation, const Scalar& scalar,
                             const Repository& repository, std::string_view home) {
  if (const auto* reference = std::get_if<Reference>(&scalar)) {
    return check_reference(expectation, **reference, repository, home);
  }
  if (const auto* embedded = std::get_if<EmbeddedInstance>(&scalar)) {
    const Class& of_class = *(*embedded)->of_class;
    if (!expectation.is_embedded) return mismatch(expectation, "an instance is no string");
    if (!expectation.embedded_class.empty() && !of_class.is_a(expectation.embedded_class)) {
      return mismatch(expectation, "class \"" + of_class.name + "\" is no \"" +
                                       expectation.embedded_class + '"');
    }
  } else if (expectation.is_embedded && !is_null(scalar)) {
    return mismatch(expectation, "the value is no embedded instance");
  }
  return scalar;
}

}  // namespace

Expectation expectation_of(const Property& property) {
  return {"property \"" + property.name + '"', property.type, property.is_embedded,
          property.embedded_class};
}

Expectation expectation_of(const Parameter& parameter) {
  return {"parameter \"" + parameter.name + '"', parameter.type, parameter.is_embedded,
          parameter.embedded_class};
}

Outcome<Value> check_given(const Expectation& expectation, const GivenValue& given,
                           const Repository& repository, std::string_view home) {
  const bool other_type = given.stated_type && *given.stated_type != expectation.type.type;
  const bool other_shape = given.stated_array && *given.stated_array != expectation.type.is_array;
  if (other_type || other_shape) {
    DataType stated{given.stated_type.value_or(expectation.type.type),
                    given.stated_array.value_or(expectation.type.is_array),
                    0,
                    {}};
    return mismatch(expectation,
                    "it is " + describe(expectation.type) + ", not " + describe(stated));
  }
  Outcome<Value> fitted = fit_value(given.value, expectation.type);
  if (!fitted) return mismatch(expectation, fitted.error().description);
  if (fitted->null()) return fitted;
  if (!fitted->is_array()) {
    Outcome<Scalar> scalar = check_scalar(expectation, fitted->scalar(), repository, home);
    if (!scalar) return scalar.error();
    return Value(std::move(*scalar));
  }
  std::vector<Scalar> elements;
  for (const Scalar& element : fitted->elements()) {
    Outcome<Scalar> scalar = check_scalar(expectation, element, repository, home);
    if (!scalar) return scalar.error();
    elements.push_back(std::move(*scalar));
  }
  return Value(std::move(elements));
}

}  // namespace sandbox
